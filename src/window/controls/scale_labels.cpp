#include "window/controls/scale_labels.h"

#include <QPainter>
#include <array>

#include "window/controls/pattern_graph.h"

namespace marvolin {

namespace {

struct Scale {
    const char* Name;
    const char* Top;
    const char* Middle;
    const char* Bottom;
};
constexpr std::array<Scale, kPatternRows> kScales{
    {{"Vol", "500", "250", "0"}, {"Freq", "400%", "200%", "0%"}, {"Pan", "right", "centre", "left"}}};
constexpr int kLabelHeight = 12;

}  // namespace

ScaleLabels::ScaleLabels(QWidget* parent, int patternRow) : QWidget(parent), patternRow_(patternRow) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ScaleLabels::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const Scale& scale = kScales[static_cast<std::size_t>(patternRow_)];
    p.setPen(theme::kQuiet);
    p.setFont(theme::Sans(10));
    const auto at = [&](double y, const char* text) {
        p.drawText(QRectF(0, y - kLabelHeight / 2.0, width() - 3, kLabelHeight), Qt::AlignVCenter | Qt::AlignRight,
                   text);
    };
    at(kLabelHeight / 2.0 + 3, scale.Top);
    at(height() / 2.0, scale.Middle);
    at(height() - kLabelHeight / 2.0 - 3, scale.Bottom);
    p.setPen(PatternColour(patternRow_));
    p.setFont(theme::Sans(11, QFont::DemiBold));
    p.drawText(QRectF(0, 2, 30, 14), Qt::AlignVCenter | Qt::AlignLeft, scale.Name);
}

CurrentBadge::CurrentBadge(Session& session, QWidget* parent) : Control(session, parent, "CurrentLoop") {}

// It lies on the frame "Patterns", which is dragged here, too.
void CurrentBadge::Gesture(Phase phase, std::int16_t, QPointF) {
    if (phase == Phase::Down) ArmDrag({drags::kPatterns, 0, ""});
}

void CurrentBadge::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor colour = theme::RowColour(s.CurrentLoop);
    p.setPen(QPen(theme::RowEdge(s.CurrentLoop), 1));
    p.setBrush(colour);
    p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    p.setPen(theme::InkOn(colour));
    p.setFont(theme::Sans(18, QFont::Bold));
    p.drawText(rect(), Qt::AlignCenter, QString(QChar(RowLetter(s.CurrentLoop))));
}

DecimalPoint::DecimalPoint(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_TransparentForMouseEvents); }

void DecimalPoint::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kQuiet);
    p.drawEllipse(QPointF(width() / 2.0, height() - 9.0), 2, 2);
}

}  // namespace marvolin

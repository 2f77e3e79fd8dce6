#include "window/controls/time_controls.h"

#include <QPainter>
#include <array>

#include "core/loops/loop_views.h"
#include "sequencing/timing.h"

namespace marvolin {

namespace {

constexpr std::array<const char*, 3> kGroupNames{"Step Duration", "Swing", "Sample Start"};
constexpr std::array<const char*, kDigitsAGroup> kDigitNames{"hundredths", "tenths", "seconds", "tens of seconds",
                                                             "hundreds of seconds"};
constexpr std::array<const char*, 3> kPercentTips{"Step Duration as Percentage of Sample Length; dblclk to set to %100",
                                                  "Swing as Percentage of Step Duration; dblclk to set to %0",
                                                  "Sample Start as Percentage of Sample Length; dblclk to set to %0"};

struct CloneText {
    const char* Text;
    const char* Tip;
};
constexpr std::array<CloneText, 3> kClones{{
    {"Step Duration:", "Duration of Step, in Seconds (Applies to Track & Drum Mode)"},
    {"Sample Start:", "Begin Playing at this Point in Sample (Applies to Drum Mode)"},
    {"Swing: +/-Rnd:", "Swing Duration +/- a random number up to this amount"},
}};

QString DigitLabel(int digit) {
    return QString("%1, %2").arg(kGroupNames[static_cast<std::size_t>(digit / kDigitsAGroup)],
                                 kDigitNames[static_cast<std::size_t>(digit % kDigitsAGroup)]);
}

}  // namespace

TimeDigitControl::TimeDigitControl(Session& session, QWidget* parent, int digit)
    : Control(session, parent, "TimeDigit", digit, DigitLabel(digit)) {}

void TimeDigitControl::Gesture(Phase phase, std::int16_t, QPointF twips) {
    TimeDigit_Gesture(s, index, phase, twips.y());
}

// A step is the drag that makes one unit.
void TimeDigitControl::Step(int units) {
    TimeDigit_Gesture(s, index, Phase::Down, 0);
    TimeDigit_Gesture(s, index, Phase::Move, -units * kTwipsATimeUnit);
    TimeDigit_Gesture(s, index, Phase::Up, -units * kTwipsATimeUnit);
}

void TimeDigitControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::FaceState face = Face();
    face.Down = false;
    theme::DrawFace(p, rect(), face, Held() ? theme::kLifted : theme::kSunk, Held() ? theme::kAccent : theme::kLine, 4);
    p.setFont(theme::Digits(20));
    p.setPen(Held() ? theme::kAccent : theme::kText);
    const std::string& text = s.TimeText[static_cast<std::size_t>(index / kDigitsAGroup)];
    p.drawText(rect(), Qt::AlignCenter, QString(QChar(TimeDigitChar(text, index % kDigitsAGroup))));
}

PercentReadOutControl::PercentReadOutControl(Session& session, QWidget* parent, int element)
    : Control(session, parent, "PercentReadOut", element, kPercentTips[static_cast<std::size_t>(element)]) {}

void PercentReadOutControl::DoubleClick(std::int16_t, QPointF) { PercentReadOut_DblClick(s, index); }

void PercentReadOutControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    if (underMouse() || hasFocus()) theme::DrawFace(p, rect(), Face(), theme::kPanel, theme::kLine, 4);
    p.setFont(theme::Sans(13));
    p.setPen(theme::kAccent);
    const QString text = QString::fromStdString(s.PercentText[static_cast<std::size_t>(index)]);
    p.drawText(rect().adjusted(2, 0, -4, 0), Qt::AlignVCenter | Qt::AlignRight,
               p.fontMetrics().elidedText(text, Qt::ElideRight, width() - 6));
}

CloneTimeControl::CloneTimeControl(Session& session, QWidget* parent, int element)
    : Control(session, parent, "CloneTime", element, kClones[static_cast<std::size_t>(element)].Text) {
    setToolTip(kClones[static_cast<std::size_t>(element)].Tip);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::OpenHandCursor);
}

std::string_view CloneTimeControl::Hint(QPointF) const { return kCloneTimeHint; }

void CloneTimeControl::Gesture(Phase phase, std::int16_t, QPointF) {
    if (phase == Phase::Down) BeginDrag({"CloneTime", static_cast<Row>(index), ""});
}

void CloneTimeControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(underMouse() ? theme::kText : theme::kQuiet);
    for (int dot = 0; dot < 6; ++dot)
        p.drawEllipse(QPointF(3.5 + (dot % 2) * 4, height() / 2.0 - 4 + (dot / 2) * 4), 1, 1);
    p.setFont(theme::Sans(12));
    p.setPen(underMouse() ? theme::kText : theme::kQuiet);
    p.drawText(rect().adjusted(15, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
               kClones[static_cast<std::size_t>(index)].Text);
}

}  // namespace marvolin

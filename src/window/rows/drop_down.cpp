#include "window/rows/drop_down.h"

#include <QPainter>

#include "audio/sample_loading.h"
#include "core/loops/grouping.h"
#include "performance/drops/palette.h"

namespace marvolin {

namespace {

constexpr double kGrip = 8;  // pixels

QString LabelOf(Row row) {
    return row == kSelectionRow ? QString("Samples of the selection")
                                : QString("Sample of LoopTrack %1").arg(QChar(RowLetter(row)));
}

}  // namespace

DropDownControl::DropDownControl(Session& session, QWidget* parent, Row row)
    : Control(session, parent, "DropDown", row, LabelOf(row)), row_(row) {
    TakeDropsFor(row);
}

void DropDownControl::Refresh() {
    const std::string& path = s.Set[row_].FileName;
    setToolTip(path.empty() ? LabelOf(row_) : QString::fromStdString(path));
    update();
}

std::string_view DropDownControl::Hint(QPointF place) const { return DropDownHint(s, place.y() * kTwipsPerPixel); }

void DropDownControl::Gesture(Phase phase, std::int16_t, QPointF twips) {
    if (phase == Phase::Down) {
        if (const auto source = DropDown_MouseDown(s, row_, twips.y())) BeginDrag(*source);
    } else if (phase == Phase::Up && QRectF(rect()).contains(twips / kTwipsPerPixel)) {
        DropDown_MouseUp(s, row_, twips.y());
    }
}

QString DropDownControl::Text() const {
    if (row_ != kSelectionRow) return QString::fromStdString(LoopFileName(s, row_));
    int controlled = 0;
    for (Row row = 0; row < kLoopTracks; ++row) controlled += IsControlled(s, row) ? 1 : 0;
    return controlled == 0 ? QString("none selected") : QString("%1 selected").arg(controlled);
}

void DropDownControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face());
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kQuiet);
    for (double x = 8; x <= width() - 8; x += 4) p.drawEllipse(QPointF(x, 5), 0.8, 0.8);

    const QRectF text(9, kGrip, width() - 32, height() - kGrip - 2);
    const QString name = Text();
    p.setFont(theme::Sans(13));
    p.setPen(name.isEmpty() || row_ == kSelectionRow ? theme::kQuiet : theme::kText);
    const QString shown = name.isEmpty() ? QString("empty") : name;
    p.drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
               p.fontMetrics().elidedText(shown, Qt::ElideMiddle, static_cast<int>(text.width())));
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kQuiet);
    const QPointF tip(width() - 14, text.center().y() + 3);
    p.drawPolygon(QPolygonF({tip, tip + QPointF(-4.5, -5.5), tip + QPointF(4.5, -5.5)}));
}

}  // namespace marvolin

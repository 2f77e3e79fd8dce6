#include "window/rows/drop_down.h"

#include <QPainter>

#include "audio/sample_loading.h"
#include "core/loops/grouping.h"
#include "window/descriptions/parts.h"

namespace marvolin {

DropDownControl::DropDownControl(Session& session, QWidget* parent, Row row)
    : Control(session, parent, drags::kDropDown, row) {
    TakeDropsFor(row);
}

void DropDownControl::Refresh() {
    described.RefreshTip();
    update();
}

int DropDownControl::PartAt(QPointF place) const {
    return DropDownDragsAt(s, place.y() * kTwipsPerPixel) ? kGripPart : kOpeningPart;
}

void DropDownControl::Gesture(Phase phase, std::int16_t, QPointF twips) {
    if (phase == Phase::Down) {
        if (const auto source = DropDown_MouseDown(s, index, twips.y())) ArmDrag(*source);
    } else if (phase == Phase::Up && QRectF(rect()).contains(twips / kTwipsPerPixel)) {
        DropDown_MouseUp(s, index, twips.y());
    }
}

QString DropDownControl::Text() const {
    if (index != kSelectionRow) return QString::fromStdString(LoopFileName(s, index));
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

    const QRectF text(9, kDropDownGrip, width() - 32, height() - kDropDownGrip - 2);
    const QString name = Text();
    p.setFont(theme::Sans(13));
    p.setPen(name.isEmpty() || index == kSelectionRow ? theme::kQuiet : theme::kText);
    const QString shown = name.isEmpty() ? QString("empty") : name;
    p.drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
               p.fontMetrics().elidedText(shown, Qt::ElideMiddle, static_cast<int>(text.width())));
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kQuiet);
    const QPointF tip(width() - 14, text.center().y() + 3);
    p.drawPolygon(QPolygonF({tip, tip + QPointF(-4.5, -5.5), tip + QPointF(4.5, -5.5)}));
}

}  // namespace marvolin

#include "window/rows/drop_down.h"

#include <QPainter>

#include "audio/sample_loading.h"
#include "core/files/paths.h"
#include "core/loops/grouping.h"
#include "persistence/missing/missing_sample.h"
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

// The name stands struck through above what the row holds; the button beside it is `FindSample`.
void DropDownControl::PaintMissing(QPainter& p, const std::string& missing) const {
    const QRectF text(9, kDropDownGrip, width() - 9 - kFindRoom, height() - kDropDownGrip - 2);
    QFont font = theme::Sans(12);
    const auto line = [&](Qt::Alignment where, const QString& shown) {
        p.setFont(font);
        p.drawText(text, static_cast<int>(where | Qt::AlignLeft),
                   QFontMetrics(font).elidedText(shown, Qt::ElideMiddle, static_cast<int>(text.width())));
    };
    font.setStrikeOut(true);
    p.setPen(theme::kText);
    line(Qt::AlignTop, QString::fromStdString(SampleName("/" + missing)));
    font.setStrikeOut(false);
    p.setPen(theme::kQuiet);
    const QString held = Text();
    line(Qt::AlignBottom, held.isEmpty() ? QString("missing") : held);
}

void DropDownControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face());
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kQuiet);
    for (double x = 8; x <= width() - 8; x += 4) p.drawEllipse(QPointF(x, 5), 0.8, 0.8);

    const QRectF text(9, kDropDownGrip, width() - 32, height() - kDropDownGrip - 2);
    if (const std::string missing = MissingName(s, index); !missing.empty()) return PaintMissing(p, missing);
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

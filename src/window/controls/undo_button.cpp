#include "window/controls/undo_button.h"

#include <QPainter>
#include <QPainterPath>

#include "persistence/undo/undo_commands.h"

namespace marvolin {

namespace {

/// The arrow that turns back, in a square of 16 by 16 around the middle.
QPainterPath ArrowBack() {
    QPainterPath arrow;
    arrow.moveTo(-5, -2);
    arrow.lineTo(2, -2);
    arrow.cubicTo(7, -2, 7, 5, 2, 5);
    arrow.lineTo(-3, 5);
    arrow.moveTo(-2, -5);
    arrow.lineTo(-5, -2);
    arrow.lineTo(-2, 1);
    return arrow;
}

}  // namespace

UndoButton::UndoButton(Session& session, QWidget* parent, Turn turn)
    : TextButton(session, parent, turn == Turn::Back ? "Undo" : "Redo",
                 [&session, turn] { turn == Turn::Back ? Undo_Click(session) : Redo_Click(session); }),
      turn_(turn) {
    Refresh();
}

void UndoButton::Refresh() {
    setEnabled(HasStep());
    update();
}

bool UndoButton::HasStep() const { return !(turn_ == Turn::Back ? UndoText(s) : RedoText(s)).empty(); }

void UndoButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    theme::DrawFace(p, rect(), Face());
    p.translate(QRectF(rect()).center());
    if (turn_ == Turn::On) p.scale(-1, 1);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(isEnabled() ? theme::kText : theme::kQuiet, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(ArrowBack());
}

}  // namespace marvolin

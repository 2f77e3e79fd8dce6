#include "window/editor/script_status.h"

#include <QPainter>

#include "window/descriptions/described.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kScriptStatusEdge = 12;
constexpr int kCaretWidth = 110;

void DrawPart(QPainter& p, const QRect& place, const QString& text, const QColor& ink) {
    p.setPen(ink);
    p.drawText(place, Qt::AlignVCenter | Qt::AlignLeft,
               p.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
}

QString CaretText(TextPlace caret) { return QString("line %1, column %2").arg(caret.Line).arg(caret.Column); }

}  // namespace

ScriptStatus::ScriptStatus(Session& session, QWidget* parent) : QWidget(parent) {
    Describe(session, *this, "ScriptStatusBar");
    setFixedHeight(kHeight);
}

void ScriptStatus::ShowHint(const QString& hint) {
    if (hint == hint_) return;
    hint_ = hint;
    update();
}

void ScriptStatus::ShowCaret(TextPlace caret) {
    if (caret == caret_) return;
    caret_ = caret;
    update();
}

// The longest hint fits into the smallest window when it is written a pixel smaller.
void ScriptStatus::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), QColor(0x17, 0x19, 0x1c));
    p.setFont(theme::Sans(12));
    const int caret = width() - kScriptStatusEdge - kCaretWidth;
    DrawPart(p, QRect(caret, 0, kCaretWidth, height()), CaretText(caret_), theme::kQuiet);
    const QRect hint(kScriptStatusEdge, 0, caret - 2 * kScriptStatusEdge, height());
    if (p.fontMetrics().horizontalAdvance(hint_) > hint.width()) p.setFont(theme::Sans(11));
    DrawPart(p, hint, hint_, theme::kText);
}

}  // namespace marvolin

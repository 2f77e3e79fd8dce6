#include "window/editor/script_status.h"

#include <QPainter>

#include "window/descriptions/described.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kEdge = 12;
constexpr int kCaretWidth = 110;
constexpr int kRunningWidth = 210;

void DrawPart(QPainter& p, const QRect& place, const QString& text, const QColor& ink) {
    p.setPen(ink);
    p.drawText(place, Qt::AlignVCenter | Qt::AlignLeft,
               p.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
}

QString RunningText(const QString& running) { return running.isEmpty() ? "no script runs" : running + " runs"; }

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

void ScriptStatus::ShowState(const QString& running, TextPlace caret) {
    if (running == running_ && caret == caret_) return;
    running_ = running;
    caret_ = caret;
    update();
}

QString ScriptStatus::State() const { return RunningText(running_) + "; " + CaretText(caret_); }

void ScriptStatus::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), QColor(0x17, 0x19, 0x1c));
    p.setFont(theme::Sans(12));
    const int caret = width() - kEdge - kCaretWidth;
    const int running = caret - kEdge - kRunningWidth;
    DrawPart(p, QRect(kEdge, 0, running - 2 * kEdge, height()), hint_, theme::kText);
    DrawPart(p, QRect(running, 0, kRunningWidth, height()), RunningText(running_),
             running_.isEmpty() ? theme::kQuiet : theme::kGreen);
    DrawPart(p, QRect(caret, 0, kCaretWidth, height()), CaretText(caret_), theme::kQuiet);
}

}  // namespace marvolin

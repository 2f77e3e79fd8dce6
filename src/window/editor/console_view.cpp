#include "window/editor/console_view.h"

#include <QScrollBar>
#include <QTextBlock>

#include "window/descriptions/described.h"
#include "window/toolkit/strings.h"
#include "window/toolkit/text_hold.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

// What a script prints without end costs the thread of the steps only so much.
constexpr int kConsolePause = 100;  // ms

const QColor kErrorInk{0xff, 0x8d, 0x82};

QColor InkOf(ConsoleLine::Kind kind) {
    switch (kind) {
        case ConsoleLine::Kind::Note:
            return theme::kQuiet;
        case ConsoleLine::Kind::Error:
            return kErrorInk;
        case ConsoleLine::Kind::Printed:
            break;
    }
    return theme::kText;
}

}  // namespace

ConsoleView::ConsoleView(Session& session, const ScriptConsole& console, QWidget* parent)
    : QPlainTextEdit(parent), console_(console) {
    Describe(session, *this, "Console");
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setMaximumBlockCount(static_cast<int>(ScriptConsole::kMostLines));
    setFont(theme::Digits(12));
    setFrameShape(QFrame::NoFrame);
    setPlaceholderText("What a script prints stands here, and so do its errors. To begin with: Examples, then Run.");
    LetGoWithoutButton(*this);
    Pause.setSingleShot(true);
    Pause.setInterval(kConsolePause);
    Pause.callOnTimeout(this, [this] { Refresh(); });
}

void ConsoleView::Append(QTextCursor& end, const ConsoleLine& line) {
    if (filled_) end.insertBlock();
    filled_ = true;
    QTextCharFormat format;
    format.setForeground(InkOf(line.What));
    end.insertText(ToQString(line.Text), format);
}

void ConsoleView::RefreshInTime() {
    if (!Pause.isActive()) Refresh();
}

void ConsoleView::showEvent(QShowEvent* event) {
    QPlainTextEdit::showEvent(event);
    Refresh();
}

void ConsoleView::Refresh() {
    if (!isVisible()) return;
    const auto& lines = console_.Lines();
    if (lines.empty()) {
        clear();
        filled_ = false;
    }
    const std::uint64_t come = console_.Count() - shown_;
    shown_ = console_.Count();
    if (come == 0) return;
    Pause.start();
    const QScrollBar& bar = *verticalScrollBar();
    const bool atEnd = bar.value() == bar.maximum();
    const std::size_t fresh = std::min<std::uint64_t>(come, lines.size());
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.beginEditBlock();
    for (std::size_t i = lines.size() - fresh; i < lines.size(); ++i) Append(end, lines[i]);
    end.endEditBlock();
    if (atEnd) verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

}  // namespace marvolin

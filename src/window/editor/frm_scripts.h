#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <memory>

#include "scripting/script_room.h"
#include "window/editor/code_view.h"
#include "window/editor/script_document.h"
#include "window/editor/script_toolbar.h"
#include "window/toolkit/hint_window.h"

namespace marvolin {

class ConsoleView;
class EventList;
class FindBar;
class ScriptStatus;

/// The window in which scripts are written and run. Closing hides it; a script that runs goes on.
class FrmScripts : public QWidget, public HintWindow {
public:
    static constexpr QSize kSize{900, 680};  ///< less on a small screen

    /// Room and maker must outlive it.
    FrmScripts(Session& session, ScriptRoom& room, CodeViewMaker& maker);

    /// Shows the window in front of the others.
    void Open();
    /// Shows again what the room knows; for any number of changes once, when the event that is under way has ended.
    void RefreshSoon();
    void ShowHint(std::string_view hint) override;
    void TakeHintAway(std::string_view hint) override;
    bool ShowsNothing() const override;

    std::unique_ptr<ScriptDocument> Document;
    // Owned by the toolkit.
    CodeView* View = nullptr;
    ConsoleView* Console = nullptr;
    EventList* Events = nullptr;
    FindBar* Find = nullptr;
    ScriptStatus* Status = nullptr;
    QLabel* Running = nullptr;  ///< says whether a script runs, and which

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    ScriptToolbar::Actions ToolbarActions();
    QWidget* MakeHead(CodeViewMaker& maker);
    QWidget* MakeFoot();
    void MakeKeys();
    void FitScreen();

    void Run();
    void Stop();
    void Refresh();
    void ShowState();  ///< all but the console
    void ShowRunning();
    void ShowFailure();

    Session& s;
    ScriptRoom& room_;
    ScriptToolbar* toolbar_ = nullptr;  ///< owned by the toolkit
    QTimer soon_;
    std::uint64_t failures_ = 0;  ///< of the room, that have been shown
    bool ran_ = false;            ///< the text is the one that was run last, unchanged
};

}  // namespace marvolin

#pragma once

#include <QWidget>
#include <functional>

#include "core/session.h"

namespace marvolin {

class PopupList;
class TextButton;

/// The buttons at the top of the window of scripts, with their keys and the list of examples.
class ScriptToolbar : public QWidget {
public:
    /// What the buttons do.
    struct Actions {
        std::function<void()> New;
        std::function<void(int number)> Example;  ///< one of `kScriptExamples` was chosen
        std::function<void()> Open;
        std::function<void()> Save;
        std::function<void()> SaveAs;
        std::function<void()> Undo;
        std::function<void()> Redo;
        std::function<void()> Find;
        std::function<void()> Run;
        std::function<void()> Stop;
    };
    /// What can be done now.
    struct State {
        bool CanUndo = false;
        bool CanRedo = false;
        bool Runs = false;
    };
    /// The keys work in the whole of `owner`, which owns the bar and its list.
    ScriptToolbar(Session& session, QWidget& owner, Actions actions);
    /// Enables what can be done.
    void Show(const State& state);

private:
    TextButton* Add(const char* name, int width, const std::function<void()>& act);
    void AddKey(const char* key, const std::function<void()>& act);
    void MakeList();
    void OpenList();

    Session& s;
    const Actions actions_;
    // Owned by the toolkit.
    TextButton* examples_ = nullptr;
    TextButton* undo_ = nullptr;
    TextButton* redo_ = nullptr;
    TextButton* stop_ = nullptr;
    PopupList* list_ = nullptr;
};

}  // namespace marvolin

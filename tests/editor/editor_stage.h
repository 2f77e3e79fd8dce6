#pragma once
/// \file
/// The window of scripts over an instrument whose scripts run on Lua, operated by real events.

#include <QPoint>
#include <functional>
#include <string>
#include <vector>

#include "fakes/temp_folder.h"
#include "scripting/lua_rig.h"
#include "scripting/script_room.h"
#include "window/editor/frm_scripts.h"

class QDialog;
class QsciScintilla;

namespace marvolin::test {

/// The module that the build has made.
CodeViewMaker& Maker();

/// The room in which the scripts of an instrument run.
struct ScriptRig : LuaRig {
    ScriptRoom Room;
    ScriptRig();

    /// The lines of the console, each with its kind: "  " printed, "- " a note, "! " an error.
    std::vector<std::string> Lines() const;
    /// One tick of the script's clock.
    void Tick() { ScriptTimer_Timer(s, 100); }
};

/// The window, shown. Examples are those of the sources; files are in a folder of its own.
struct EditorStage : ScriptRig {
    EditorStage();
    ~EditorStage();

    /// The control with this object name; fails the test when there is none.
    QWidget* At(const char* name);
    void Click(const char* name);
    /// Types into the text.
    void Type(const std::string& text);
    /// Presses a key in the text.
    void Key(int key, Qt::KeyboardModifiers modifiers = {});
    /// Replaces the text as typing would: it is not saved.
    void Write(const std::string& text);
    std::string Text() const { return Window.View->Text(); }
    /// The view as what it is.
    QsciScintilla& Code();
    /// Runs `act` and answers each dialogue that it opens, in order, by one of `answers`. Fails the test when there are
    /// fewer dialogues than answers; a dialogue without an answer is cancelled, which fails it, too.
    void Answer(const std::vector<std::function<void(QDialog&)>>& answers, const std::function<void()>& act);
    /// Handles all events, and lets the pause of the console pass.
    void Settle();
    void EndPause();

    TempFolder Folder;
    FrmScripts Window{s, Room, Maker()};
};

/// Answers for `EditorStage::Answer`: the button with this object name; a file name in a file dialogue.
std::function<void(QDialog&)> Press(const char* button);
std::function<void(QDialog&)> Choose(const std::string& path);

}  // namespace marvolin::test

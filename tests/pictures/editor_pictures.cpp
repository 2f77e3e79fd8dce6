#include <QListWidget>
#include <QtTest/QTest>
#include <stdexcept>

#include "core/files/paths.h"
#include "forms.h"
#include "scene.h"
#include "scripting/lua_script.h"
#include "scripting/script_file.h"
#include "scripting/script_host.h"
#include "scripting/script_room.h"
#include "window/controls/text_button.h"
#include "window/editor/code_view_module.h"
#include "window/editor/find_bar.h"
#include "window/editor/frm_scripts.h"
#include "window/forms/frm_main.h"

namespace marvolin::test {

namespace {

CodeViewMaker& Maker() {
    std::string error;
    CodeViewMaker* maker = LoadCodeView(MARVOLIN_FOLDER, error);
    if (maker == nullptr) throw std::runtime_error(error);
    return *maker;
}

/// The window of scripts over a session of its own. The clock of scripts stands.
struct Editor : Scene {
    Editor() {
        Desk.Folder = std::string(MARVOLIN_ROOT) + "/assets";
        s.ScriptAvailable = true;
        Engine.Attach(s);
        Room.Attach(s, Host);
        Window.Open();
    }
    void Type(const char* text) { QTest::keyClicks(&Window.View->Widget(), text); }
    void Press(const char* name) {
        auto* button = Window.findChild<QWidget*>(name);
        QTest::mouseClick(button, Qt::LeftButton, {}, button->rect().center());
    }
    ScriptRoom Room;
    LuaScript Engine{
        {.Clock = [] { return std::int64_t{0}; }, .Print = [this](std::string_view line) { Room.Print(line); }}};
    ScriptHost Host{Engine, Desk};
    FrmScripts Window{s, Room, Maker()};
};

constexpr const char* kWrong =
    "-- Loop B goes where loop A does not.\n\nfunction OnPanScroll(row, pan)\n    if row = 1 then\n"
    "        marvolin.set_pan(\"B\", -pan)\n    end\nend\n";

void PictureTexts(Album& album) {
    Editor editor;
    album.Add(editor.Window, "scripts-empty");
    editor.Window.Document->BeginExample(7);
    editor.Press("RunScript");
    editor.Room.Print("1 minutes of OnClock");
    editor.Window.RefreshSoon();
    album.Add(editor.Window, "scripts-example");
    editor.Window.View->SetText(kWrong);
    editor.Press("RunScript");
    album.Add(editor.Window, "scripts-wrong-line");
    editor.Press("FindText");
    QTest::keyClicks(editor.Window.findChild<QWidget*>("FindWords"), "pan");
    album.Add(editor.Window, "scripts-find");
    editor.Window.resize(760, 420);
    album.Add(editor.Window, "scripts-small");
    album.AddFocused(editor.Window, "scripts");
}

/// Lists and tips are windows of their own.
void PictureHelps(Album& album) {
    Editor editor;
    editor.Press("Examples");
    album.Add(*editor.Window.findChild<QListWidget*>("ExampleList"), "scripts-examples");
    editor.Window.findChild<QListWidget*>("ExampleList")->hide();
    const auto others = [&](const std::string& name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window != &editor.Window) return album.Add(*window, name);
        }
        throw std::runtime_error("nothing has opened for " + name);
    };
    editor.Type("marvolin.set_p");
    others("scripts-completion");
    editor.Type("an(\"A\", ");
    others("scripts-tip");
}

}  // namespace

void PictureScripts(Album& album) {
    PictureTexts(album);
    PictureHelps(album);
}

}  // namespace marvolin::test

#include "script_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <stdexcept>

#include "window/editor/code_view_module.h"
#include "window/editor/find_bar.h"
#include "window/editor/script_questions.h"

namespace marvolin::help {

namespace {

CodeViewMaker& MakerIn(const std::string& folder) {
    std::string error;
    CodeViewMaker* maker = LoadCodeView(folder, error);
    if (maker == nullptr) throw std::runtime_error(error);
    return *maker;
}

}  // namespace

ScriptWindow::ScriptWindow(Session& session, const std::string& folder)
    : lua_({.Print = [this](std::string_view line) { room_.Print(line); }, .Ended = [this] { room_.EndedItself(); }}),
      host_(lua_, session.World.Desk) {
    lua_.Attach(session);
    room_.Attach(session, host_);
    form_ = std::make_unique<FrmScripts>(session, room_, MakerIn(folder));
    room_.OnChange = [this] { form_->RefreshSoon(); };
    form_->Document->BeginExample(0);
    // Without Lua on this machine the pictures show the window at rest.
    if (lua_.Available()) room_.Run(form_->View->Text(), form_->Document->Name());
}

void ScriptWindow::Reveal(const QString& name) {
    if (name.startsWith("Find") && name != "FindText") form_->Find->Open();
    if (name == "ExampleList") {
        auto* examples = form_->findChild<QWidget*>("Examples");
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent key(type, Qt::Key_Space, Qt::NoModifier);
            QApplication::sendEvent(examples, &key);
        }
    }
}

void ScriptWindow::AskUnsaved() { marvolin::AskUnsaved(*form_, form_->Document->Name()); }

}  // namespace marvolin::help

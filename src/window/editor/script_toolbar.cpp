#include "window/editor/script_toolbar.h"

#include <QApplication>
#include <QCursor>
#include <QHBoxLayout>
#include <QShortcut>

#include "scripting/api/api_page.h"
#include "scripting/script_file.h"
#include "window/controls/text_button.h"
#include "window/popups/popup_list.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

constexpr int kScriptToolbarEdge = 8;
constexpr int kScriptToolbarHeight = 30;
constexpr int kExampleListWidth = 620;

}  // namespace

ScriptToolbar::ScriptToolbar(Session& session, QWidget& owner, Actions actions)
    : QWidget(&owner), s(session), actions_(std::move(actions)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kScriptToolbarEdge, kScriptToolbarEdge, kScriptToolbarEdge, kScriptToolbarEdge);
    row->setSpacing(5);
    Add("NewScript", 50, actions_.New);
    examples_ = Add("Examples", 80, [this] { OpenList(); });
    Add("OpenScript", 56, actions_.Open);
    Add("SaveScript", 54, actions_.Save);
    Add("SaveScriptAs", 70, actions_.SaveAs);
    row->addSpacing(14);
    undo_ = Add("UndoText", 56, actions_.Undo);
    redo_ = Add("RedoText", 56, actions_.Redo);
    Add("FindText", 52, actions_.Find);
    row->addStretch(1);
    Add("RunScript", 62, actions_.Run);
    stop_ = Add("StopScript", 62, actions_.Stop);
    AddKey("Ctrl+N", actions_.New);
    AddKey("Ctrl+O", actions_.Open);
    AddKey("Ctrl+S", actions_.Save);
    AddKey("Ctrl+Shift+S", actions_.SaveAs);
    AddKey("Ctrl+F", actions_.Find);
    AddKey("F5", actions_.Run);
    AddKey("Shift+F5", actions_.Stop);
    MakeList();
}

TextButton* ScriptToolbar::Add(const char* name, int width, const std::function<void()>& act) {
    auto* button = new TextButton(s, nullptr, name, act);
    button->setFixedSize(width, kScriptToolbarHeight);
    layout()->addWidget(button);
    return button;
}

void ScriptToolbar::AddKey(const char* key, const std::function<void()>& act) {
    connect(new QShortcut(QKeySequence(key), window()), &QShortcut::activated, this, act);  // the window owns it
}

void ScriptToolbar::MakeList() {
    list_ = new PopupList(s, window(), "ExampleList");
    list_->OnHide = [this] {
        // The list has had the pointer: the button has not seen it go.
        if (examples_->rect().contains(examples_->mapFromGlobal(QCursor::pos()))) return;
        QEvent left(QEvent::Leave);
        QApplication::sendEvent(examples_, &left);
        examples_->update();  // the toolkit does so only for its own event
    };
    list_->OnChoose = [this](int row) {
        list_->hide();
        actions_.Example(row);
    };
}

void ScriptToolbar::OpenList() {
    QStringList rows;
    for (const ScriptExample& example : kScriptExamples) {
        const std::string_view name = example.File.substr(0, example.File.size() - kScriptExtension.size());
        rows << ToQString(name) + ": " + ToQString(example.Purpose);
    }
    list_->Open(rows, QRect(examples_->mapToGlobal(QPoint(0, 0)), examples_->size()), kExampleListWidth);
}

void ScriptToolbar::Show(const State& state) {
    undo_->setEnabled(state.CanUndo);
    redo_->setEnabled(state.CanRedo);
    stop_->setEnabled(state.Runs);
}

}  // namespace marvolin

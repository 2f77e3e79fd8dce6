#include "editor_stage.h"

#include <Qsci/qsciscintilla.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>
#include <QWindow>
#include <QtTest/QTest>

#include "window/editor/code_view_module.h"
#include "window/editor/console_view.h"

namespace marvolin::test {

CodeViewMaker& Maker() {
    std::string error;
    CodeViewMaker* maker = LoadCodeView(MARVOLIN_FOLDER, error);
    if (maker == nullptr) throw std::runtime_error(error);
    return *maker;
}

ScriptRig::ScriptRig()
    : LuaRig({.Print = [this](std::string_view line) { Room.Print(line); }, .Ended = [this] { Room.EndedItself(); }}) {
    Room.Attach(s, Host);
    s.ScriptAvailable = true;
}

std::vector<std::string> ScriptRig::Lines() const {
    std::vector<std::string> lines;
    for (const ConsoleLine& line : Room.Console.Lines()) {
        const char* kind = line.What == ConsoleLine::Kind::Error ? "! " : "- ";
        lines.push_back((line.What == ConsoleLine::Kind::Printed ? "  " : kind) + line.Text);
    }
    return lines;
}

EditorStage::EditorStage() {
    Desk.Folder = std::string(MARVOLIN_ROOT) + "/assets";
    s.CurrentFolder = Folder.Path() + "/";
    Room.OnChange = [this] { Window.RefreshSoon(); };
    Window.Open();
    Settle();
}

EditorStage::~EditorStage() { Room.OnChange = nullptr; }

QWidget* EditorStage::At(const char* name) {
    auto* widget = Window.findChild<QWidget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
}

void EditorStage::Click(const char* name) {
    QWidget& widget = *At(name);
    const QPoint place = widget.mapTo(&Window, widget.rect().center());
    QTest::mouseClick(Window.windowHandle(), Qt::LeftButton, {}, place);
    Settle();
}

void EditorStage::Type(const std::string& text) {
    for (const char c : text) {
        if (c == '\n') {
            Key(Qt::Key_Return);
        } else {
            QTest::keyClick(&Window.View->Widget(), c);
        }
    }
    Settle();
}

void EditorStage::Key(int key, Qt::KeyboardModifiers modifiers) {
    Window.activateWindow();  // no window manager does it after a dialogue
    QTest::keyClick(Window.windowHandle(), static_cast<Qt::Key>(key), modifiers);
    Settle();
}

QsciScintilla& EditorStage::Code() { return dynamic_cast<QsciScintilla&>(Window.View->Widget()); }

void EditorStage::Write(const std::string& text) {
    Code().selectAll();
    Code().replaceSelectedText(QString::fromStdString(text));
    Settle();
}

void EditorStage::Answer(const std::vector<std::function<void(QDialog&)>>& answers, const std::function<void()>& act) {
    std::size_t answered = 0;
    QTimer hand;
    const QDialog* last = nullptr;
    hand.callOnTimeout([&] {
        auto* asked = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
        if (asked == nullptr || asked == last) return;
        last = asked;
        if (answered < answers.size()) {
            answers[answered](*asked);
        } else {
            asked->reject();
        }
        ++answered;
    });
    hand.start(0);
    act();
    Settle();
    EXPECT_EQ(answered, answers.size());
}

void EditorStage::Settle() {
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    EndPause();
}

void EditorStage::EndPause() {
    QTimer& pause = Window.Console->Pause;
    QTimerEvent end(pause.timerId());
    if (pause.isActive()) QCoreApplication::sendEvent(&pause, &end);
}

std::function<void(QDialog&)> Press(const char* button) {
    return [button](QDialog& dialogue) {
        auto* found = dialogue.findChild<QAbstractButton*>(button);
        ASSERT_NE(found, nullptr) << button;
        found->click();
    };
}

std::function<void(QDialog&)> Choose(const std::string& path) {
    return [path](QDialog& dialogue) {
        auto* edit = dialogue.findChild<QLineEdit*>("fileNameEdit");
        ASSERT_NE(edit, nullptr);
        edit->setText(QString::fromStdString(path));
        // The toolkit may ask something in its turn, which the same hand has to answer.
        QTimer::singleShot(0, edit, [edit] { QTest::keyClick(edit, Qt::Key_Return); });
    };
}

}  // namespace marvolin::test

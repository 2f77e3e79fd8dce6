#include "answers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDrag>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QThread>
#include <QTimer>

#include "places.h"

namespace marvolin::hand {

namespace {

constexpr int kMostAnswers = 6;  // answers to one question until it is called off

/// What is typed into a file dialogue. Nothing beyond the folder of the run: a search of the whole disk takes its time.
std::string SomeFile(Dice& dice, bool script) {
    static constexpr const char* kOthers[] = {"new set",  "broken.mvn",       "notes.txt",
                                              "",         "no such folder/a", "Samples",
                                              "one.mvn~", "empty folder",     "Last session.mvn"};
    static constexpr const char* kScripts[] = {"own", "own.mvs", "Scripts/ducking.mvs"};
    if (script) return dice.Of(kScripts);
    return dice.OneIn(3) ? std::string(dice.Of(kOthers)) : dice.Of(World::Sets());
}

}  // namespace

Answers::Answers(World& world, Pointer& pointer)
    : world_(world), pointer_(pointer), level_(QThread::currentThread()->loopLevel()) {
    QTimer::singleShot(0, this, &Answers::Look);
}

bool Answers::Waiting() const { return QThread::currentThread()->loopLevel() > level_; }

// Each look is a timer of its own: an answer may open the next question, inside which the same timer would not run.
void Answers::Look() {
    QTimer::singleShot(0, this, &Answers::Look);
    if (Waiting()) Answer();
}

void Answers::Answer() {
    ++count_;
    QWidget* modal = QApplication::activeModalWidget();
    tries_ = modal == asked_ ? tries_ + 1 : 0;
    asked_ = modal;
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        menu->close();
    } else if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        AnswerBox(*box);
    } else if (auto* files = qobject_cast<QFileDialog*>(modal)) {
        AnswerFiles(*files);
    } else if (auto* dialogue = qobject_cast<QDialog*>(modal)) {
        dialogue->reject();
    } else {
        Drop();
    }
}

void Answers::AnswerBox(QMessageBox& box) {
    const QList<QAbstractButton*> buttons = box.buttons();
    if (buttons.isEmpty() || dice_.OneIn(5)) {
        words_ += " [a box: closed]";
        return box.reject();
    }
    QAbstractButton* button = buttons[dice_.Below(static_cast<int>(buttons.size()))];
    words_ += " [a box: " + button->text().toStdString() + "]";
    button->click();
}

void Answers::AnswerFiles(QFileDialog& dialogue) {
    auto* edit = dialogue.findChild<QLineEdit*>("fileNameEdit");
    const auto* buttons = dialogue.findChild<QDialogButtonBox*>();
    if (tries_ >= kMostAnswers || dice_.OneIn(4) || edit == nullptr || buttons == nullptr) {
        words_ += " [files: cancelled]";
        return dialogue.reject();
    }
    const std::string file = SomeFile(dice_, dialogue.windowTitle().contains("Script") && dice_.OneIn(2));
    edit->setText(QString::fromStdString(file));
    words_ += " [files: " + file + "]";
    for (QAbstractButton* button : buttons->buttons()) {
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole && button->isEnabled()) return button->click();
    }
    dialogue.reject();
}

// A drag that hangs on the pointer: over something else, and let go.
void Answers::Drop() {
    if (tries_ >= kMostAnswers || !pointer_.Holds() || dice_.OneIn(8)) {
        words_ += " [the drag: called off]";
        return QDrag::cancel();
    }
    const Place place = SomePlace(world_, dice_);
    pointer_.MoveTo(place);
    if (!Waiting()) return;
    words_ += " [dropped on " + place.Name + "]";
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (pointer_.Down().testFlag(button)) return pointer_.Release(button);
    }
}

}  // namespace marvolin::hand

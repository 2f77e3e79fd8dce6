#pragma once

#include <QObject>
#include <string>

#include "dice.h"
#include "pointer.h"
#include "world.h"

class QFileDialog;
class QMessageBox;

namespace marvolin::hand {

/// Gives an answer to whatever waits for one in an event loop of its own: a box, a file dialogue, a drag that wants to
/// be dropped.
class Answers : public QObject {
public:
    /// Both must outlive it. Made where no event loop but the application's runs.
    Answers(World& world, Pointer& pointer);

    /// The next answers are of these dice.
    void Begin(Dice dice) { dice_ = dice; }
    /// What it has answered since this was last called, in words.
    std::string TakeWords() { return std::exchange(words_, {}); }
    /// Whether something still waits.
    bool Waiting() const;
    std::int64_t Count() const { return count_; }

private:
    void Look();
    void Answer();
    void AnswerBox(QMessageBox& box);
    void AnswerFiles(QFileDialog& dialogue);
    void Drop();

    World& world_;
    Pointer& pointer_;
    Dice dice_{0};
    int level_;  // of the application's event loop
    QObject* asked_ = nullptr;
    int tries_ = 0;  // at the same question
    std::int64_t count_ = 0;
    std::string words_;
};

}  // namespace marvolin::hand

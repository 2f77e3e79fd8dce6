#include "run.h"

#include <QApplication>
#include <QFileDialog>
#include <QTimer>
#include <QtTest/QTest>
#include <cstdio>
#include <deque>
#include <exception>

#include "answers.h"
#include "gestures.h"
#include "invariants.h"
#include "persistence/undo/undo_commands.h"
#include "places.h"

namespace marvolin::hand {

namespace {

constexpr std::size_t kWordsKept = 12;
constexpr int kWindowPeriod = 10;    // gestures between two looks at what the controls show
constexpr int kFilePeriod = 250;     // gestures between two saved sets
constexpr int kSearchTime = 10'000;  // ms, of a few folders
constexpr std::uint64_t kAnswerSalt = 0x5bd1e995;

/// One run, inside the event loop.
class Evening {
public:
    explicit Evening(const RunOptions& options) : options_(options), world_(options.Seed), answers_(world_, mouse_) {}

    RunResult Play() {
        if (!world_.Started()) {
            Find(0, "the instrument does not start");
            return result_;
        }
        LookAway();
        for (int gesture = 1; gesture <= options_.Gestures && !Over(); ++gesture) MakeTurn(gesture);
        result_.Early = !result_.Found && result_.Gestures < options_.Gestures;
        End();
        result_.Answers = answers_.Count();
        return result_;
    }

private:
    bool Over() const { return result_.Found.has_value() || world_.Closed(); }

    // What comes out of the instrument here would leave it without answers to its last questions.
    void MakeTurn(int gesture) {
        try {
            Act(gesture);
            if (gesture == options_.SpoilAfter) options_.Spoil(world_);
            Check(gesture);
        } catch (const std::exception& e) {
            Expect(gesture, std::string("an error came out: ") + e.what());
        }
    }

    // Painting takes most of the time, so most runs paint nothing.
    void LookAway() {
        if (options_.Paint) return;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->updatesEnabled()) window->setUpdatesEnabled(false);
        }
    }

    void Act(int number) {
        Dice dice(options_.Seed, number);
        const Gesture& gesture = SomeGesture(dice);
        if (options_.OnGesture) options_.OnGesture(number, gesture.Name);
        answers_.Begin(Dice(options_.Seed ^ kAnswerSalt, number));
        std::string words;
        Turn turn{world_, dice, mouse_, keys_, words};
        gesture.Do(turn);
        // A search for samples goes on in the background, with the busy pointer.
        [[maybe_unused]] const bool found = QTest::qWaitFor([&] { return world_.s.BusyPointers == 0; }, kSearchTime);
        world_.HurryKeeper();
        world_.Sound.Log.clear();
        world_.Stick.Log.clear();
        ++result_.Gestures;
        Say(number, std::string(gesture.Name) + ": " + words + answers_.TakeWords());
    }

    void Say(int number, const std::string& said) {
        if (options_.OnGesture) options_.OnGesture(number, said);
        std::string words = std::to_string(number) + " " + said;
        if (options_.Print) std::printf("%s  %s\n", words.c_str(), State().c_str());
        words_.push_back(std::move(words));
        if (words_.size() > kWordsKept) words_.pop_front();
    }

    /// The rows in letters: "-" empty, small for loaded, a capital for one that plays; then the last step.
    std::string State() const {
        const Session& s = world_.s;
        std::string state = "(";
        for (Row row = 0; row <= kSelectionRow; ++row) {
            const bool plays = s.Run[row].Playing != False;
            const bool there = row == kSelectionRow || s.Run[row].Loaded != False;
            const auto letter = static_cast<char>(RowLetter(row) - 'A' + (plays ? 'A' : 'a'));
            state += there ? letter : plays ? '!' : '-';
        }
        return state + " " + UndoText(s) + ")";
    }

    void Find(int gesture, const std::string& what) {
        Finding found{options_.Seed, gesture, what, ""};
        for (const std::string& words : words_) found.Words += "  " + words + "\n";
        result_.Found = std::move(found);
    }

    void Expect(int gesture, const std::string& wrong) {
        ++result_.Checks;
        if (!wrong.empty() && !result_.Found) Find(gesture, wrong);
    }

    void Check(int gesture) {
        if (world_.Closed()) return;
        Expect(gesture, WrongBox(world_, answers_));
        Expect(gesture, WrongRange(world_.s));
        Expect(gesture, WrongSum(world_.s));
        if (std::exchange(world_.ScreensMoved, false)) Expect(gesture, WrongPlace(world_));
        if (world_.TakeTicked()) Expect(gesture, WrongAfterTick(world_));
        const bool idle = !mouse_.Holds() && !keys_.Holds();
        if (idle) Expect(gesture, OpenGesture(world_));
        if (options_.CheckAll || gesture % kWindowPeriod == 0) Expect(gesture, WrongShown(world_));
        if (gesture % kFilePeriod == 0) CheckFiles(gesture);
    }

    void CheckFiles(int gesture) {
        mouse_.LetGo();
        keys_.LetGo();
        if (QApplication::activePopupWidget() == nullptr)
            Expect(gesture, QTest::qWaitFor([&] { return !world_.Keeper.Waits(); }) ? "" : "a chosen size still waits");
        if (options_.Paint) {
            // Over no control: what lies under the pointer is painted otherwise.
            mouse_.MoveTo(PlaceIn(world_.Main(), QPointF(4, world_.Main().height() - 4)));
            Expect(gesture, WrongPicture(world_));
        }
        if (!world_.Refused) Expect(gesture, WrongUndo(world_));
        Expect(gesture, WrongSet(world_));
        LookAway();
    }

    void End() {
        answers_.Begin(Dice(options_.Seed ^ kAnswerSalt, 0));
        mouse_.LetGo();
        keys_.LetGo();
        const int last = result_.Gestures;  // the run that ends with it finds the same
        if (!Over()) Expect(last, OpenGesture(world_));
        world_.Close();
        if (!world_.Closed()) Expect(last, "the main window does not close");
    }

    const RunOptions& options_;
    World world_;
    Pointer mouse_;
    Keyboard keys_;
    Answers answers_;
    RunResult result_;
    std::deque<std::string> words_;
};

}  // namespace

RunResult PlayRun(const RunOptions& options) {
    RunResult result;
    // In an event loop, as the program runs: without one a box that waits would end at once after a main window was
    // closed.
    QTimer::singleShot(0, qApp, [&] {
        result = Evening(options).Play();
        QCoreApplication::exit();
    });
    QApplication::exec();
    return result;
}

}  // namespace marvolin::hand

// The hostile hand: it finds nothing in the program, and it finds what is put in.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QTimer>
#include <set>
#include <stdexcept>

#include "core/undo/undo_step.h"
#include "gestures.h"
#include "invariants.h"
#include "parameters/setters.h"
#include "persistence/undo/undo_commands.h"
#include "run.h"

namespace marvolin::hand {
namespace {

using testing::HasSubstr;

/// The words of all gestures of a run.
std::vector<std::string> WordsOf(std::uint64_t seed, int gestures) {
    std::vector<std::string> words;
    RunOptions options;
    options.Seed = seed;
    options.Gestures = gestures;
    options.OnGesture = [&](int number, const std::string& said) {
        words.resize(static_cast<std::size_t>(number));
        words.back() = said;
    };
    const RunResult result = PlayRun(options);
    EXPECT_FALSE(result.Found.has_value()) << result.Found->What << "\n" << result.Found->Words;
    return words;
}

TEST(HostileHand, FindsNothingInTheFirstGesturesOfTwoSeeds) {
    for (const std::uint64_t seed : {1U, 8U}) {
        RunOptions options;
        options.Seed = seed;
        options.Gestures = 260;
        options.CheckAll = true;
        options.Paint = seed == 8;
        const RunResult result = PlayRun(options);
        ASSERT_FALSE(result.Found.has_value())
            << "seed " << seed << ", gesture " << result.Found->Gesture << ": " << result.Found->What << "\n"
            << result.Found->Words;
        EXPECT_EQ(result.Gestures, 260);
        EXPECT_GT(result.Checks, 1000);
    }
}

TEST(HostileHand, MakesTheSameGesturesForTheSameSeedAndOthersForAnother) {
    const std::vector<std::string> first = WordsOf(3, 120);
    EXPECT_EQ(WordsOf(3, 120), first);
    EXPECT_NE(WordsOf(4, 120), first);
}

TEST(HostileHand, MakesEveryGestureOfItsTable) {
    std::set<std::string> made;
    for (int gesture = 1; gesture <= 20'000; ++gesture) {
        Dice dice(1, gesture);
        made.insert(SomeGesture(dice).Name);
    }
    EXPECT_EQ(made.size(), Gestures().size());
}

TEST(HandOnTheKeys, AKeyGoesToTheNextWindowWhenItsModifierHasTakenTheOneThatHadTheKeys) {
    struct Writer : QWidget {
        QString Keys;
        void keyPressEvent(QKeyEvent* event) override { Keys += event->text(); }
    } below;
    below.show();
    below.activateWindow();
    QCoreApplication::processEvents();
    struct Passing : QWidget {
        Passing() : QWidget(nullptr, Qt::Popup) {}
        void keyPressEvent(QKeyEvent*) override {
            QTimer::singleShot(0, [this] { delete this; });
        }
    };
    QPointer<QWidget> above = new Passing;  // deletes itself
    above->show();
    QCoreApplication::processEvents();
    ASSERT_EQ(QApplication::activePopupWidget(), above);
    Keyboard keys;
    keys.Click(Qt::Key_Z, Qt::ShiftModifier);
    EXPECT_TRUE(above.isNull());
    EXPECT_EQ(below.Keys.toLower(), "z");
}

/// A fault that is put in after a gesture, and what the hand has to say of it.
struct Planted {
    const char* Fault;
    void (*Plant)(World& world);
    const char* Found;
};

constexpr Planted kPlanted[] = {
    {"a value beyond its range", [](World& world) { world.s.Set[kMasterRow].Vol = 501; }, "Vol 5 is 501"},
    {"a step of a pattern beyond its range", [](World& world) { world.s.Set[1].Pattern[kHzPattern][31] = 0; },
     "a step of the pattern 1 is 0"},
    {"a letter twice in the order of thinning", [](World& world) { world.s.ThinList = "CC"; }, "a letter twice"},
    {"more clips in the list than there are", [](World& world) { world.s.Clips.List.emplace_back("a clip"); },
     "clips and their list differ"},
    {"a row that plays without a sample",
     [](World& world) {
         world.s.DSReady = true;
         world.s.Run[2].Buffer.reset();
         world.s.Run[2].Loaded = False;
         world.s.Run[2].Playing = True;
     },
     "plays without a sample, 2"},
    {"a drag that does not end", [](World& world) { world.s.Drag.Dragging = True; }, "a drag of a knob is open"},
    {"a caged pointer", [](World& world) { world.Desk.Caged = true; }, "the pointer is kept"},
    {"a list that shows another choice",
     [](World& world) {
         auto& list = *world.Main().findChild<QComboBox*>("DragAxisSelect");
         const QSignalBlocker quiet(&list);
         list.setCurrentIndex(1 - world.s.DragAxis);
     },
     "DragAxisSelect shows"},
    {"a tab that is not the open one",
     [](World& world) { world.s.ActiveTab = static_cast<std::int16_t>((world.s.ActiveTab + 1) % kTabs); },
     "is open, the session has tab"},
    {"a pointer that stays busy", [](World& world) { ++world.s.BusyPointers; }, "the busy one"},
    {"a box with a fault of the program", [](World& world) { world.s.World.Desk.Report("Error: Overflow"); },
     "a box said: Error: Overflow"},
};

TEST(HostileHand, FindsWhatIsPutInRightAfterTheGesture) {
    constexpr int kAfter = 6;
    for (const Planted& planted : kPlanted) {
        SCOPED_TRACE(planted.Fault);
        RunOptions options;
        options.Seed = 5;
        options.Gestures = kAfter + 1;
        options.CheckAll = true;
        options.SpoilAfter = kAfter;
        options.Spoil = [&](World& world) { planted.Plant(world); };
        const RunResult result = PlayRun(options);
        ASSERT_TRUE(result.Found.has_value());
        EXPECT_EQ(result.Found->Seed, 5U);
        EXPECT_EQ(result.Found->Gesture, kAfter);
        EXPECT_THAT(result.Found->What, HasSubstr(planted.Found));
        EXPECT_THAT(result.Found->Words, HasSubstr("  6 "));
    }
}

/// A row with a sample.
Row LoadedRow(const World& world) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (world.s.Run[row].Loaded != False) return row;
    }
    throw std::logic_error("no sample is loaded");
}

constexpr Planted kPlantedForLater[] = {
    {"a control that paints itself otherwise each time",
     [](World& world) {
         struct Painter : QObject {
             using QObject::QObject;
             int Times = 0;
             bool eventFilter(QObject* object, QEvent* event) override {
                 if (event->type() != QEvent::Paint) return false;
                 auto& widget = dynamic_cast<QWidget&>(*object);
                 QPainter(&widget).fillRect(widget.rect(), QColor(++Times % 256, 0, 0));
                 return true;
             }
         };
         auto& display = *world.Main().findChild<QWidget*>("SndDisp_1");
         display.installEventFilter(new Painter(&display));
     },
     "what is shown is not what would be painted, in frmMain at "},
    {"a setting that a set does not bring back", [](World& world) { world.s.Set[LoadedRow(world)].Thinnable = 7; },
     "of a saved set something does not come back:"},
    {"a step that does not come back whole",
     [](World& world) {
         Session& s = world.s;
         const Row row = LoadedRow(world);
         {
             const UndoStep step(s, "Test");
             std::int16_t vol = s.Set[row].Vol == 100 ? 200 : 100;
             LoopVolChange(s, row, vol, TakeHold::Yes, UpdateDisplay::Yes);
         }
         const std::int16_t other = s.Set[row].NSteps == 9 ? 10 : 9;
         world.Sound.OnCall = [&s, row, other](const std::string&) { s.Set[row].NSteps = other; };
     },
     "taken back and done again, \"Test\" leaves another set"},
};

TEST(HostileHand, FindsWhatIsPutInWhenItPaintsAndSavesAndTakesBack) {
    constexpr int kLook = 250;  // gestures
    for (const Planted& planted : kPlantedForLater) {
        SCOPED_TRACE(planted.Fault);
        RunOptions options;
        options.Seed = 8;
        options.Gestures = options.SpoilAfter = kLook;
        options.Paint = true;
        options.Spoil = [&](World& world) { planted.Plant(world); };
        const RunResult result = PlayRun(options);
        ASSERT_TRUE(result.Found.has_value());
        EXPECT_EQ(result.Found->Gesture, kLook);
        EXPECT_THAT(result.Found->What, HasSubstr(planted.Found));
    }
}

TEST(HostileHand, FindsAnErrorThatComesOutOfTheInstrument) {
    RunOptions options;
    options.Gestures = options.SpoilAfter = 2;
    options.Spoil = [](World&) { throw std::out_of_range("a table"); };
    const RunResult result = PlayRun(options);
    ASSERT_TRUE(result.Found.has_value());
    EXPECT_EQ(result.Found->What, "an error came out: a table");
    EXPECT_EQ(result.Found->Gesture, 2);
}

TEST(HostileHand, FindsAWindowThatLiesOnNoScreenOnceTheScreensHaveChanged) {
    RunOptions options;
    options.Gestures = options.SpoilAfter = 3;
    options.Spoil = [](World& world) {
        world.Screens = {{QRect(9000, 0, 1920, 1080), QRect(9000, 0, 1920, 1040)}};
        world.ScreensMoved = true;
    };
    const RunResult result = PlayRun(options);
    ASSERT_TRUE(result.Found.has_value());
    EXPECT_THAT(result.Found->What, HasSubstr("is on none of the screens"));
}

TEST(HostileHand, ReportsARunWhoseWindowWasClosedEarly) {
    RunOptions options;
    options.Gestures = 5;
    EXPECT_FALSE(PlayRun(options).Early);
    options.SpoilAfter = 3;
    options.Spoil = [](World& world) { world.Close(); };
    const RunResult result = PlayRun(options);
    EXPECT_TRUE(result.Early);
    EXPECT_EQ(result.Gestures, 3);
}

TEST(HostileHand, NamesTheLastGestureForWhatIsWrongAtTheEnd) {
    struct Staying : QObject {
        using QObject::QObject;
        bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::Close; }
    };
    RunOptions options;
    options.Gestures = options.SpoilAfter = 3;
    options.Spoil = [](World& world) { world.Main().installEventFilter(new Staying(&world.Main())); };
    const RunResult result = PlayRun(options);
    ASSERT_TRUE(result.Found.has_value());
    EXPECT_THAT(result.Found->What, HasSubstr("does not close"));
    EXPECT_EQ(result.Found->Gesture, 3) << "a run of three gestures finds it again";
}

/// What the hand says of the instrument after a tick, once `change` has been made to it.
std::string AfterTick(void (*change)(World& world)) {
    std::string wrong;
    RunOptions options;
    options.Gestures = options.SpoilAfter = 1;
    options.Spoil = [&](World& world) {
        for (Row row = 0; row < kLoopTracks; ++row) world.s.Run[row].Playing = False;
        world.s.Run[kSelectionRow].Playing = True;  // as something that plays has just left it
        change(world);
        wrong = WrongAfterTick(world);
        world.s.LoopTimerBusy = false;
    };
    [[maybe_unused]] const RunResult result = PlayRun(options);
    return wrong;
}

TEST(HandAfterATick, ASelectionThatPlaysWithoutItsRowsIsFoundWhenNoTickPutsItRight) {
    EXPECT_EQ(AfterTick([](World&) {}), "");
    EXPECT_THAT(AfterTick([](World& world) { world.s.LoopTimer->SetEnabled(false); }),
                HasSubstr("the selection plays"));
}

TEST(HandAfterATick, AFadeThatRisesOnAnEmptyRowPlaysTheSelectionBetweenTicks) {
    static constexpr auto kRise = [](World& world) {
        world.s.Run[1].Loaded = False;
        world.s.Set[1].Selected = True;
        world.s.Run[1].FadeState = kRising;
        world.s.LoopTimer->SetEnabled(false);
    };
    EXPECT_EQ(AfterTick(kRise), "");
    EXPECT_THAT(AfterTick([](World& world) {
                    kRise(world);
                    world.s.Set[1].Selected = False;
                }),
                HasSubstr("the selection plays"));
}

TEST(HandAfterATick, AScriptThatRunsHidesNoTickThatDoesNotWork) {
    static constexpr auto kRun = [](World& world) {
        ASSERT_TRUE(world.Room.Run("function OnClock() end", "idle"));
        world.s.LoopTimer->SetEnabled(false);
    };
    EXPECT_EQ(AfterTick(kRun), "");
    EXPECT_THAT(AfterTick([](World& world) {
                    kRun(world);
                    world.s.LoopTimerBusy = true;
                }),
                HasSubstr("the selection plays"));
}

}  // namespace
}  // namespace marvolin::hand

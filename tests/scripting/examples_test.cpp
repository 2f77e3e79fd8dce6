/// \file
/// The scripts that come with the program, each for ten minutes of its own time.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "fakes/file_bytes.h"
#include "fakes/temp_folder.h"
#include "parameters/knob_gesture.h"
#include "parameters/scroll_events.h"
#include "parameters/setters.h"
#include "performance/map/scatter.h"
#include "persistence/quick_load.h"
#include "scripting/lua_rig.h"
#include "sequencing/loop_clock.h"

namespace marvolin {
namespace {

using test::LuaRig;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr int kTenMinutes = 600'000;  // ms

/// An instrument whose timers tick, with an example running.
struct Playing : LuaRig {
    int Time = 0;  ///< ms

    explicit Playing(const std::string& example) {
        Fill(2, "/samples/three.WAV");
        Fill(3, "/samples/four.WAV");
        Text = test::ReadBytes(std::string(MARVOLIN_ROOT) + "/assets/Scripts/" + example);
    }
    void Start() { EXPECT_TRUE(Run(Text)); }
    /// Lets the time pass, and calls `look` every 10 ms.
    template <typename Look>
    void Live(int milliseconds, Look look) {
        for (const int end = Time + milliseconds; Time < end;) {
            Time += 10;
            LoopTimer_Timer(s, 10);
            if (Time % 40 == 0) FadeTimer_Timer(s, 40);
            if (Time % 100 == 0 && s.ScriptEnabled) ScriptTimer_Timer(s, 100);
            Pass(10);
            Screen.Log.clear();
            Sound.Log.clear();
            look();
        }
        EXPECT_THAT(Desk.Boxes, IsEmpty());
    }
    void Live(int milliseconds) {
        Live(milliseconds, [] {});
    }
    void Turn(Knob knob, Row row, double twips) {
        KnobGesture(s, knob, row, Phase::Down, kLeftButton, 0, 0);
        KnobGesture(s, knob, row, Phase::Move, kLeftButton, twips / 2, 0);
        KnobGesture(s, knob, row, Phase::Up, kLeftButton, twips, 0);
    }
    std::string Text;
};

TEST(Examples, ThePanOscillatorSwingsSmoothlyOnceInFourSeconds) {
    Playing i("pan_oscillator.mvs");
    i.Start();
    int crossings = 0, widest = 0, jump = 0, last = 0;
    i.Live(kTenMinutes, [&] {
        const int pan = i.s.Set[0].Pan - kPanCentre;
        crossings += last < 0 && pan >= 0 ? 1 : 0;
        widest = std::max(widest, std::abs(pan));
        jump = std::max(jump, std::abs(pan - last));
        last = pan;
    });
    EXPECT_NEAR(crossings, 150, 1);
    EXPECT_EQ(widest, 400);
    EXPECT_LE(jump, 16);
    EXPECT_EQ(i.s.Set[1].Pan, kPanCentre);
}

/// The running clock a second before it goes back to 0.
void BeforeTheWrap(Playing& i) {
    i.s.Clock.ClockHours = 24;
    i.s.Clock.ClockMinutes = 59;
    i.s.Clock.ClockSeconds = 59;
}

TEST(Examples, ThePanOscillatorGoesOnWithoutAJumpWhenTheClockGoesBackToZero) {
    Playing i("pan_oscillator.mvs");
    i.Text.replace(i.Text.find("period = 4"), 10, "period = 7");  // 25 hours are no whole number of these
    BeforeTheWrap(i);
    i.Start();
    int jump = 0, last = 0, widest = 0;
    i.Live(20'000, [&] {
        const int pan = i.s.Set[0].Pan - kPanCentre;
        jump = std::max(jump, std::abs(pan - last));
        widest = std::max(widest, std::abs(pan));
        last = pan;
    });
    EXPECT_LT(i.s.Clock.ClockHours, 24);
    EXPECT_EQ(widest, 400);
    EXPECT_LE(jump, 16);
}

TEST(Examples, TheMapWalkGoesOnWithoutAJumpWhenTheClockGoesBackToZero) {
    Playing i("map_walk.mvs");
    BeforeTheWrap(i);
    i.Start();
    Table<double, kLoopTracks> x, y;
    double jump = 0;
    const auto look = [&] {
        for (Row row = 0; row < kLoopTracks; ++row) {
            jump = std::max(jump, std::hypot(i.s.Set[row].PositionX - x[row], i.s.Set[row].PositionY - y[row]));
            x[row] = i.s.Set[row].PositionX;
            y[row] = i.s.Set[row].PositionY;
        }
    };
    look();
    jump = 0;
    i.Live(3000, look);
    EXPECT_LT(i.s.Clock.ClockHours, 24);
    EXPECT_GT(jump, 0);
    EXPECT_LT(jump, 0.05);
}

TEST(Examples, TheFadeOutGoesOnWhenTheClockGoesBackToZero) {
    Playing i("fade_out.mvs");
    BeforeTheWrap(i);
    i.Start();
    int last = 500, jump = 0;
    i.Live(60'000, [&] {
        jump = std::max(jump, std::abs(i.s.Set[5].Vol - last));
        last = i.s.Set[5].Vol;
    });
    EXPECT_LT(i.s.Clock.ClockHours, 24);
    EXPECT_NEAR(last, 400, 2);
    EXPECT_LE(jump, 1);
}

TEST(Examples, DuckingLetsTheOthersStepBackAtEachStepOfA) {
    Playing i("ducking.mvs");
    i.s.Set[0].StepDuration = 100;
    i.s.Set[0].PlayMode = kTrack;
    i.s.Run[0].Playing = True;
    i.Start();
    int ducks = 0, last = 500, lowest = 500, highest = 0;
    i.Live(kTenMinutes, [&] {
        const int vol = i.s.Set[1].Vol;
        if (vol < last - 100) ++ducks;
        lowest = std::min(lowest, vol);
        highest = std::max(highest, vol);
        EXPECT_EQ(i.s.Set[2].Vol, vol);
        EXPECT_EQ(i.s.Set[3].Vol, vol);
        last = vol;
    });
    EXPECT_NEAR(ducks, 600, 1);
    EXPECT_EQ(lowest, 300);
    EXPECT_EQ(highest, 500);
    EXPECT_EQ(i.s.Set[0].Vol, 500);
    i.Turn(Knob::Vol, 1, -300);
    i.Live(900);
    EXPECT_LE(i.s.Set[1].Vol, 200);
    i.Live(2000, [&] { EXPECT_LE(i.s.Set[1].Vol, 200); });
    // Muted, as by a double click, which is no event for scripts.
    LoopVolChangeGang(i.s, 2, 0, UpdateDisplay::Yes);
    i.Live(3000, [&] { EXPECT_EQ(i.s.Set[2].Vol, 0); });
}

/// Ducking, just behind a step of loop A: the others are down.
void InMidDuck(Playing& i) {
    i.s.Set[0].StepDuration = 100;
    i.s.Set[0].PlayMode = kTrack;
    i.s.Run[0].Playing = True;
    i.s.Set[3].Vol = 400;
    i.Start();
    for (int look = 0; look < 500 && i.s.Set[1].Vol > 350; ++look) i.Live(10);
    ASSERT_LE(i.s.Set[1].Vol, 350);
}

TEST(Examples, DuckingGivesTheVolumesBackWhenItIsStopped) {
    Playing i("ducking.mvs");
    InMidDuck(i);
    LoopVolChangeGang(i.s, 2, 123, UpdateDisplay::Yes);
    EndScript(i.s, i.Host);
    EXPECT_EQ(i.s.Set[1].Vol, 500);
    EXPECT_EQ(i.s.Set[2].Vol, 123) << "what the hand has set since stays";
    EXPECT_EQ(i.s.Set[3].Vol, 400);
}

TEST(Examples, DuckingThatIsRunAgainInMidDuckComesUpToTheFullVolumes) {
    Playing i("ducking.mvs");
    InMidDuck(i);
    i.Start();
    EXPECT_EQ(i.s.Set[1].Vol, 500);
    i.s.Run[0].Playing = False;
    i.Live(2000);
    EXPECT_EQ(i.s.Set[1].Vol, 500);
    EXPECT_EQ(i.s.Set[3].Vol, 400);
}

TEST(Examples, TheFadeOutThatIsStoppedGivesTheMasterVolumeBack) {
    Playing i("fade_out.mvs");
    i.Start();
    i.Live(60'000);
    ASSERT_LT(i.s.Set[5].Vol, 450);
    EndScript(i.s, i.Host);
    EXPECT_EQ(i.s.Set[5].Vol, 500);
}

TEST(Examples, TheHumaniserThatIsStoppedLeavesEachLoopAtItsMiddle) {
    Playing i("humaniser.mvs");
    i.s.Set[1].Vol = 300;
    i.Start();
    i.Chance.Rest = 0.9;
    i.Live(2000);
    ASSERT_NE(i.s.Set[1].Hz, 1000);
    ASSERT_NE(i.s.Set[1].Vol, 300);
    EndScript(i.s, i.Host);
    EXPECT_EQ(i.s.Set[1].Hz, 1000);
    EXPECT_EQ(i.s.Set[1].Vol, 300);
}

TEST(Examples, TheEuclideanPatternsHaveTheirHitsEvenlySpread) {
    Playing i("euclidean.mvs");
    i.Start();
    const std::array<int, 4> hits{4, 3, 5, 7};
    const auto check = [&] {
        for (Row row = 0; row < kLoopTracks; ++row) {
            EXPECT_EQ(i.s.Set[row].NSteps, 15);
            EXPECT_EQ(i.s.Set[row].PlayMode, kDrum);
            std::vector<int> places;
            for (int step = 0; step < 16; ++step) {
                if (i.s.Set[row].Pattern[kVolPattern][step] == 500) places.push_back(step);
            }
            ASSERT_EQ(static_cast<int>(places.size()), hits[static_cast<std::size_t>(row)]);
            for (std::size_t hit = 1; hit < places.size(); ++hit) {
                const double gap = 16.0 / hits[static_cast<std::size_t>(row)];
                EXPECT_NEAR(places[hit] - places[hit - 1], gap, 1);
            }
        }
    };
    check();
    for (Row row = 0; row < kLoopTracks; ++row) i.s.Run[row].Playing = True;
    i.Live(kTenMinutes);
    const auto before = i.s.Set[0].Pattern[kVolPattern];
    i.Turn(Knob::Hz, 0, -60);
    EXPECT_NE(i.s.Set[0].Pattern[kVolPattern], before);
    check();
}

TEST(Examples, TheHumaniserStaysCloseToWhatThePlayerSets) {
    Playing i("humaniser.mvs");
    i.Start();
    std::set<int> pitches, levels;
    double chance = 0;
    i.Live(kTenMinutes, [&] {
        chance = std::fmod(chance + 0.381966, 1);
        i.Chance.Rest = chance;
        EXPECT_NEAR(i.s.Set[0].Hz, 1000, 3);
        EXPECT_GE(i.s.Set[0].Vol, 492);
        pitches.insert(i.s.Set[0].Hz);
        levels.insert(i.s.Set[0].Vol);
    });
    EXPECT_EQ(pitches.size(), 7U);
    EXPECT_GT(levels.size(), 5U);
    i.Turn(Knob::Hz, 1, -20);
    i.Live(1000);
    // The hand took the knob at most 3 off its middle.
    EXPECT_NEAR(i.s.Set[1].Hz, 800, 6);
    LoopVolChangeGang(i.s, 0, 0, UpdateDisplay::Yes);
    i.Live(1000, [&] { EXPECT_EQ(i.s.Set[0].Vol, 0); });
    LoopVolChangeGang(i.s, 0, 300, UpdateDisplay::Yes);
    i.Live(2000, [&] { EXPECT_NEAR(i.s.Set[0].Vol, 300, 8); });
}

TEST(Examples, TheMapWalkGoesRoundTheListenerAndStaysOnTheMap) {
    Playing i("map_walk.mvs");
    i.Start();
    int rounds = 0;
    double last = 0;
    i.Live(kTenMinutes, [&] {
        for (Row row = 0; row < kLoopTracks; ++row) {
            const double radius = std::hypot(i.s.Set[row].PositionX, i.s.Set[row].PositionY);
            EXPECT_NEAR(radius, 0.8 * i.s.MapRange, 0.01);
        }
        const double y = i.s.Set[0].PositionY;
        rounds += last < 0 && y >= 0 ? 1 : 0;
        EXPECT_LT(std::abs(y - last), 0.05);
        last = y;
    });
    EXPECT_NEAR(rounds, 10, 1);
}

TEST(Examples, TheSceneChangerLoadsTheSetsOneAfterTheOther) {
    Playing i("scene_changer.mvs");
    const test::TempFolder folder;
    for (const char* name : {"one.mvn", "three.mvn", "two.mvn"}) folder.Touch(name);
    i.s.CurrentFolder = folder.Path() + "/";
    UpdateQuickLoad(i.s);
    i.Store.Log.clear();
    i.Start();
    i.Live(kTenMinutes);
    std::vector<std::string> loaded;
    for (const std::string& entry : i.Store.Log) {
        const std::size_t name = entry.rfind('/') + 1;
        loaded.push_back(entry.substr(name, entry.find('.', name) - name));
    }
    EXPECT_THAT(loaded, ElementsAre("one", "three", "two", "one", "three", "two", "one", "three", "two", "one"));
    EXPECT_EQ(i.s.StatusText, "Scene 1: one");
}

TEST(Examples, TheFadeOutEndsInSilenceAndGivesTheMasterBack) {
    Playing i("fade_out.mvs");
    i.s.Run[0].Playing = True;
    i.Start();
    int last = 500, lowest = 500;
    bool rises = false;
    i.Live(299'000, [&] {
        rises = rises || i.s.Set[5].Vol > last;
        last = i.s.Set[5].Vol;
        lowest = std::min(lowest, last);
    });
    EXPECT_FALSE(rises);
    EXPECT_LE(lowest, 2);
    EXPECT_TRUE(i.s.ScriptEnabled);
    EXPECT_EQ(i.s.Run[0].Playing, True);
    i.Live(kTenMinutes - 299'000);
    EXPECT_EQ(i.s.Set[5].Vol, 500);
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_FALSE(i.s.ScriptEnabled);
    EXPECT_EQ(i.s.StatusText, "The set has faded out.");
}

TEST(Examples, TheLearningPageShowsEachOfTheNineEvents) {
    Playing i("learning.mvs");
    i.Start();
    for (const std::int16_t wanted : i.s.EventWanted) EXPECT_EQ(wanted, True);
    const auto send = [&](ScriptEvent event, std::vector<double> arguments) {
        SendScriptEvent(i.s, event, arguments);
        return i.s.StatusText;
    };
    EXPECT_EQ(send(ScriptEvent::OnVolChange, {1, 250}), "A has volume 250");
    EXPECT_EQ(send(ScriptEvent::OnPanChange, {6, -20}), "Master has pan -20");
    EXPECT_EQ(send(ScriptEvent::OnPitchChange, {2, 99.5}), "B plays at 99.5 %");
    EXPECT_EQ(send(ScriptEvent::OnVolScroll, {5, 250, -3}), "Z: volume 250, moved -3");
    EXPECT_EQ(send(ScriptEvent::OnPanScroll, {3, 7, 1}), "C: pan 7, moved 1");
    EXPECT_EQ(send(ScriptEvent::OnPitchScroll, {4, 200, 0.5}), "D: 200 %, moved 0.5");
    EXPECT_EQ(send(ScriptEvent::OnPositionChange, {5, 0.5, -1.25}), "Ball 5 is at 0.50, -1.25");
    EXPECT_EQ(send(ScriptEvent::OnPositionScroll, {1, 0.5, 1, 0.1, -0.2}), "Ball 1 moved by 0.10, -0.20");
    i.Live(kTenMinutes);
    EXPECT_EQ(i.Printed.size(), 10U);
    EXPECT_EQ(i.Printed.back(), "10 minutes of OnClock");
}

TEST(Examples, InTurnsOneFadesInWhileTheOtherFadesOut) {
    Playing i("turns.mvs");
    i.Start();
    int turns = 0;
    bool both = false;
    Row last = -1;
    i.Live(kTenMinutes, [&] {
        for (const Row row : {Row{0}, Row{1}}) {
            if (i.s.Set[row].Vol != 500 || i.s.Run[row].Playing == False || i.Time % 8000 != 7990) continue;
            turns += row != last ? 1 : 0;
            both = both || i.s.Run[1 - row].Playing != False;
            last = row;
        }
    });
    EXPECT_EQ(turns, 75);
    EXPECT_FALSE(both);
}

}  // namespace
}  // namespace marvolin

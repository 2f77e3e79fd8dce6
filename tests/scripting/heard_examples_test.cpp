/// \file
/// The scripts that come with the program, each heard for ten minutes of its own time.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <iterator>
#include <numbers>
#include <set>

#include "audio/play_modes.h"
#include "parameters/knob_gesture.h"
#include "parameters/scroll_events.h"
#include "parameters/setters.h"
#include "performance/heard_rig.h"
#include "performance/map/scatter.h"
#include "performance/map/use_3d.h"
#include "persistence/quick_load.h"
#include "persistence/session_writer.h"
#include "scripting/lua_script.h"
#include "scripting/script_host.h"
#include "sequencing/loop_clock.h"

namespace marvolin {
namespace {

using test::HeardInstrument;
using test::Sides;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kTenMinutes = 600'000;  // ms
constexpr int kTick = 10;             // ms
constexpr int kTickFrames = 441;
constexpr int kHeardFrames = 16;  // of each tick, at its end
constexpr int kLevel = 8000;
constexpr double kSilence = 1;  // the mixer dithers
constexpr double kNear = 12;    // tolerance for rounding and the mixer's filters

/// An instrument that sounds, with its timers and an example on Lua.
struct Heard : HeardInstrument {
    std::int64_t Now = 0;  ///< ns
    std::vector<std::string> Printed;
    LuaScript Engine{{.Clock = [this] { return Now += 1000; },
                      .Print = [this](std::string_view line) { Printed.emplace_back(line); }}};
    ScriptHost Host{Engine, Desk};
    int Time = 0;  ///< ms

    Heard() {
        Engine.Attach(s);
        Scripts.During = [this](ScriptEvent event) { Host.Call(event, Scripts.Events.back().Arguments); };
    }
    void Start(const std::string& example) {
        std::ifstream file(std::string(MARVOLIN_ROOT) + "/assets/Scripts/" + example);
        EXPECT_TRUE(RunScript(s, Host, {std::istreambuf_iterator<char>(file), {}}, example));
    }
    void Tick() {
        Time += kTick;
        Now += kTick * 1'000'000;
        LoopTimer_Timer(s, kTick);
        if (Time % 40 == 0) FadeTimer_Timer(s, 40);
        if (Time % kScriptInterval == 0 && s.ScriptEnabled) ScriptTimer_Timer(s, kScriptInterval);
        const std::vector<test::FakeTimers::Timer*> timers = Timers.Live;
        for (auto* timer : timers) {
            if (timer->Enabled && timer->Interval == kTick) timer->OnTick(kTick);
        }
        Renderer.Render(frames_.data(), kTickFrames);
    }
    /// What is heard at the end of the last tick.
    Sides Level() const {
        Sides level;
        for (std::size_t i = frames_.size() - 2 * kHeardFrames; i < frames_.size(); i += 2) {
            level.Left += frames_[i];
            level.Right += frames_[i + 1];
        }
        return {level.Left / kHeardFrames, level.Right / kHeardFrames};
    }
    /// Lets the time pass, and calls `hear` with what is heard in each tick. No box and no failing event comes.
    template <typename Hear>
    void Live(int milliseconds, Hear hear) {
        for (const int end = Time + milliseconds; Time < end;) {
            Tick();
            hear(Level());
            Screen.Log.clear();
            Scripts.Events.clear();
        }
        EXPECT_THAT(Desk.Boxes, IsEmpty());
        EXPECT_THAT(Scripts.Reports, IsEmpty());
    }
    void Live(int milliseconds) {
        Live(milliseconds, [](const Sides&) {});
    }
    const std::array<std::int16_t, 2 * kTickFrames>& Frames() const { return frames_; }
    void Turn(Knob knob, Row row, double twips) {
        KnobGesture(s, knob, row, Phase::Down, kLeftButton, 0, 0);
        KnobGesture(s, knob, row, Phase::Move, kLeftButton, twips / 2, 0);
        KnobGesture(s, knob, row, Phase::Up, kLeftButton, twips, 0);
    }

private:
    std::array<std::int16_t, 2 * kTickFrames> frames_{};
};

/// Counts how often a number rises above a limit, after it has been below another one.
struct Rises {
    double Low;
    double High;
    int Count = 0;
    bool Armed = false;
    void Hear(double value) {
        if (value <= Low) Armed = true;
        if (!Armed || value < High) return;
        Armed = false;
        ++Count;
    }
};

TEST(HeardExamples, ThePanOscillatorMovesTheSoundFromSideToSideOnceInFourSeconds) {
    Heard i;
    i.Sound(0, kLevel);
    i.Start("pan_oscillator.mvs");
    Rises left{.Low = -500, .High = 500};
    double softest = kLevel, loudest = 0;
    i.Live(kTenMinutes, [&](const Sides& heard) {
        left.Hear(heard.Left - heard.Right);
        softest = std::min({softest, heard.Left, heard.Right});
        loudest = std::max({loudest, heard.Left, heard.Right});
    });
    EXPECT_NEAR(left.Count, 150, 1);
    EXPECT_LT(softest, 0.3 * kLevel);
    EXPECT_NEAR(loudest, kLevel, kNear);
}

TEST(HeardExamples, UnderDuckingTheOthersAreHeardToStepBackAtEachStepOfA) {
    Heard i;
    i.Sound(0, kLevel / 4, 0);
    i.Sound(1, 0, kLevel);
    i.s.Set[0].StepDuration = 100;
    LoopSetPlayMode(i.s, 0, kTrack, true);
    i.Live(100);
    i.Start("ducking.mvs");
    Rises ducks{.Low = -kLevel + 100, .High = -0.8 * kLevel};
    double softest = kLevel, beat = kLevel;
    i.Live(kTenMinutes, [&](const Sides& heard) {
        ducks.Hear(-heard.Right);
        softest = std::min(softest, heard.Right);
        beat = std::min(beat, heard.Left);
    });
    EXPECT_NEAR(ducks.Count, 600, 1);
    EXPECT_LT(softest, 0.5 * kLevel);
    EXPECT_GT(softest, 0.05 * kLevel);
    EXPECT_NEAR(beat, kLevel / 4, kNear);
}

TEST(HeardExamples, TheEuclideanPatternsAreHeardAsSoManyHitsARound) {
    Heard i;
    i.Sound(0, kLevel, 0);
    i.Sound(1, 0, kLevel);
    i.Start("euclidean.mvs");
    Rises a{.Low = 100, .High = kLevel / 2.0}, b = a;
    int hit = 0, shortest = kTenMinutes;
    i.Live(kTenMinutes, [&](const Sides& heard) {
        const int before = a.Count;
        a.Hear(heard.Left);
        b.Hear(heard.Right);
        if (a.Count == before) return;
        if (hit > 0) shortest = std::min(shortest, i.Time - hit);
        hit = i.Time;
    });
    // 250 rounds of 16 steps of 0.15 s
    EXPECT_NEAR(a.Count, 4 * 250, 4);
    EXPECT_NEAR(b.Count, 3 * 250, 3);
    EXPECT_NEAR(shortest, 4 * 150, 2 * kTick);
}

TEST(HeardExamples, TheHumanisedLoopIsALittleOutOfTuneAndOffItsLevelAllTheTime) {
    Heard i;
    std::vector<std::int32_t> tone;
    for (int frame = 0; frame < 4410; ++frame) {
        tone.push_back(static_cast<std::int32_t>(kLevel * std::sin(2 * std::numbers::pi * frame / 44.1)));
    }
    i.Sound(0, tone, 1);  // 1000 Hz
    i.Start("humaniser.mvs");
    std::set<int> pitches, peaks;
    int cycles = 0;
    std::int16_t last = 0;
    double chance = 0;
    i.Live(kTenMinutes, [&](const Sides&) {
        chance = std::fmod(chance + 0.381966, 1);
        i.Chance.Rest = chance;
        int peak = 0;
        for (std::size_t at = 0; at < i.Frames().size(); at += 2) {
            const std::int16_t frame = i.Frames()[at];
            cycles += last < 0 && frame >= 0 ? 1 : 0;
            peak = std::max<int>(peak, frame);
            last = frame;
        }
        peaks.insert(peak / 64);
        if (i.Time % 1000 != 0) return;
        pitches.insert(cycles);
        cycles = 0;
    });
    EXPECT_GE(*pitches.begin(), 996);
    EXPECT_LE(*pitches.rbegin(), 1004);
    EXPECT_GE(pitches.size(), 3U);
    EXPECT_GE(peaks.size(), 4U);
    EXPECT_GT(*peaks.begin() * 64, 0.8 * kLevel);
}

TEST(HeardExamples, TheMapWalkGoesRoundTheListenersEars) {
    Heard i;
    SetUse3D(i.s, true);
    i.Sound(0, kLevel);
    i.Start("map_walk.mvs");
    Rises right{.Low = -200, .High = 200};
    double softest = kLevel;
    i.Live(1000);
    i.Live(kTenMinutes - 1000, [&](const Sides& heard) {
        right.Hear(heard.Right - heard.Left);
        softest = std::min(softest, heard.Left + heard.Right);
    });
    EXPECT_NEAR(right.Count, 10, 1);
    EXPECT_GT(softest, 100);
}

TEST(HeardExamples, TheSceneChangerIsHeardToPlayTheSetsOneAfterTheOther) {
    Heard i;
    i.Sound(0, kLevel);
    const test::TempFolder sets;
    for (clsSwitchRecord& switches : i.s.SaveOpenSwitches) switches.SetSwitch(true);
    for (const auto& [name, level] : {std::pair{"one.mvn", 500}, {"two.mvn", 250}, {"three.mvn", 350}}) {
        LoopVolChangeGang(i.s, 0, static_cast<std::int16_t>(level), UpdateDisplay::Yes);
        ASSERT_TRUE(SaveSession(i.s, sets / name, LoopsSaved::All, i.s.SaveOpenSwitches[0]));
    }
    i.s.CurrentFolder = sets.Path() + "/";
    UpdateQuickLoad(i.s);
    i.Start("scene_changer.mvs");
    std::map<int, double> levels;  // by minute, in its middle
    i.Live(kTenMinutes + 40'000, [&](const Sides& heard) {
        if (i.Time % 60'000 == 30'000) levels[i.Time / 60'000] = heard.Left;
    });
    const double one = levels[1], three = levels[2], two = levels[3];
    EXPECT_NEAR(one, kLevel, kNear);
    EXPECT_GT(one, three + 10 * kNear);
    EXPECT_GT(three, two + 10 * kNear);
    EXPECT_GT(two, 10 * kNear);
    for (int minute = 4; minute <= 10; ++minute) EXPECT_NEAR(levels[minute], levels[minute - 3], kNear) << minute;
}

TEST(HeardExamples, TheFadeOutIsHeardToFallToSilence) {
    Heard i;
    i.Sound(0, kLevel);
    i.Live(100);
    i.Start("fade_out.mvs");
    double last = kLevel, rise = 0, early = 0, late = kLevel;
    i.Live(300'000, [&](const Sides& heard) {
        rise = std::max(rise, heard.Left - last);
        last = heard.Left;
        if (i.Time == 30'000) early = heard.Left;
        if (i.Time == 299'000) late = heard.Left;
    });
    EXPECT_LE(rise, 1);
    EXPECT_GT(early, 0.3 * kLevel);
    EXPECT_LT(late, 0.05 * kLevel);
    double loudest = 0;
    i.Live(1000);
    i.Live(kTenMinutes - 301'000, [&](const Sides& heard) { loudest = std::max(loudest, heard.Left); });
    EXPECT_LE(loudest, kSilence);
    EXPECT_EQ(i.s.Set[5].Vol, 500);
}

TEST(HeardExamples, TheLearningPageTellsOfTheHandAndLeavesTheSoundAlone) {
    Heard i;
    i.Sound(0, kLevel);
    i.Start("learning.mvs");
    i.Live(100);
    i.Turn(Knob::Vol, 0, -50);
    EXPECT_EQ(i.s.StatusText, "A: volume 450, moved -25");
    i.Live(1000);
    const Sides set = i.Level();
    double most = 0;
    i.Live(kTenMinutes, [&](const Sides& heard) { most = std::max(most, std::abs(heard.Left - set.Left)); });
    EXPECT_LE(most, 1);
    EXPECT_GT(set.Left, 0.3 * kLevel);
    EXPECT_EQ(i.Printed.size(), 10U);
}

TEST(HeardExamples, TurnsAreHeardNowOnTheOneSideNowOnTheOther) {
    Heard i;
    i.Sound(0, kLevel, 0);
    i.Sound(1, 0, kLevel);
    i.Start("turns.mvs");
    int turns = 0;
    bool both = false, aWasLast = false;
    i.Live(kTenMinutes, [&](const Sides& heard) {
        if (i.Time % 8000 != 7990) return;
        const bool a = heard.Left > heard.Right;
        turns += turns == 0 || a != aWasLast ? 1 : 0;
        both =
            both || std::min(heard.Left, heard.Right) > kSilence || std::max(heard.Left, heard.Right) < kLevel - kNear;
        aWasLast = a;
    });
    EXPECT_EQ(turns, 75);
    EXPECT_FALSE(both);
}

}  // namespace
}  // namespace marvolin

#pragma once
/// \file
/// An instrument on the real sound service, whose card and event loop come late as a test says.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "audio/device.h"
#include "audio/openal/sound.h"
#include "audio/play_modes.h"
#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "audio/wave_bytes.h"
#include "core/alarm.h"
#include "fakes/fake_display.h"
#include "fakes/fake_services.h"
#include "sequencing/grid_timers.h"
#include "sequencing/loop_clock.h"

namespace marvolin::test {

/// What time and chance do in a run. Nanoseconds.
struct Weather {
    static constexpr std::int64_t kMillisecond = 1'000'000;
    /// How late the next callback comes; negative for one that comes early, though not before the previous one.
    std::function<std::int64_t()> Card = [] { return 0; };
    /// How late the event loop comes round.
    std::function<std::int64_t()> Loop = [] { return 0; };
    /// How long the thread is held up before the work of a tick.
    std::function<std::int64_t()> Tick = [] { return 0; };
};

/// An alarm on a steady clock that a test moves.
class SteadyAlarm final : public Alarm {
public:
    explicit SteadyAlarm(const std::int64_t& steady) : steady_(steady) {}
    std::optional<std::int64_t> Due;
    std::function<void()> OnRing;
    void SetOnRing(std::function<void()> onRing) override { OnRing = std::move(onRing); }
    void Set(std::int64_t nanoseconds) override { Due = steady_ + nanoseconds; }
    void Cancel() override { Due.reset(); }

private:
    const std::int64_t& steady_;
};

/// A display that lets a test look on while a row gets its sample.
class WatchedDisplay final : public FakeDisplay {
public:
    std::function<void()> WhenCaptionIsShown;
    void ShowCaption(Row row) override {
        FakeDisplay::ShowCaption(row);
        if (WhenCaptionIsShown) WhenCaptionIsShown();
    }
};

/// The frames at which the clicks of the four rows are heard.
using Clicks = std::array<std::vector<std::int64_t>, kLoopTracks>;

struct SteppedInstrument : FakeServices {
    /// Rows A and B click on the left, C and D on the right; any two of a side can be told apart in their sum.
    static constexpr std::array<std::int16_t, kLoopTracks> kLevels{4000, 12000, 4000, 12000};

    const int Period;
    const double Pace;  ///< of the card, 1 is 44100 frames a second
    std::int64_t Steady = 1'000'000'000;
    std::shared_ptr<CardClock> Clock = std::make_shared<CardClock>([this] { return Steady; });
    LoopbackRenderer Renderer{Clock, Period};
    SteadyAlarm Bell{Steady};
    GridTimers Grid{*Clock, Bell};
    SampleFolder Folder;
    WatchedDisplay Screen;
    Session s{For(Screen)};
    Weather Outside;
    Clicks Heard;
    std::vector<std::int32_t> Levels;  ///< of the clicks of row A
    std::int64_t Rendered = 0;
    std::vector<std::int16_t> Sound;  ///< left and right interleaved, of the time in which `KeepsSound` is set
    bool KeepsSound = false;

    explicit SteppedInstrument(int period = 128, double pace = 1) : Period(period), Pace(pace) {
        Desk.TempFile = Folder.Path("VBN1.tmp");
        s.World.CreateDirectX7 = [this] { return Renderer.Root(); };
        s.DX = s.World.CreateDirectX7();
        InitAudioDriversList(s);
        s.Driver = 0;
        s.GangReady = true;
        InitDirectSound(s);
        begin_ = Steady;
        s.LoopTimer = Grid.Create([this](std::int32_t milliseconds) {
            Steady += Outside.Tick();
            LoopTimer_Timer(s, milliseconds);
        });
        s.LoopTimer->SetInterval(10);
        s.LoopTimer->SetEnabled(true);
    }
    ~SteppedInstrument() { s.LoopTimer.reset(); }

    /// A click of one frame and then silence, `frames` frames in all, in `mode` with steps of `duration` / 100 s.
    void Load(Row row, std::int16_t mode, std::int32_t duration, int frames) {
        std::vector<std::int32_t> numbers(static_cast<std::size_t>(2 * frames), 0);
        numbers[row < 2 ? 0 : 1] = kLevels[static_cast<std::size_t>(row)];
        Load(row, mode, duration, numbers, "click" + std::to_string(row) + ".wav");
    }
    /// A stereo sample of these numbers.
    void Load(Row row, std::int16_t mode, std::int32_t duration, const std::vector<std::int32_t>& numbers,
              const std::string& name) {
        Wave wave;
        wave.Data = Pcm(numbers, 16);
        Folder.Write(name, WaveBytes(wave));
        LoopLoad(s, row, Folder.Path(""), name);
        LoopSetPlayMode(s, row, mode, false);
        for (PatternBlock& pattern : s.Set[row].Pattern) pattern[kPatternOffset] = 0;
        s.Set[row].NSteps = 0;
        s.Set[row].Swing = 0;
        s.Set[row].StepDuration = duration;
    }
    /// Lets the time pass, with the callbacks and the turns of the event loop in their order.
    void Run(double seconds) {
        const auto end = Steady + static_cast<std::int64_t>(seconds * 1e9);
        while (Steady < end) {
            if (!ask_) ask_ = std::max(Steady, TimeOf(Rendered) + Outside.Card());
            if (Bell.Due != due_) {
                due_ = Bell.Due;
                if (due_) turn_ = *due_ + Outside.Loop();
            }
            if (due_ && turn_ <= *ask_) {
                Steady = std::max(Steady, turn_);
                due_.reset();
                Bell.Due.reset();
                Bell.OnRing();
            } else {
                Steady = std::max(Steady, *ask_);
                ask_.reset();
                Ask();
            }
        }
    }
    /// The thread is at work for so long: the card goes on alone.
    void Work(double seconds) {
        const auto end = Steady + static_cast<std::int64_t>(seconds * 1e9);
        while (TimeOf(Rendered) <= end) {
            Steady = std::max(Steady, TimeOf(Rendered));
            Ask();
        }
        ask_.reset();
        Steady = end;
    }
    /// The machine is suspended for so long: the card stands still, and the steady clock goes on.
    void Suspend(double seconds) {
        const auto passed = static_cast<std::int64_t>(seconds * 1e9);
        Steady += passed;
        begin_ += passed;
        ask_.reset();
    }
    /// What the adapter counts.
    CallCounts Counts() const { return OpenAlCallCounts(*s.DX); }

private:
    std::int64_t TimeOf(std::int64_t frame) const {
        return begin_ + std::llround(static_cast<double>(frame) * 1e9 / (kFramesASecond * Pace));
    }
    void Ask() {
        std::vector<std::int16_t> out(2 * static_cast<std::size_t>(Period));
        Renderer.Render(out.data(), Period);
        if (KeepsSound) Sound.insert(Sound.end(), out.begin(), out.end());
        for (int i = 0; i < Period; ++i, ++Rendered) {
            Note(0, out[static_cast<std::size_t>(2 * i)]);
            Note(2, out[static_cast<std::size_t>(2 * i + 1)]);
        }
    }
    void Note(Row first, std::int16_t level) {
        const int rows = (level + 2000) / 4000;
        if (rows <= 0) return;
        if (rows == 1 || rows == 4) Heard[static_cast<std::size_t>(first)].push_back(Rendered);
        if (rows == 3 || rows == 4) Heard[static_cast<std::size_t>(first + 1)].push_back(Rendered);
        if (first == 0) Levels.push_back(level);
    }

    std::int64_t begin_ = 0;
    std::optional<std::int64_t> ask_;
    std::optional<std::int64_t> due_;
    std::int64_t turn_ = 0;
};

}  // namespace marvolin::test

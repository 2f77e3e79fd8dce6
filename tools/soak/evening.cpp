#include "soak/evening.h"

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <thread>
#include <utility>

#include "audio/loop_clearing.h"
#include "audio/play_modes.h"
#include "audio/recording.h"
#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "browser/clipboard.h"
#include "core/errors.h"
#include "instrument/shut_down.h"
#include "instrument/start_up.h"
#include "parameters/setters.h"
#include "performance/map/use_3d.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/kept/last_state.h"
#include "persistence/undo/undo_commands.h"
#include "sequencing/loop_clock.h"

namespace marvolin::soak {

namespace {

constexpr double kSurfaceSide = 4500;                            // twips
constexpr std::int64_t kLooks = 200 * kNanosecondsAMillisecond;  // between two looks of the window
constexpr double kLateCallback = 1;                              // ms, at the most
constexpr double kLateTurn = 3;                                  // ms, at the most
constexpr std::int64_t kMostBehind = 300'000;                    // frames that the recorder may be behind
constexpr std::int32_t kClickStep = 25;                          // 1/100 s
constexpr std::int64_t kClickFramesApart = kClickStep * 441;
constexpr std::int64_t kMeasured = 5000;         // ms
constexpr std::uint64_t kClicksMeasured = 18;    // distances in it, whose first and last may lie over its ends
constexpr int kTicksToFollow = 500;              // of a new device, until the clock has come to its line
constexpr int kTicksToSettle = 2000;             // after these, whose mean the later ones are compared with
constexpr std::int16_t kTick = 10;               // ms
constexpr std::time_t kEvening = 1'800'000'000;  // when it begins

std::int64_t Nanoseconds(double milliseconds) {
    return static_cast<std::int64_t>(milliseconds * kNanosecondsAMillisecond);
}

}  // namespace

Evening::Evening(std::string folder, unsigned seed)
    : folder_(std::move(folder)),
      lateness_(seed),
      clock_(std::make_shared<CardClock>([this] { return card_.Steady; })),
      sound_(clock_, SimulatedCard::kPeriod, output_.Chain()),
      desk_(folder_),
      chance_(seed),
      lua_({.Clock = [this] { return card_.Steady; },
            .Print = [this](std::string_view line) { room_.Print(line); },
            .Ended = [this] { room_.EndedItself(); }}),
      host_(lua_, desk_),
      period_(2 * std::size_t{SimulatedCard::kPeriod}),
      s(ServicesOf()) {
    time_.OnEnd = [this] { CompareClocks(); };
    lua_.Attach(s);
    room_.Attach(s, host_);
    nextAsk_ = card_.NextAsk();
    nextLook_ = card_.Steady + kLooks;
    const StartUpHooks hooks{nullptr, [](Session& made) { PadGeometryInit(made, kSurfaceSide, kSurfaceSide); }};
    Started = RunMain(s, hooks) && desk_.Boxes.empty();
    if (Started) Form_Activate(s);
    Found.Boxes = std::exchange(desk_.Boxes, {});
}

Evening::~Evening() {
    if (Started) Form_QueryUnload(s);
}

Services Evening::ServicesOf() {
    return {screen_,
            desk_,
            forms_,
            chance_,
            timers_,
            host_,
            store_,
            [this] { return sound_.Root(); },
            [] { return std::make_unique<headless::NoJoysticks>(); },
            nullptr,
            &output_};
}

std::tm Evening::Now() const {
    const std::time_t now = kEvening + Milliseconds() / 1000;
    std::tm local{};
    ::gmtime_r(&now, &local);
    return local;
}

void Evening::Pass(std::int64_t milliseconds) {
    const std::int64_t end = card_.Steady + milliseconds * kNanosecondsAMillisecond;
    for (;;) {
        // The lateness of a turn is chosen once for each time that the alarm is set.
        const std::optional<std::int64_t> due = alarm_.Due();
        if (due && *due != lastDue_) {
            lastDue_ = *due;
            const bool isLate = std::uniform_int_distribution<int>(0, 9)(lateness_) == 0;
            const double late = std::uniform_real_distribution<double>(0, isLate ? kLateTurn : 0.2)(lateness_);
            ringAt_ = *due + Nanoseconds(late + std::exchange(Stall, 0));
        }
        const std::int64_t ring = due ? ringAt_ : end;
        const std::int64_t next = std::min({ring, nextAsk_, nextLook_, end});
        card_.Steady = std::max(card_.Steady, next);
        if (next == end) return;
        if (next == nextAsk_) {
            AskCard();
        } else if (next == nextLook_) {
            Look();
        } else {
            alarm_.Ring();
        }
    }
}

void Evening::Gesture(const std::function<void()>& gesture) {
    Count();
    const DirectSound* before = s.DS.get();
    {
        const CallGroup group(time_);
        gesture();
    }
    if (s.DS.get() != before) {
        counted_ = {};
        settling_ = 0;
        ticksOfDevice_ = 0;
    }
    for (std::string& box : desk_.Boxes) Found.Boxes.push_back(std::move(box));
    desk_.Boxes.clear();
}

void Evening::AskCard() {
    sound_.Render(period_.data(), SimulatedCard::kPeriod);
    if (heard_ != nullptr) heard_->insert(heard_->end(), period_.begin(), period_.end());
    card_.Given += SimulatedCard::kPeriod;
    const double late = std::uniform_real_distribution<double>(0, kLateCallback)(lateness_);
    nextAsk_ = std::max(nextAsk_ + 1, card_.NextAsk() + Nanoseconds(late));
    WaitForTheRecorder();
}

// The evening goes by faster than a disk may write it.
void Evening::WaitForTheRecorder() {
    const bool recording = output_.IsRecording();
    if (recording && !recording_) {
        recordedFrom_ = card_.Given;
        ++Found.Recordings;
    }
    if (!recording && recording_) Found.MissedFrames += output_.Recording().Missed;
    recording_ = recording;
    while (output_.IsRecording() && !output_.Recording().Ending &&
           card_.Given - recordedFrom_ - output_.Recording().Frames > kMostBehind)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

// The clock stands where its last tick stood, and has gone on since.
void Evening::CompareClocks() {
    if (s.Clock.ClockMs == clockShown_) return;
    const std::int32_t passed = s.Clock.ClockMs - std::exchange(clockShown_, s.Clock.ClockMs);
    ++Found.Ticks;
    if (passed > s.TimingRes) {
        ++Found.LateTicks;
        return;  // its place is that of the moment
    }
    const double since = (clock_->Now() - static_cast<double>(time_.Tick)) * 1000 / kFramesASecond;
    const double error = clockShown_ + since - card_.Played(card_.Steady);
    if (ticksOfDevice_ < kTicksToFollow) {
        ++ticksOfDevice_;
    } else if (ticksOfDevice_ < kTicksToFollow + kTicksToSettle) {
        settling_ += error / kTicksToSettle;
        if (++ticksOfDevice_ == kTicksToFollow + kTicksToSettle) Settled();
    } else {
        Found.ClockError = std::max(Found.ClockError, std::abs(error - offset_));
    }
}

void Evening::Settled() {
    if (Found.Devices++ > 0) Found.DeviceShift = std::max(Found.DeviceShift, std::abs(settling_ - offset_));
    offset_ = settling_;
}

void Evening::Look() {
    nextLook_ += kLooks;
    const CallGroup group(time_);
    WatchRecording(s);
    output_.TakeLevels();
    Count();
}

void Evening::Count() {
    if (!s.DX) return;
    const CallCounts now = OpenAlCallCounts(*s.DX);
    Found.LateCalls += now.Late - counted_.Late;
    Found.LongestLate = std::max(Found.LongestLate, now.LongestLate);
    Found.OtherFaults += now.Overflowed + now.Refused - counted_.Overflowed - counted_.Refused;
    counted_ = now;
}

void Evening::Rest() {
    Gesture([&] {
        FinishRecording(s);
        if (output_.IsSilent()) ToggleSilence(s);
        room_.Stop();
        room_.Console.Clear();
        StopAll(s);
        for (Row row = 0; row < kLoopTracks; ++row) LoopClear(s, row);
        while (s.Clips.ClipTop >= 0) DeleteClip(s, 0);
        EndUndo(s);
        StartUndo(s);
    });
    Pass(1000);
    WaitForLastState(s);
}

void Evening::MeasureClicks(const std::string& click) {
    Gesture([&] {
        ChangeUse3D(s, false);
        SetTimingRes(s, kTick);
        // In the middle of the pad no channel is silent.
        PadType_Click(s, kVolPad);
        PadMove(s, 0, 0, 1, {});
        LoadSample(s, {.Path = click, .Target = 0, .Rows = Reach::Alone});
        LoopSetPlayMode(s, 0, kDrum, false);
        LoopVolChangeGang(s, 0, kVolFull, UpdateDisplay::No);
        s.Set[0].StepDuration = kClickStep;
        LoopPlay(s, 0, true);
    });
    Pass(400);
    std::vector<std::int16_t> heard;
    heard_ = &heard;
    Pass(kMeasured);
    heard_ = nullptr;
    Gesture([&] { LoopClear(s, 0); });
    int loudest = 0;
    for (const std::int16_t sample : heard) loudest = std::max(loudest, std::abs(int{sample}));
    const std::uint64_t clicksBefore = Found.Clicks;
    std::int64_t last = -1;
    std::int64_t before = 0;
    for (std::size_t i = 0; i < heard.size(); i += 2) {
        const auto frame = static_cast<std::int64_t>(i / 2);
        if (std::max(std::abs(int{heard[i]}), std::abs(int{heard[i + 1]})) <= loudest / 2) continue;
        if (last >= 0 && frame - last > 2000) {
            if (before > 0) {
                ++Found.Clicks;
                Found.ClickError = std::max(Found.ClickError, std::abs(frame - before - kClickFramesApart));
            }
            before = frame;
        }
        last = frame;
    }
    const std::uint64_t clicks = Found.Clicks - clicksBefore;
    if (clicks < kClicksMeasured) Found.MissingClicks += kClicksMeasured - clicks;
}

}  // namespace marvolin::soak

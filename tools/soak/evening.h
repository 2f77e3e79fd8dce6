#pragma once
/// \file
/// A simulated evening: a whole session on the real sound adapter, with time, card and hand simulated.

#include <cstdint>
#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "audio/openal/card_clock.h"
#include "audio/openal/sound.h"
#include "audio/output/chained_output.h"
#include "core/session.h"
#include "headless_world.h"
#include "persistence/session_file_store.h"
#include "scripting/lua_script.h"
#include "scripting/script_host.h"
#include "scripting/script_room.h"
#include "sequencing/grid_timers.h"
#include "soak/simulated_time.h"

namespace marvolin::soak {

/// Chance that can be repeated.
class SeededChance final : public Random {
public:
    explicit SeededChance(unsigned seed) : engine_(seed) {}
    double Rnd() override { return std::generate_canonical<double, 53>(engine_); }
    void SeedFromClock() override {}

private:
    std::mt19937 engine_;
};

/// Nobody is there, and what has to be kept for a moment is kept in the evening's folder.
class EveningDesktop final : public headless::NoDesktop {
public:
    explicit EveningDesktop(const std::string& folder) : NoDesktop(folder), folder_(folder) {}
    std::string TempFileName(const std::string& prefix) override {
        return folder_ + "/" + prefix + std::to_string(++made_) + ".tmp";
    }

private:
    std::string folder_;
    int made_ = 0;
};

/// What has been measured since the start.
struct Measured {
    std::uint64_t Ticks = 0;        ///< of the loop timer
    std::uint64_t LateTicks = 0;    ///< of these: stood for several, because the event loop came round too late
    std::uint64_t LateCalls = 0;    ///< calls of the sound service that were applied after their frame
    std::int64_t LongestLate = 0;   ///< frames
    std::uint64_t OtherFaults = 0;  ///< calls that found no room, or were refused
    /// ms: the largest error of the instrument's clock against what the card has played. Each device is a card of its
    /// own, which is compared from its first seconds on.
    double ClockError = 0;
    int Devices = 0;                  ///< that have been open for longer
    double DeviceShift = 0;           ///< ms: how far a change of device has moved the clock at the most; not judged
    std::uint64_t Clicks = 0;         ///< distances of steps that were measured in the sound
    std::uint64_t MissingClicks = 0;  ///< that should have been there besides
    std::int64_t ClickError = 0;      ///< frames: how far the worst of them was from its place
    std::uint64_t Recordings = 0;
    std::uint64_t MissedFrames = 0;  ///< of the recordings
    std::vector<std::string> Boxes;  ///< what the instrument reported; nobody expects anything
};

class Evening {
public:
    /// Works in `folder`, which must exist. `seed` also decides the lateness of card and event loop.
    Evening(std::string folder, unsigned seed);
    ~Evening();
    Evening(const Evening&) = delete;
    Evening& operator=(const Evening&) = delete;

    /// Lets time pass.
    void Pass(std::int64_t milliseconds);
    /// A gesture of the hand: what it asks for is heard together.
    void Gesture(const std::function<void()>& gesture);
    /// Whole milliseconds that have passed.
    std::int64_t Milliseconds() const { return (card_.Steady - card_.Begun) / kNanosecondsAMillisecond; }
    /// Date and time of the evening.
    std::tm Now() const;

    /// Nothing sounds, nothing is in hand, no thread of the instrument works: what is held now is held for good.
    void Rest();
    /// Measures steps in what is heard: a LoopTrack of a click in Drum, for some seconds, after a rest.
    void MeasureClicks(const std::string& click);

    ScriptHost& Host() { return host_; }
    ScriptRoom& Room() { return room_; }

private:
    /// The card's clock, which also notes where the tick at work stands.
    class NotedTime final : public CardTime {
    public:
        explicit NotedTime(CardClock& clock) : clock_(clock) {}
        double Now() override { return clock_.Now(); }
        std::int64_t Until(double place) override { return clock_.Until(place); }
        void Begin(std::optional<Instant> at) override {
            if (at) Tick = *at;
            clock_.Begin(at);
        }
        void End() override {
            clock_.End();
            if (OnEnd) OnEnd();
        }
        Instant Tick = 0;             ///< where the last tick stands
        std::function<void()> OnEnd;  ///< a group has ended

    private:
        CardClock& clock_;
    };

    Services ServicesOf();
    void AskCard();
    void Look();
    void Count();
    void CompareClocks();
    void Settled();
    void WaitForTheRecorder();

    std::string folder_;
    std::mt19937 lateness_;
    SimulatedCard card_;
    std::shared_ptr<CardClock> clock_;
    NotedTime time_{*clock_};
    HandAlarm alarm_{card_.Steady};
    GridTimers timers_{time_, alarm_};
    ChainedOutput output_;
    LoopbackRenderer sound_;
    headless::NoDisplay screen_;
    EveningDesktop desk_;
    headless::NoWindows forms_;
    SeededChance chance_;
    ScriptRoom room_;
    LuaScript lua_;
    ScriptHost host_;
    SessionFileStore store_;

    std::int64_t nextAsk_ = 0;       // ns
    std::int64_t nextLook_ = 0;      // ns
    std::int64_t lastDue_ = -1;      // ns: the alarm for which `ringAt_` was chosen
    std::int64_t ringAt_ = 0;        // ns
    std::int64_t recordedFrom_ = 0;  // frames of the card before the recording that runs
    bool recording_ = false;
    std::int32_t clockShown_ = 0;  // ms
    double offset_ = 0;            // ms: the mean error while the open device settled
    double settling_ = 0;          // ms: that of a device that settles
    int ticksOfDevice_ = 0;        // at the most those in which it settles
    CallCounts counted_;
    std::vector<std::int16_t> period_;
    std::vector<std::int16_t>* heard_ = nullptr;

public:
    Session s;             ///< after the services that it uses
    bool Started = false;  ///< the instrument has come up; otherwise `Found.Boxes` has the reasons
    Measured Found;
    double Stall = 0;  ///< the event loop's next turn comes so many milliseconds later
};

}  // namespace marvolin::soak

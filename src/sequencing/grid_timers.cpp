#include "sequencing/grid_timers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace marvolin {

namespace {

/// A place on the card's clock in tenths of a frame, of which a millisecond is a whole number.
using Place = std::int64_t;
constexpr Place kTenths = 10;
constexpr Place kMillisecond = kFramesASecond * kTenths / 1000;
// The clock may run a little faster than the event loop's while it follows the card. It keeps ahead of the card by so
// much, so such a tick still has its time for its calls.
constexpr Place kBudget = kLatenessBudget * kMillisecond * 21 / 20;
// A tick beyond the budget is put where its calls are heard as soon as can be, with their time to be made.
constexpr Instant kHeldBack = kLatenessBudget * kMillisecond / kTenths;

/// One timer. Its timer and the service share it, because a tick may drop its own timer.
struct Entry {
    TimerFactory::Tick OnTick;
    Place Interval = kMillisecond;
    bool Enabled = false;
    Place Told = 0;  ///< up to here the time was passed on
    Place Next = 0;  ///< the next tick
};

/// Where the next tick of `entry` stands when the clock stands at `now`.
Place Due(const Entry& entry, Place now) {
    const Place late = now - entry.Next;
    return late > kBudget ? entry.Next + late / entry.Interval * entry.Interval : entry.Next;
}

/// Where the tick at work stands, until this object ends.
class PlaceOfTick {
public:
    PlaceOfTick(std::optional<Place>& current, Place place)
        : current_(current), outer_(std::exchange(current, place)) {}
    ~PlaceOfTick() { current_ = outer_; }
    PlaceOfTick(const PlaceOfTick&) = delete;
    PlaceOfTick& operator=(const PlaceOfTick&) = delete;

private:
    std::optional<Place>& current_;
    std::optional<Place> outer_;
};

}  // namespace

class GridTimers::Grid {
public:
    Grid(CardTime& time, Alarm& alarm) : time_(time), alarm_(alarm) {
        alarm_.SetOnRing([this] { Ring(); });
    }
    ~Grid() {
        alarm_.Cancel();
        alarm_.SetOnRing(nullptr);
    }
    Grid(const Grid&) = delete;
    Grid& operator=(const Grid&) = delete;

    void Add(std::shared_ptr<Entry> entry) { entries_.push_back(std::move(entry)); }
    void Remove(const std::shared_ptr<Entry>& entry) {
        std::erase(entries_, entry);
        Arm();
    }
    void SetInterval(Entry& entry, std::int32_t milliseconds) {
        const Place interval = std::max(milliseconds, 1) * kMillisecond;
        if (interval == entry.Interval) return;
        entry.Interval = interval;
        if (!entry.Enabled) return;
        entry.Next = entry.Told + interval;
        Arm();
    }
    void SetEnabled(Entry& entry, bool enabled) {
        entry.Enabled = enabled;
        entry.Told = Here();
        entry.Next = entry.Told + entry.Interval;
        Arm();
    }

private:
    Place Now() { return static_cast<Place>(std::floor(time_.Now() * kTenths)); }
    Place Here();
    void Ring();
    std::shared_ptr<Entry> Earliest(Place now) const;
    void Deliver(Entry& entry, Place place);
    void Arm();

    CardTime& time_;
    Alarm& alarm_;
    std::vector<std::shared_ptr<Entry>> entries_;  // in the order of creation
    std::optional<Place> inTick_;                  // the place of the tick at work
    std::optional<Place> armed_;                   // what the alarm is set for
};

// A tick at work is at its own place, unless it has waited since.
Place GridTimers::Grid::Here() {
    const Place now = Now() / kTenths * kTenths;
    return inTick_ && now - *inTick_ <= kBudget ? *inTick_ : now;
}

void GridTimers::Grid::Ring() {
    armed_.reset();
    const Place now = Now();
    // The copy keeps the entry when its tick drops the timer.
    while (const std::shared_ptr<Entry> entry = Earliest(now)) Deliver(*entry, Due(*entry, now));
    Arm();
}

std::shared_ptr<Entry> GridTimers::Grid::Earliest(Place now) const {
    std::shared_ptr<Entry> earliest;
    for (const auto& entry : entries_) {
        if (!entry->Enabled || entry->Next > now) continue;
        if (!earliest || Due(*entry, now) < Due(*earliest, now)) earliest = entry;
    }
    return earliest;
}

void GridTimers::Grid::Deliver(Entry& entry, Place place) {
    const Place milliseconds = (place - entry.Told) / kMillisecond;
    entry.Told = place;
    entry.Next = place + entry.Interval;
    // Before the tick, which may wait for events.
    Arm();
    const PlaceOfTick here(inTick_, place);
    const Place now = Now();
    const CallGroup group(time_, now - place > kBudget ? now / kTenths - kHeldBack : place / kTenths);
    entry.OnTick(static_cast<std::int32_t>(std::min<Place>(milliseconds, std::numeric_limits<std::int32_t>::max())));
}

void GridTimers::Grid::Arm() {
    std::optional<Place> next;
    for (const auto& entry : entries_)
        if (entry->Enabled && (!next || entry->Next < *next)) next = entry->Next;
    if (next == armed_) return;
    // What is set for a place that has passed rings at once for all that have.
    if (next && armed_ && std::max(*next, *armed_) <= Now()) return;
    armed_ = next;
    if (!next) return alarm_.Cancel();
    alarm_.Set(time_.Until(static_cast<double>(*next) / kTenths));
}

class GridTimers::Timer final : public PeriodicTimer {
public:
    Timer(Grid& grid, Tick tick) : grid_(grid), entry_(std::make_shared<Entry>()) {
        entry_->OnTick = std::move(tick);
        grid_.Add(entry_);
    }
    ~Timer() override { grid_.Remove(entry_); }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    void SetInterval(std::int32_t milliseconds) override { grid_.SetInterval(*entry_, milliseconds); }
    void SetResolution(std::int32_t) override {}  // the grid is exact at any resolution
    void SetEnabled(bool enabled) override { grid_.SetEnabled(*entry_, enabled); }

private:
    Grid& grid_;
    std::shared_ptr<Entry> entry_;
};

GridTimers::GridTimers(CardTime& time, Alarm& alarm) : grid_(std::make_unique<Grid>(time, alarm)) {}
GridTimers::~GridTimers() = default;

std::unique_ptr<PeriodicTimer> GridTimers::Create(Tick tick) {
    return std::make_unique<Timer>(*grid_, std::move(tick));
}

}  // namespace marvolin

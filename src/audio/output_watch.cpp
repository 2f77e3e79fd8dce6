#include "audio/output_watch.h"

#include <algorithm>
#include <utility>

#include "audio/device.h"
#include "audio/output_list.h"
#include "core/routines.h"

namespace marvolin {

namespace {

/// The open output, or while none is open the one that is to be; -1 for "No Sound" and before the first choice.
std::int16_t WantedOutput(const Session& s) {
    const std::int16_t entry = s.DSReady ? s.OpenDriver : s.Driver;
    return entry >= 0 && static_cast<std::size_t>(entry) + 1 < s.Drivers.size() ? entry : std::int16_t{-1};
}

}  // namespace

void OutputWatch::EndWait() {
    awaited_.clear();
    news_ = false;
    looks_ = 0;
}

void OutputWatch::Forget() {
    EndWait();
    shrunk_.clear();
    left_ = 0;
    doubted_ = 0;
}

void OutputWatch::NoteLost(const Session& s, const std::string& name, std::ptrdiff_t before) {
    const std::ptrdiff_t left = PluggedOutputs(s, name);
    if (left < before) {
        shrunk_ = name;
        left_ = left;
        doubted_ = 0;
    } else if (shrunk_ != name || ++doubted_ > kNewsLooks) {
        left_ = 0;  // it was another
    }
}

void OutputWatch::Look(Session& s) {
    const std::string before = OutputName(s, WantedOutput(s));
    const std::ptrdiff_t plugged = PluggedOutputs(s, before);
    unchanged_ = RefreshOutputs(s) ? 0 : std::min(unchanged_ + 1, kNewsLooks);
    NoteLost(s, before, plugged);
    // Which of several with one name has gone, the driver of the open output reports after the list has changed.
    if (left_ > 0 && OpenOutputIsGone(s)) PartFromLostOutput(s, std::exchange(left_, 0));
    const std::int16_t entry = WantedOutput(s);
    if (entry < 0) return Forget();
    const std::string name = OutputName(s, entry);
    if (!awaited_.empty() && awaited_ == before) awaited_ = name;  // it may come back under another number
    if (!IsPlugged(s, entry)) {
        awaited_ = name;
        news_ = true;  // its return is one
        looks_ = 0;
        return;
    }
    if (awaited_ != name) {
        EndWait();
        // The driver may know before the list does. The default output stays in the list when another takes its place.
        if (OpenOutputIsGone(s)) awaited_ = name;
    }
    // The list may also know before the driver does.
    news_ = news_ || unchanged_ < kNewsLooks;
    if (!awaited_.empty() && news_) Await(s, entry);
}

void OutputWatch::Await(Session& s, std::int16_t entry) {
    if (++looks_ < kSteadyLooks) return;
    const std::string name = ShownOutputs(s)[static_cast<std::size_t>(entry)];
    const TakenOutput taken = TakeOutput(s, entry);
    if (taken == TakenOutput::Refused) {
        looks_ = kSteadyLooks - kRetryLooks;
        return;
    }
    Forget();
    unchanged_ = kNewsLooks;
    if (taken == TakenOutput::Taken) ShowStatus(s, name + " is back, and in use again.");
}

}  // namespace marvolin

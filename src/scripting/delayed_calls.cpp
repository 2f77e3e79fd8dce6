#include "scripting/delayed_calls.h"

#include <algorithm>

namespace marvolin {

void DelayedCalls::Add(std::int32_t milliseconds, int reference) {
    calls_.push_back({now_ + milliseconds, now_, reference});
}

std::optional<int> DelayedCalls::TakeDue() {
    const auto first = std::min_element(calls_.begin(), calls_.end(),
                                        [](const Delayed& a, const Delayed& b) { return a.Due < b.Due; });
    // A call without delay waits for the next look, or a function that calls for itself would never end.
    if (first == calls_.end() || first->Due > now_ || first->Added == now_) return std::nullopt;
    const int reference = first->Reference;
    calls_.erase(first);
    return reference;
}

}  // namespace marvolin

#include "performance/pad/wire_sets.h"

#include <string>

#include "core/errors.h"
#include "core/routines.h"
#include "core/undo/undo_step.h"
#include "parameters/mapping.h"
#include "parameters/wires.h"

namespace marvolin {

namespace {

/// The last character as a number; 0 when it is not a digit.
int LastDigit(std::string_view text) {
    const char last = text.back();
    return last >= '0' && last <= '9' ? last - '0' : 0;
}

void Wire(Session& s, Row row, int channel) {
    auto value = static_cast<std::int16_t>(channel);
    LoopSetChannel(s, row, value, Apply::Yes);
}

}  // namespace

void WireSet(Session& s, std::string_view text) {
    const std::string set = Trim(text);
    const int n = set.empty() ? 0 : LastDigit(set);
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (StartsWith(set, "Groups") && n > 0) {
            Wire(s, row, row / n % kChannels + 1);
        } else if (StartsWith(set, "Alternate") && n > 0) {
            Wire(s, row, row % n + 1);
        } else if (set == "All to 1") {
            Wire(s, row, 1);
        } else if (set == "All to 0") {
            Wire(s, row, 0);
        }
    }
    MapHZAll(s);
    MapPanAll(s);
    MapVolAll(s);
}

void SetChannel_Click(Session& s, std::int16_t entry) {
    if (entry < 0 || static_cast<std::size_t>(entry) >= kWireSets.size()) throw SubscriptError();
    const std::string_view set = kWireSets[static_cast<std::size_t>(entry)];
    const UndoStep step(s, "Wire set " + std::string(set));
    s.SetChannelChoice = entry;
    WireSet(s, set);
}

}  // namespace marvolin

#include "scripting/script_rest.h"

#include <algorithm>

namespace marvolin {

void ScriptRest::Charge(std::int64_t now, std::int64_t taken) {
    // A call pays nothing off while it runs.
    const std::int64_t before = Owed(now - taken);
    end_ = now + std::min(before + taken, std::max({kMostTogether, taken, before}));
}

}  // namespace marvolin

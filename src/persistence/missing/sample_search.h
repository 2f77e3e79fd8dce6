#pragma once
/// \file
/// Looks for files by their names in a folder and all below it, a few entries at a time, so that nothing waits for it.

#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "persistence/missing/missing_sample.h"

namespace marvolin {

/// One search, of all that is there: a deeper file of a name may be the one that was meant. Folders nearer to the first
/// one come first. Links to folders are not followed, and a folder that cannot
/// be read is passed over. A name that differs only in the case of its letters counts when there is none spelled alike.
class SampleSearch {
public:
    /// How long one turn looks, in nanoseconds: with a call of the system that takes long, still less than a tick.
    static constexpr std::int64_t kTurn = 500'000;

    SampleSearch(const std::string& folder, std::vector<std::string> names);

    /// Looks at the next `entries` entries. True when all is seen.
    bool Step(int entries);
    /// Looks on until `clock` says that `most` have passed since the call, both in nanoseconds, and a few entries
    /// longer. True when all is seen.
    bool StepFor(std::int64_t most, const std::function<std::int64_t()>& clock);
    /// What was found so far.
    FoundSamples Found() const;

private:
    bool OpenNext();
    void LookAt(const std::filesystem::directory_entry& entry);

    std::vector<std::string> names_;
    std::deque<std::string> folders_;  ///< still to be read
    std::filesystem::directory_iterator at_;
    FoundSamples found_;
    FoundSamples alike_;  ///< but for the case of their letters
};

}  // namespace marvolin

#pragma once
/// \file
/// What a step changes of the clipboard: a run of clips that gives way to another.

#include <cstddef>
#include <string>
#include <vector>

#include "core/session.h"

namespace marvolin {

/// The clips and their texts, as the clipboard holds them.
struct ClipRun {
    std::vector<LoopTrackSet> Clips;
    std::vector<std::string> Texts;
};

/// Puts clips in the place of others. Clips that the hand has added behind them since stay; those for which they leave
/// no room on the clipboard, the last ones of the run, wait for the time when the step is taken back again.
class ClipSplice {
public:
    /// What turns the clipboard as it is now back into `before`.
    ClipSplice(const ClipRun& before, const ClipBoardState& now);

    bool Empty() const { return other_.Clips.empty() && count_ == 0; }
    /// Exchanges the clips; the splice then turns the clipboard into what it was.
    void Exchange(Session& s);
    /// Whether clips wait, as the last exchange found no room for them.
    bool LacksRoom() const { return !noRoom_.Clips.empty(); }

private:
    std::size_t first_ = 0;  ///< of the clips that are replaced
    std::size_t count_ = 0;
    ClipRun other_;
    ClipRun noRoom_;  ///< the end of the run that is there
};

}  // namespace marvolin

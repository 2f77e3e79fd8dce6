#pragma once
/// \file
/// Kills and full disks at random moments, and what they leave.

#include <cstdint>
#include <functional>
#include <random>
#include <string>

#include "kills/saver.h"

namespace marvolin::kills {

struct Counts {
    int Strikes = 0;  ///< kills, or disks that were nearly full
    /// Those of them that came during a save or a recording. A save of the last state includes the wait until it is
    /// due.
    int Hit = 0;
    int Whole = 0;  ///< left everything whole, and nothing older than what had been reported as saved
    int Lost = 0;   ///< the others, including saves that failed for no reason
};

/// Whether one more is wanted after so many.
using More = std::function<bool(int done)>;
/// So many, and no more.
More UpTo(int count);

/// Saves again and again in a child process, and kills it. `folder` is empty.
Counts KillSaves(const Kind& kind, const std::string& folder, const More& more, std::mt19937& random);
/// Records in a child process, and kills it.
Counts KillRecordings(const std::string& folder, const More& more, std::mt19937& random);

/// Saves on a disk on which a random room is left. `disk` is a small file system of its own, empty.
Counts FillForSaves(const Kind& kind, const std::string& disk, const More& more, std::mt19937& random);
/// Records until such a disk is full.
Counts FillForRecordings(const std::string& disk, const More& more, std::mt19937& random);

/// A small file system in memory at `folder`, for this process alone. False when the machine does not allow it.
bool MountSmallDisk(const std::string& folder, int kilobytes);

}  // namespace marvolin::kills

#pragma once
/// \file
/// The section of a session file that holds the LoopTracks.

#include <string>
#include <vector>

#include "core/files/record_stream.h"
#include "core/session.h"

namespace marvolin {

/// What is asked of the LoopTracks of a file.
struct LoopsAsked {
    clsSwitchRecord Elements;
    bool ForPackage = false;  ///< the samples lie in `Folder`
    std::string Folder;       ///< folder of the file, with its separator
    bool Nearby = true;       ///< samples are looked for also where they were not stored
};

/// Reads the section behind its tag and loads what is asked of it. Rows whose sample is missing keep its place. Adds
/// the names of the samples that no LoopTrack got to `notLoaded`. When the file ends early or is damaged, the
/// LoopTracks before that are loaded, and then its `RuntimeError` is raised.
void ReadLoopTracks(Session& s, RecordReader& file, const LoopsAsked& asked, std::vector<std::string>& notLoaded);

}  // namespace marvolin

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/files/record_stream.h"
#include "core/session.h"

namespace marvolin {

/// Writes the session to a file: of the LoopTracks those that `loops` names, and the sections that `switches` select.
///
/// A name that ends in ".mvp" makes a package: the samples of the loaded LoopTracks are copied beside it; of a
/// link, beside the file behind it.
///
/// The set and the samples are written to files of their own and take their names once they are on the disk. A whole
/// set that had the name is kept with "~" added to it, in place of an older such copy. True when all of it is in place.
/// Failures: "Error Creating File: " and the name when the file cannot be made there or its present file cannot be
/// kept; "Error Saving " and the description of the error for any later failure. After either all files are as they
/// were.
bool SaveSession(Session& s, const std::string& fileName, LoopsSaved loops, const clsSwitchRecord& switches);

/// What of a set is written.
enum class SetContent : std::uint8_t {
    Whole,  ///< what a file holds
    Work,   ///< without what changes while a set is only played and looked at: what sounds, the tab, the device
};
/// Writes the records of a set as a file holds them. Raises `OverflowError` when a path is too long for a file.
void WriteSet(Session& s, RecordWriter& file, LoopsSaved loops, const clsSwitchRecord& switches,
              SetContent content = SetContent::Whole);

/// The same in two parts, for who has the clipboard's records at hand: all before the clipboard, and the rest. `clips`
/// are the records that `WriteClipBoard` writes; they are left out when `switches` do not select them.
void WriteSetBeforeClips(Session& s, RecordWriter& file, LoopsSaved loops, const clsSwitchRecord& switches,
                         SetContent content);
void WriteSetFromClipsOn(RecordWriter& file, const clsSwitchRecord& switches, std::string_view clips);

}  // namespace marvolin

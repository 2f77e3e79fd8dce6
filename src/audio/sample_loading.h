#pragma once
/// \file
/// Putting samples into LoopTracks.

#include <string>
#include <vector>

#include "core/session.h"

namespace marvolin {

/// The rows that a sample for a row reaches.
enum class Reach : std::uint8_t {
    Gang,   ///< row 4: the controlled rows; a row in a band: the band; any other of 0..3: itself. Other rows: none.
    Alone,  ///< the row itself
};

/// Where a sample came from.
enum class SampleOrigin : std::uint8_t {
    Name,       ///< a folder and a name
    Bin,        ///< a bin of the browser
    Palette,    ///< an entry of `HistoryList`
    LoopTrack,  ///< `DropDown` of another LoopTrack
    File,       ///< a file manager
    Clip,       ///< the clipboard
    Session,    ///< a session file, also one that carries the instrument across a change of device
};

/// A sample on its way into LoopTracks.
struct SampleRequest {
    std::string Path;  ///< whole path of the file, spelled as it was chosen
    Row Target = 0;
    Reach Rows = Reach::Gang;
    bool Play = false;  ///< start the rows once all of them are loaded
    SampleOrigin Origin = SampleOrigin::Name;
};

/// Loads a sample into its rows, and then plays them if asked. The only way by which a sample enters a LoopTrack. With
/// `Reach::Gang` the ball of a target 0..3 is highlighted on the sound map first.
/// For each row: an empty path shows "No File Name!!", a missing file "File Doesn't Exist !!", and nothing changes; a
/// file that the service refuses leaves the row empty; the status line names a file that is missing or refused. A
/// failure while setting up shows "Error setting up loaded loop" in the status line. Without a device nothing is loaded
/// and nothing shown. Rows 4 and 5 hold no sample. False when the file was missing or refused.
bool LoadSample(Session& s, const SampleRequest& request);

/// What the status line says when the files of these names were missing or refused: all of them.
std::string NotLoadedText(const std::vector<std::string>& names);

/// `LoadSample` of the file `folder`/`fileName` into `row` alone.
void LoopLoad(Session& s, Row row, const std::string& folder, const std::string& fileName);

/// `LoadSample` of `name` + ".WAV", as `SampleFileName` spells it, into `row` and its gang.
void LoopLoadRows(Session& s, const std::string& folder, const std::string& name, Row row, bool playAfter);

/// File name of a sample that is known by its name alone: `name` + ".WAV", the extension in the letter case of the file
/// in `folder`; ".WAV" comes first, and is also the answer when there is no such file.
std::string SampleFileName(const std::string& folder, const std::string& name);

/// Text shown for the row: the name of its sample, "" when empty.
std::string LoopFileName(const Session& s, Row row);

}  // namespace marvolin

#pragma once
/// \file
/// Samples that were not found when their set was opened. Their rows keep their place: what was asked for of them is
/// saved again as it was read, until something is loaded into them or they are cleared.

#include <string>
#include <unordered_map>
#include <vector>

#include "core/session.h"
#include "persistence/loop_record.h"

namespace marvolin {

/// A row as it was read from a set.
struct MissingSample {
    SavedLoop Loop;              ///< `Index` is the row
    clsSwitchRecord Elements;    ///< what of it is asked for
    std::int16_t Use3D = False;  ///< 3D state under which it was stored
    /// Files of its name that other rows got, as they had asked for another sample.
    std::vector<std::string> OfOthers = {};
};

/// The name of a sample, without its folders. A path that starts with "/" is one of this system, where names may hold
/// "\\" and ":".
std::string NameOfSample(const std::string& path);
/// From now on the row keeps the place of a sample that was not found.
void KeepPlace(Session& s, MissingSample missing);

/// What a file keeps of a row whose sample is missing (`Run[row].Missing` is set): what was asked for as it was read,
/// the rest as it is in the row.
LoopTrackSet SavedWithPlace(const Session& s, Row row);
/// `elements` of `given` were restored in a row. When its sample is missing they belong to what it keeps, so that
/// neither a save nor a later find loses them. The sample itself is no such element.
void KeepRestored(Session& s, const SavedLoop& given, const clsSwitchRecord& elements);

/// Name of the sample that is missing in a row, without its folders; "" when none is.
std::string MissingName(const Session& s, Row row);
/// Those of all rows, each once.
std::vector<std::string> MissingNames(const Session& s);

/// What a row holds, in words: "a.wav is missing; bells", or the name alone.
std::string SampleTold(const Session& s, Row row);
/// The path of what a row holds, below that of what is missing; "" for neither.
std::string SamplePaths(const Session& s, Row row);

/// Paths of samples by their missing names, the better ones first.
using FoundSamples = std::unordered_map<std::string, std::vector<std::string>>;
/// Loads what was found into the rows that wait for it, each row the `BestMatch` of the path it had, with their
/// settings, and starts what was playing, as the set would have done. One step that can be taken back. The status line
/// names what was found and what is still missing. A file that a row got instead of another that asked for it too is
/// not given to that one later either, as long as the row holds it.
void LoadFound(Session& s, const FoundSamples& found);

}  // namespace marvolin

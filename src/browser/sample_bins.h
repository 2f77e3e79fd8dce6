#pragma once
/// \file
/// The three sample bins: folders of samples, side by side.

#include <cstddef>
#include <string>

#include "core/session.h"

namespace marvolin {

/// Text of the box `ClickPlay`.
inline constexpr std::string_view kClickPlayText = "AutoPlay";

/// The folder of a bin as the system knows it, with "/" at its end. A "\" at the end of the path is left out, unless
/// there is a folder whose name ends so.
std::string SearchFolder(const SampleBin& picks);

/// Builds bins and clipboard at first use. The bins start on the folders in "Samples" beside the program, in the order
/// of their names; a bin without one starts on "Samples" itself, or without that on the program's folder.
void InitPicks(Session& s);

/// Rescans a bin: the WAV files of its folder and the shortcuts to such files, by name. A folder that is gone is
/// replaced by the program's folder. A sample that was selected and is still there stays selected. A `bin` outside 0..2
/// is ignored.
void UpdatePickFile(Session& s, int bin);

/// Rescans the bins whose folder has changed since its last scan, and leaves the others alone. Costs next to nothing
/// when nothing has changed. Starts the check of the files, which `CheckPickFiles` carries out.
void LookAtPickFiles(Session& s);
/// Compares the next `count` files of the bins with what is shown of them, and rescans a bin in which one is different:
/// a file that was written in place, or a shortcut whose sample has come or gone. Such changes leave no mark at the
/// folder. True while files remain to be compared.
bool CheckPickFiles(Session& s, std::size_t count);

/// Caption of `PickDir`: the first 10 characters of the folder's last name.
void SetPickDirCaption(Session& s, int bin, const std::string& path);
/// Makes `path` the bin's folder, caption and tool tip, without a rescan; no sample is selected then.
void SetPickDir(Session& s, int bin, const std::string& path);

}  // namespace marvolin

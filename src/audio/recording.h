#pragma once
/// \file
/// Recording of what is heard, and silence.

#include <ctime>
#include <string>

#include "core/session.h"

namespace marvolin {

/// Full path of the folder of the recordings: "Recordings" in the program's folder. It may not exist yet.
std::string RecordingsFolder(const Session& s);

/// Starts a recording, or ends the one that runs. A new one gets its file in `RecordingsFolder`, which is made when it
/// is missing: the name of the set in hand, "marvolin" without one, and the date and time `now`. The status line names
/// it. Reports "Error starting recording in ", the folder, and the reason. An end does not wait for the disk:
/// `WatchRecording` tells when the file is whole.
void ToggleRecording(Session& s, const std::tm& now);

/// Records no more. Does not wait, and tells nothing. Nothing without a recording.
void StopRecording(Session& s);

/// Ends the recording that runs, and waits until its file is whole. `RuntimeError` with the reason and the path when
/// the disk takes no more, or hangs and the waiting is given up. Nothing without a recording.
void FinishRecording(Session& s);

/// Brings what is shown of a recording up to date; for some times a second while `RecordingFile` is set. When the file
/// is whole the status line says how long it is and its whole path. When the disk takes no more the recording ends with
/// one report, and what there is stays. Once frames are missing they show in place of the size.
void WatchRecording(Session& s);

/// Everything is silent within a period, or heard again where it would be by now. The status line says how the sound
/// comes back.
void ToggleSilence(Session& s);

}  // namespace marvolin

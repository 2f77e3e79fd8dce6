#pragma once
/// \file
/// Recording of what is heard, and silence.

#include <ctime>

#include "core/session.h"

namespace marvolin {

/// Starts a recording, or ends the one that runs. A new one gets its file in "Recordings/" of the program's folder,
/// which is made when it is missing: the name of the set in hand, "marvolin" without one, and the date and time `now`.
/// The status line names it. Reports "Error starting recording in ", the folder, and the reason. An end does not wait
/// for the disk: `WatchRecording` tells when the file is whole.
void ToggleRecording(Session& s, const std::tm& now);

/// Ends the recording that runs, and waits until its file is whole. Nothing without one.
void FinishRecording(Session& s);

/// Brings what is shown of a recording up to date; for some times a second while `RecordingFile` is set. When the file
/// is whole the status line says how long it is. When the disk takes no more the recording ends with one report, and
/// what there is stays.
void WatchRecording(Session& s);

/// Everything is silent within a period, or heard again where it would be by now. The status line says how the sound
/// comes back.
void ToggleSilence(Session& s);

}  // namespace marvolin

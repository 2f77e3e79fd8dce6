#pragma once

#include <string>

#include "core/session.h"

namespace marvolin {

/// Reads a session file and applies what `switches` select, section by section. A load that fails halfway leaves
/// applied what it has read, down to the single LoopTrack, list entry and clip. The status line names the samples that
/// could not be loaded; else, when the file's switches are adopted, the file.
///
/// `current` says whether the file becomes the current session of the window title, `adopt` whether its switches become
/// those of the next save; both happen only at the end. True when the file was read to its end. A file that does not
/// exist: false, without a message. A file of another format: "File Format Error on Open in " and the name. Any other
/// failure: "Error Opening " and the description of the error.
bool LoadSession(Session& s, const std::string& fileName, SetAsCurrent current, const clsSwitchRecord& switches,
                 AdoptSwitches adopt);

}  // namespace marvolin

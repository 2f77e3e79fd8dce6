#pragma once

#include <string>

#include "core/session.h"

namespace marvolin {

/// Reads a session file and applies what `switches` ask for, section by section. Nothing is taken back when it fails
/// halfway.
///
/// With `setAsCurrent` the file becomes the current session of the title; with `adoptSwitches` its switches become
/// those of the next save. True when the file was read to its end. A file that is not there: false without a word. A
/// file of another format: "File Format Error on Open in " and the name. Any other failure: "Error Opening " and the
/// description of the error.
bool LoadSession(Session& s, const std::string& fileName, bool setAsCurrent, const clsSwitchRecord& switches,
                 bool adoptSwitches);

}  // namespace marvolin

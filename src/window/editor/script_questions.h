#pragma once
/// \file
/// What the window of scripts asks. Each box waits for its answer, and the set plays on.

#include <cstdint>
#include <string>

#include "core/session.h"

class QWidget;

namespace marvolin {

/// What is to become of a text that is not saved.
enum class Unsaved : std::uint8_t { Save, Discard, Cancel };

/// Asks about the text of this name.
Unsaved AskUnsaved(QWidget& window, const std::string& name);

/// Asks for a file to open, beginning in `folder`; "" when the player cancels.
std::string AskScriptToOpen(Session& s, QWidget& window, const std::string& folder);
/// Asks for the name under which to save, beginning with `name` in `folder`; "" when the player cancels. A name without
/// the ending of scripts gets it.
std::string AskScriptToSave(Session& s, QWidget& window, const std::string& folder, const std::string& name);

}  // namespace marvolin

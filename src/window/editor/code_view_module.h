#pragma once

#include <string>

namespace marvolin {

class CodeViewMaker;

/// The name of the module in the folder of the executable.
inline constexpr const char* kCodeViewModule = "marvolin-editor.so";

/// Loads the module from `folder`; the next time it is there at once. Null, with what is wrong in `error`, when it
/// cannot be loaded; a later try may succeed. It stays loaded until the program ends.
CodeViewMaker* LoadCodeView(const std::string& folder, std::string& error);

}  // namespace marvolin

#pragma once
/// \file
/// Finding out whether a folder is still as it was, without reading it.

#include <string>

namespace marvolin {

/// A text that is the same as long as no entry of `folder` comes, goes or gets another name. A file that is written in
/// place does not change it. "" when the folder cannot be read, and while its last change is so recent that another one
/// might show the same time: such a text says nothing.
std::string FolderStamp(const std::string& folder);

}  // namespace marvolin

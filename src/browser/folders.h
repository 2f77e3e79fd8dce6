#pragma once
/// \file
/// Reading folders of thousands of files without holding up the step clock.

#include <cstdint>
#include <memory>
#include <string>

namespace marvolin {

/// A text that is the same as long as no entry of `folder` comes, goes or gets another name. A file that is written in
/// place does not change it. "" when the folder cannot be read, and while its last change is so recent that another one
/// might show the same time: such a text says nothing.
std::string FolderStamp(const std::string& folder);

/// The entries of a folder, in no order. A folder that cannot be read has none.
class FolderReader {
public:
    explicit FolderReader(const std::string& folder);
    ~FolderReader();
    FolderReader(const FolderReader&) = delete;
    FolderReader& operator=(const FolderReader&) = delete;

    /// The next name, valid until the next call; null at the end.
    const char* Next();
    /// Size of the file `name` of the folder; -1 when it is no file.
    std::int64_t BytesOf(const char* name) const;

private:
    struct Open;
    std::unique_ptr<Open> open_;
};

}  // namespace marvolin

#pragma once
/// \file
/// The files that one save makes.

#include <memory>
#include <string>
#include <vector>

#include "core/files/former_file.h"
#include "core/files/record_stream.h"

namespace marvolin {

/// The file of a set and, in a package, the copies of its samples. All of them are written beside the files that they
/// replace and get their names together at the end; without `PutInPlace` nothing is left of them.
///
/// The set that is replaced stays as a file with "~" added to its name, which that file has before the new set takes
/// the old name. Only a whole set becomes such a copy: one that was cut short replaces none.
class SetFiles {
public:
    /// Begins the set `fileName`. Raises a `RuntimeError` when it could not be put in place: the folder cannot be
    /// written, the name is that of a folder or of a file that must not be written, or the copy of the present set
    /// could not get its name, because that is too long or the name of a folder.
    explicit SetFiles(const std::string& fileName);

    /// The stream to which the set is written. It is there until `PutInPlace` succeeds.
    RecordWriter& Set() { return *set_; }
    /// Copies a sample into the folder of the set, links followed. A copy of the same name that this save has made
    /// before is dropped. A file of that name that has the same content, or is the sample itself, is left as it is.
    void AddSample(const std::string& sample);
    /// Gives all files their names, once they are on the disk. After a failure every name refers to its previous file.
    void PutInPlace();

private:
    std::string path_;  ///< of the set, links followed
    FormerFile former_;
    std::unique_ptr<RecordWriter> set_;
    std::vector<std::unique_ptr<NewFile>> samples_;
};

}  // namespace marvolin

#pragma once
/// \file
/// A temporary folder on the real file system, removed at the end of the test.

#include <string>

namespace marvolin::test {

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Full path of the folder, without a separator at its end.
    const std::string& Path() const { return path_; }
    /// Full path of `name` in it.
    std::string In(const std::string& name) const { return path_ + "/" + name; }
    std::string operator/(const std::string& name) const { return In(name); }
    /// Makes a file of that name and returns its full path.
    std::string Touch(const std::string& name, const std::string& content = "") const;

private:
    std::string path_;
};

}  // namespace marvolin::test

#pragma once
/// \file
/// A temporary folder on the real file system, removed at the end of the test.

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace marvolin::test {

class TempFolder {
public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "marvolin-test-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Full path of the folder, without a separator at its end.
    const std::string& Path() const { return path_; }
    /// Full path of `name` in it.
    std::string In(const std::string& name) const { return path_ + "/" + name; }
    std::string operator/(const std::string& name) const { return In(name); }
    /// Makes a file of that name and returns its full path.
    std::string Touch(const std::string& name, const std::string& content = "") const {
        std::ofstream(In(name), std::ios::binary) << content;
        return In(name);
    }

private:
    std::string path_;
};

}  // namespace marvolin::test

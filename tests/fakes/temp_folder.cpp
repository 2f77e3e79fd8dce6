#include "fakes/temp_folder.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace marvolin::test {

TempFolder::TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "marvolin-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::Touch(const std::string& name, const std::string& content) const {
    std::ofstream(In(name), std::ios::binary) << content;
    return In(name);
}

}  // namespace marvolin::test

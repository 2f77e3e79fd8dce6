#include "fakes/file_bytes.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace marvolin::test {

void WriteBytes(const std::string& path, std::string_view bytes) {
    // A new file: emptying an old one makes some file systems wait for the disk.
    std::filesystem::remove(path);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file) throw std::runtime_error("cannot write " + path);
}

std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace marvolin::test

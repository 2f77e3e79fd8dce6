#include "core/files/sample_files.h"

#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "core/routines.h"

namespace marvolin {

namespace {

constexpr std::size_t kHeader = 12;  // "RIFF", four bytes of length, "WAVE"

bool BeginsAsWave(const std::string& path) {
    std::string head(kHeader, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(head.data(), static_cast<std::streamsize>(head.size()));
    const std::string_view text(head);
    return file && text.starts_with("RIFF") && text.ends_with("WAVE");
}

}  // namespace

bool IsNoSample(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (error || !std::filesystem::exists(status)) return false;
    if (!std::filesystem::is_regular_file(status)) return true;
    return !UpperCase(path).ends_with(".WAV") && !BeginsAsWave(path);
}

std::string FileNameOf(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

}  // namespace marvolin

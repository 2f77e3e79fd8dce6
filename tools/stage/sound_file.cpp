#include "sound_file.h"

#include <fstream>
#include <iterator>
#include <string>

namespace marvolin::stage {

Captured ReadCaptured(const std::filesystem::path& file, std::size_t fromFrame) {
    constexpr std::size_t kHeader = 44;
    constexpr std::size_t kFrameBytes = 4;
    Captured captured;
    std::ifstream in(file, std::ios::binary);
    in.seekg(static_cast<std::streamoff>(kHeader + fromFrame * kFrameBytes));
    if (!in) return captured;
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    const auto number = [&](std::size_t at) {
        const auto low = static_cast<unsigned>(static_cast<unsigned char>(bytes[at]));
        const auto high = static_cast<unsigned>(static_cast<unsigned char>(bytes[at + 1]));
        return static_cast<std::int16_t>(low | high << 8);
    };
    for (std::size_t at = 0; at + kFrameBytes <= bytes.size(); at += kFrameBytes) {
        captured.left.push_back(number(at));
        captured.right.push_back(number(at + 2));
    }
    return captured;
}

}  // namespace marvolin::stage

#include "fakes/lnk_bytes.h"

#include "fakes/file_bytes.h"

namespace marvolin::test {

std::string LnkBytes(const std::string& local, const std::string& relative) {
    Bytes b;
    const int flags = (local.empty() ? 0 : 2) | (relative.empty() ? 0 : 8) | 0x80;
    b.I32(0x4C).Raw(std::string("\x01\x14\x02\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x46", 16));
    b.I32(flags).I32(0x20);
    for (int time = 0; time < 6; ++time) b.I32(0);
    b.I32(0).I32(0).I32(1).I16(0).I16(0).I32(0).I32(0);
    if (!local.empty()) {
        const int volume = 0x11;  // volume record with an empty label
        const int size = 0x1C + volume + static_cast<int>(local.size()) + 1 + 1;
        b.I32(size).I32(0x1C).I32(1).I32(0x1C).I32(0x1C + volume).I32(0).I32(size - 1);
        b.I32(volume).I32(3).I32(0x1234).I32(0x10).U8(0);
        b.Raw(local).U8(0).U8(0);
    }
    if (!relative.empty()) {
        b.I16(static_cast<int>(relative.size()));
        for (const char c : relative) b.U8(static_cast<unsigned char>(c)).U8(0);
    }
    b.I32(0);
    return b.Str();
}

}  // namespace marvolin::test

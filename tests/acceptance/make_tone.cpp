// Writes a second of a pure tone as a mono WAV file, at a fifth of full scale or at so many percent. A whole number of
// Hz makes it repeat without a seam.

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <numbers>
#include <string>

namespace {

constexpr std::uint32_t kRate = 44100;
constexpr int kLoudness = 20;  // percent: four of them together do not clip

void Put(std::string& bytes, std::uint32_t number, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>((number >> (8 * i)) & 0xFF);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3 && argc != 4) {
        std::fprintf(stderr, "usage: make_tone FILE.wav HZ [PERCENT]\n");
        return 2;
    }
    const int hz = std::atoi(argv[2]);
    const double loudest = 32767 * (argc == 4 ? std::atoi(argv[3]) : kLoudness) / 100.0;
    std::string bytes = "RIFF";
    Put(bytes, 36 + 2 * kRate, 4);
    bytes += "WAVEfmt ";
    Put(bytes, 16, 4);
    Put(bytes, 1, 2);
    Put(bytes, 1, 2);
    Put(bytes, kRate, 4);
    Put(bytes, 2 * kRate, 4);
    Put(bytes, 2, 2);
    Put(bytes, 16, 2);
    bytes += "data";
    Put(bytes, 2 * kRate, 4);
    for (std::uint32_t i = 0; i < kRate; ++i) {
        const double value = loudest * std::sin(2 * std::numbers::pi * hz * i / kRate);
        Put(bytes, static_cast<std::uint16_t>(static_cast<std::int16_t>(std::lround(value))), 2);
    }
    std::ofstream out(argv[1], std::ios::binary);
    out << bytes;
    out.close();
    return out ? 0 : 1;
}

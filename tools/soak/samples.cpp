#include "soak/samples.h"

#include <cmath>
#include <cstdint>
#include <fstream>
#include <stdexcept>

namespace marvolin::soak {

namespace {

struct Wave {
    std::uint32_t Rate = 44100;
    std::uint32_t Channels = 2;
    std::uint32_t Bits = 16;
    std::vector<double> Frames;  ///< -1..1, the same in all channels
};

void Put(std::string& bytes, std::uint32_t value, std::uint32_t count) {
    for (std::uint32_t i = 0; i < count; ++i) bytes.push_back(static_cast<char>(value >> (8 * i)));
}

std::string Write(const std::string& path, const Wave& wave) {
    std::string data;
    const double full = std::ldexp(1.0, static_cast<int>(wave.Bits) - 1) - 1;
    for (const double level : wave.Frames) {
        const auto number = static_cast<std::int32_t>(level * full) + (wave.Bits == 8 ? 128 : 0);
        for (std::uint32_t channel = 0; channel < wave.Channels; ++channel)
            Put(data, static_cast<std::uint32_t>(number), wave.Bits / 8);
    }
    const std::uint32_t frame = wave.Channels * wave.Bits / 8;
    std::string file = "RIFF";
    Put(file, static_cast<std::uint32_t>(data.size() + 36), 4);
    file += "WAVEfmt ";
    Put(file, 16, 4);
    Put(file, 1, 2);
    Put(file, wave.Channels, 2);
    Put(file, wave.Rate, 4);
    Put(file, wave.Rate * frame, 4);
    Put(file, frame, 2);
    Put(file, wave.Bits, 2);
    file += "data";
    Put(file, static_cast<std::uint32_t>(data.size()), 4);
    std::ofstream out(path, std::ios::binary);
    out << file << data;
    if (!out.flush()) throw std::runtime_error("cannot write " + path);
    return path;
}

std::vector<double> Tone(std::size_t frames, double wavesAFrame) {
    std::vector<double> tone(frames);
    for (std::size_t i = 0; i < frames; ++i) tone[i] = 0.4 * std::sin(6.2831853 * wavesAFrame * static_cast<double>(i));
    return tone;
}

}  // namespace

std::vector<std::string> WriteSamples(const std::string& folder) {
    constexpr std::size_t kBytes = 120'000;  // of each, so that any of them is as large as any other
    std::vector<std::string> paths;
    int number = 0;
    for (const std::uint32_t rate : {22050U, 44100U, 192000U}) {
        for (const std::uint32_t bits : {8U, 16U, 24U, 32U}) {
            Wave wave{rate, number % 2 == 0 ? 2U : 1U, bits, {}};
            wave.Frames = Tone(kBytes / (wave.Channels * bits / 8), 0.002 + 0.001 * number);
            paths.push_back(Write(folder + "/tone" + std::to_string(++number) + ".wav", wave));
        }
    }
    return paths;
}

std::string WriteClick(const std::string& folder) {
    return Write(folder + "/click.wav", {44100, 2, 16, std::vector<double>(kClickFrames, 0.9)});
}

}  // namespace marvolin::soak

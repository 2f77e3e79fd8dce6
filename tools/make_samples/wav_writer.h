#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "signal.h"

namespace marvolin::samples {

/// The frames as 16-bit numbers, channels interleaved, each rounded to the nearest and limited to -32768..32767.
std::vector<std::int16_t> ToPcm(const Clip& clip);

/// Writes a plain RIFF/WAVE file, PCM 16 bit at kRate. Throws std::runtime_error with the path if the file cannot
/// be written completely.
void WriteWav(const std::filesystem::path& file, const Clip& clip);

}  // namespace marvolin::samples

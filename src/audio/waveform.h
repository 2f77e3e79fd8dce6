#pragma once
/// \file
/// The outline of a loaded sample, as it is drawn.

#include <cstdint>
#include <vector>

#include "core/session.h"

namespace marvolin {

/// Lowest and highest sample of one column, -1..1, over all channels.
struct WaveformColumn {
    float Low = 0;
    float High = 0;
    friend bool operator==(const WaveformColumn&, const WaveformColumn&) = default;
};

/// No limit of bytes: the whole outline at once.
inline constexpr std::int64_t kWholeWaveform = INT64_MAX;

/// The sample of `buffer` in `columns` columns of equal length, read in pieces and not kept: those from column `from`
/// on, at least one, and no further one once `most` bytes have been read. A sample shorter than `columns` frames
/// repeats frames. PCM of 8, 16, 24 or 32 bits; any other gives no columns. Errors of the service rise.
std::vector<WaveformColumn> WaveformPeaks(DirectSoundBuffer& buffer, int columns, int from, std::int64_t most);

/// The outline of the row's sample as it is in memory now, as `WaveformPeaks` makes it; no columns for an empty row, or
/// when the service refuses to read it. `Display::ShowWaveform` is called when it has changed.
std::vector<WaveformColumn> LoopWaveform(const Session& s, Row row, int columns, int from = 0,
                                         std::int64_t most = kWholeWaveform);

}  // namespace marvolin

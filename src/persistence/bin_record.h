#pragma once
/// \file
/// A sample bin in the section "PickLists" of a session file.

#include <optional>
#include <string>

#include "core/files/record_stream.h"
#include "core/session.h"

namespace marvolin {

/// Records of the section. Only the first `kBins` have a bin; the others repeat the last one that has.
inline constexpr int kBinRecords = 9;

struct BinRecord {
    std::string Dir;         ///< full path of the bin's folder
    std::int16_t Dest = 0;   ///< `CodeDestination` of the bin's destination
    bool ClickPlay = false;  ///< the bin starts the LoopTrack into which it loads
};

/// `Dest` for row `index` of `FileDestination`: the row of a LoopTrack as it is, a later row with 252 added.
std::int16_t CodeDestination(std::int16_t index);
/// The row of `FileDestination` for which a stored `Dest` stands, if any. It can lie outside the list.
std::optional<std::int16_t> DecodeDestination(std::int16_t stored);

void WriteBinRecord(RecordWriter& file, const SampleBin& bin);
BinRecord ReadBinRecord(RecordReader& file);

}  // namespace marvolin

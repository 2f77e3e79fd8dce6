#include "persistence/bin_record.h"

#include "browser/destinations.h"

namespace marvolin {

namespace {

constexpr std::int16_t kDestinationCode = 252;
constexpr std::int16_t kLowestCoded = 255;  // a writer begins at 256, a reader here

}  // namespace

std::int16_t CodeDestination(std::int16_t index) {
    return index < kGangDestination ? index : static_cast<std::int16_t>(index + kDestinationCode);
}

std::optional<std::int16_t> DecodeDestination(std::int16_t stored) {
    if (stored >= kLowestCoded) return static_cast<std::int16_t>(stored - kDestinationCode);
    if (stored < kAllDrag) return stored;
    return std::nullopt;
}

void WriteBinRecord(RecordWriter& file, const SampleBin& bin) {
    file.PutString(bin.Folder);
    file.PutInteger(CodeDestination(bin.Destination));
    file.PutBoolean(bin.ClickPlay == 1);
}

BinRecord ReadBinRecord(RecordReader& file) {
    BinRecord record;
    record.Dir = file.GetString();
    record.Dest = file.GetInteger();
    record.ClickPlay = file.GetInteger() != False;
    return record;
}

}  // namespace marvolin

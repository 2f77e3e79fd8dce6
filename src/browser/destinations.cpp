#include "browser/destinations.h"

#include "audio/sample_loading.h"

namespace marvolin {

std::array<std::string, kDestinations> DestinationTexts(const Session& s) {
    std::array<std::string, kDestinations> texts{
        "", "", "", "", "> Gang", "Drg Drp", "Drg Drp (All)", "Distribute (All)", "Gang (All)"};
    for (Row row = 0; row < kLoopTracks; ++row) {
        texts[static_cast<std::size_t>(row)] = std::string(1, RowLetter(row)) + ": " + LoopFileName(s, row);
    }
    return texts;
}

void SetFileDestination(Session& s, int bin, std::int16_t index) {
    s.Bins[bin].Destination = index;
    s.World.Screen.ShowDestinations();
    s.World.Screen.ShowBin(bin);
}

void ChooseDestination(Session& s, int bin, std::int16_t index) {
    if (index < 0 || index >= kDestinations) return;
    if (index < kAllDrag) {
        SetFileDestination(s, bin, index);
        return;
    }
    for (int each = 0; each < kBins; ++each) {
        const int row = index == kAllDistribute ? each : index == kAllGang ? kGangDestination : kDragDestination;
        SetFileDestination(s, each, static_cast<std::int16_t>(row));
    }
}

Colour BinColour(const Session& s, int bin) {
    return s.Bins[bin].Destination == kDragDestination ? Colour{227, 232, 223} : Colour{200, 203, 198};
}

}  // namespace marvolin

#pragma once
/// \file
/// An instrument whose bins look at a folder of their own.

#include <string>
#include <vector>

#include "browser/sample_bins.h"
#include "fakes/file_bytes.h"
#include "fakes/instrument.h"

namespace marvolin::test {

struct Browser : Instrument {
    TempFolder Folder;
    Browser() {
        Desk.Folder = Folder.Path();
        for (SampleBin& bin : s.Bins) bin.Folder = Folder.Path();
    }
    std::vector<std::string> Names(int bin = 0) {
        std::vector<std::string> names;
        for (const BinRow& row : s.Bins[bin].Rows) names.push_back(row.Name);
        return names;
    }
    /// Bin 0 with the samples "one" and "two", loading into LoopTrack `destination`.
    void FillBin(std::int16_t destination) {
        WriteBytes(Folder / "one.wav", "");
        WriteBytes(Folder / "two.WAV", "");
        UpdatePickFile(s, 0);
        s.Bins[0].Destination = destination;
        Screen.Log.clear();
    }
};

}  // namespace marvolin::test

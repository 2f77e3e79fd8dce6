#pragma once
/// \file
/// An instrument whose last state is kept, with samples and sets in the program's folder, and time by hand.

#include <optional>
#include <string>

#include "persistence/kept/last_state.h"
#include "persistence/stored_instrument.h"

namespace marvolin::test {

struct KeptRig : StoredInstrument {
    /// Samples "a.wav" to "d.wav" lie in the folder.
    KeptRig();

    bool Save(const std::string& name);
    /// Lets time pass, a second at a time; what is written then is on the disk.
    void Pass(int seconds);
    std::string Kept() const { return Folder / std::string(kLastSessionFile); }
    /// The volume of LoopTrack A in a set; nothing when it does not open whole.
    static std::optional<std::int16_t> VolumeIn(const std::string& path);
};

}  // namespace marvolin::test

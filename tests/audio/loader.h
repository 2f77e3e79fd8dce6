#pragma once
/// \file
/// An instrument with a folder of samples.

#include <string>

#include "audio/sample_loading.h"
#include "fakes/instrument.h"
#include "fakes/temp_folder.h"

namespace marvolin::test {

struct Loader : Instrument {
    TempFolder Folder;
    /// Makes a file that the service takes for `seconds` of sound; its full path.
    std::string Make(const std::string& name, double seconds = 1) {
        FakeSample sample;
        sample.Bytes.assign(static_cast<std::size_t>(seconds * 44100) * 4, 0);
        const std::string path = Folder.Touch(name);
        Sound.Samples[path] = sample;
        return path;
    }
    void Load(Row row, const std::string& name) { LoopLoad(s, row, Folder.Path(), name); }
};

}  // namespace marvolin::test

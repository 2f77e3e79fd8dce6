#pragma once
/// \file
/// An instrument on fakes, as most tests use it.

#include <memory>
#include <string>

#include "core/session.h"
#include "fakes/fake_display.h"
#include "fakes/fake_services.h"

namespace marvolin::test {

/// A session on fakes, ready to play: a device is open, and operations on row 4 reach the controlled rows.
struct Instrument : FakeServices {
    FakeDisplay Screen;
    Session s{For(Screen)};

    Instrument();
    ~Instrument();

    /// Puts a sample into a row without going through the loader: one second, 44100 Hz, 16 bit, stereo.
    FakeSound::Buffer& Fill(Row row, const std::string& path = "/samples/one.WAV");
    FakeSound::Buffer& Buffer(Row row);
    /// Name of the row's buffer in the log of the sound service.
    std::string Name(Row row);
    void Select(Row row, bool on = true);
    /// Makes rows `first`..`last` a band.
    void MakeBand(std::int16_t band, Row first, Row last);
};

}  // namespace marvolin::test

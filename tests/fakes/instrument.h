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

    Instrument() {
        s.DX = std::make_unique<FakeDirectX>(Sound);
        s.DS = s.DX->DirectSoundCreate("guid1");
        s.DSReady = true;
        s.GangReady = true;
        Sound.Log.clear();
    }

    /// Puts a sample into a row without going through the loader: one second, 44100 Hz, 16 bit, stereo.
    FakeSound::Buffer& Fill(Row row, const std::string& path = "/samples/one.WAV") {
        auto buffer = s.DS->CreateSoundBufferFromFile(path, s.Use3D ? buffer_flags::kSample3D : buffer_flags::kSample);
        LoopTrackSet& set = s.Set[row];
        LoopTrackRun& run = s.Run[row];
        set.FileName = path;
        set.SampleRate = buffer->GetFrequency();
        set.BufferBytes = buffer->GetCaps().BufferBytes;
        set.AvgBytesPerSec = buffer->GetFormat().AvgBytesPerSec;
        set.Length = static_cast<double>(set.BufferBytes) / set.AvgBytesPerSec;
        if (s.Use3D) run.Buffer3D = buffer->GetDirectSound3dBuffer();
        run.Buffer = std::move(buffer);
        run.Loaded = True;
        Sound.Log.clear();
        return Buffer(row);
    }
    FakeSound::Buffer& Buffer(Row row) { return dynamic_cast<FakeSound::Buffer&>(*s.Run[row].Buffer); }
    /// Name of the row's buffer in the log of the sound service.
    std::string Name(Row row) { return Buffer(row).Name(); }
    void Select(Row row, bool on = true) { s.Set[row].Selected = ToBoolean(on); }
    /// Makes rows `first`..`last` a band.
    void MakeBand(std::int16_t band, Row first, Row last) {
        s.BandTable[band].First = first;
        s.BandTable[band].Last = last;
        for (Row row = first; row <= last; ++row) {
            s.Run[row].InBand = True;
            s.Run[row].Band = band;
        }
    }
};

}  // namespace marvolin::test

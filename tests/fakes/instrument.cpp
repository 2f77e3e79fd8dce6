#include "fakes/instrument.h"

namespace marvolin::test {

Instrument::Instrument() {
    s.DX = std::make_unique<FakeDirectX>(Sound);
    s.DS = s.DX->DirectSoundCreate("guid1");
    s.DSReady = true;
    s.GangReady = true;
    Sound.Log.clear();
}

Instrument::~Instrument() = default;

FakeSound::Buffer& Instrument::Fill(Row row, const std::string& path) {
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

FakeSound::Buffer& Instrument::Buffer(Row row) { return dynamic_cast<FakeSound::Buffer&>(*s.Run[row].Buffer); }

std::string Instrument::Name(Row row) { return Buffer(row).Name(); }

void Instrument::Select(Row row, bool on) { s.Set[row].Selected = ToBoolean(on); }

void Instrument::MakeBand(std::int16_t band, Row first, Row last) {
    s.BandTable[band].First = first;
    s.BandTable[band].Last = last;
    for (Row row = first; row <= last; ++row) {
        s.Run[row].InBand = True;
        s.Run[row].Band = band;
    }
}

}  // namespace marvolin::test

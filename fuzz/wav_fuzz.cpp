/// \file
/// Any bytes as a sample: on the real sound service it is loaded into LoopTracks, drawn, played and reversed, and
/// loaded for 3D sound.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "audio/loop_clearing.h"
#include "audio/openal/sound.h"
#include "audio/reverse.h"
#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "audio/waveform.h"
#include "core/errors.h"
#include "fakes/fake_display.h"
#include "fakes/fake_services.h"
#include "memory_file.h"
#include "time_limit.h"

namespace {

using namespace marvolin;

/// Of the processor, sanitizers included.
constexpr int kMostSeconds = 10;
constexpr int kPeriod = 128;  // frames
constexpr int kColumns = 40;

/// An instrument whose sound is rendered by hand.
struct Rig : test::FakeServices {
    LoopbackRenderer Renderer;
    test::FakeDisplay Screen;
    Session s{For(Screen)};
    Rig() {
        s.DX = Renderer.Root();
        s.DS = s.DX->DirectSoundCreate("");
        s.DSReady = true;
        s.GangReady = true;
    }
    void Render() {
        std::array<std::int16_t, 2 * std::size_t{kPeriod}> sound{};
        for (int period = 0; period < 2; ++period) Renderer.Render(sound.data(), kPeriod);
    }
    void Load(Row row, const std::string& path) { LoadSample(s, {.Path = path, .Target = row, .Rows = Reach::Alone}); }
    void Forget() {
        for (Row row = 0; row < kLoopTracks; ++row) LoopClear(s, row);
        Render();
        Screen.Log.clear();
        Desk.Boxes.clear();
        s.StatusText.clear();
    }
};

/// What a loaded sample is at the most: it never takes more memory than its file, and its length is a number.
void CheckLoaded(const Session& s, Row row, std::size_t size) {
    const LoopTrackSet& set = s.Set[row];
    const bool right = set.BufferBytes > 0 && static_cast<std::size_t>(set.BufferBytes) <= size && set.Length > 0 &&
                       set.Length <= static_cast<double>(size) / 100 && set.SampleRate >= 100;
    if (!right) std::abort();
}

void CheckOutline(const Session& s, Row row) {
    const std::vector<WaveformColumn> columns = LoopWaveform(s, row, kColumns);
    if (columns.size() != kColumns) std::abort();
    for (const WaveformColumn& column : columns) {
        if (!(column.Low >= -1 && column.Low <= column.High && column.High <= 1)) std::abort();
    }
}

/// The bytes of the row's sample.
std::vector<std::uint8_t> BytesOf(const Session& s, Row row) {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(s.Set[row].BufferBytes));
    s.Run[row].Buffer->ReadBuffer(0, bytes);
    return bytes;
}

void PlayAndReverse(Rig& i, std::size_t size) {
    i.s.Set[0].PlayMode = kLoop;
    LoopPlay(i.s, 0, true);
    i.Render();
    CheckOutline(i.s, 0);
    const std::vector<std::uint8_t> before = BytesOf(i.s, 0);
    LoopReverse(i.s, 0);
    i.Render();
    LoopReverse(i.s, 0);
    i.Render();
    if (BytesOf(i.s, 0) != before) std::abort();
    CheckLoaded(i.s, 0, size);
}

/// The same file for 3D sound is accepted as well, or refused as well.
void LoadForSpace(Rig& i, const std::string& path, bool accepted) {
    try {
        const auto buffer = i.s.DS->CreateSoundBufferFromFile(path, buffer_flags::kSample3D);
        if (!accepted) std::abort();
        buffer->Play(1);
        i.Render();
    } catch (const SoundError&) {
        if (accepted) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Rig i;
    const fuzz::TimeLimit limit(kMostSeconds);
    const fuzz::MemoryFile file(data, size, "fuzz.wav");
    i.Load(0, file.Path());
    const bool accepted = i.s.Run[0].Loaded != False;
    if (accepted) {
        CheckLoaded(i.s, 0, size);
        i.Load(1, file.Path());
        if (i.s.Run[1].Loaded == False) std::abort();
        PlayAndReverse(i, size);
    } else if (i.s.StatusText.empty() && i.Desk.Boxes.empty()) {
        std::abort();  // a refusal is told
    }
    LoadForSpace(i, file.Path(), accepted);
    i.Forget();
    return 0;
}

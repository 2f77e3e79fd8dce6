#pragma once
/// \file
/// An instrument with the real sound service, rendered to memory, and fakes for everything else.

#include <cstdint>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "audio/device.h"
#include "audio/loop_clearing.h"
#include "audio/openal/sound.h"
#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "audio/wave_bytes.h"
#include "fakes/fake_display.h"
#include "fakes/fake_services.h"
#include "performance/map/sound_map.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/session_file_store.h"

namespace marvolin::test {

/// Mean levels of the two sides of the output.
struct Sides {
    double Left = 0;
    double Right = 0;
};

struct HeardInstrument : FakeServices {
    LoopbackRenderer Renderer;
    SampleFolder Folder;
    FakeDisplay Screen;
    SessionFileStore Files;
    Session s{For(Screen, Files)};

    HeardInstrument() {
        Desk.TempFile = Folder.Path("VBN1.tmp");
        s.World.CreateDirectX7 = [this] { return Renderer.Root(); };
        s.DX = s.World.CreateDirectX7();
        InitAudioDriversList(s);
        s.Driver = 0;
        s.GangReady = true;
        InitDirectSound(s);
        PadGeometryInit(s, 4500, 4500);
        PadListInit(s);
        PadTablesInit(s);
        MapInit(s);
        SetMapSize(s, 10);
    }
    /// Loads a tenth of a second at constant levels into a row, and loops it.
    void Sound(Row row, int level) { Sound(row, std::vector<std::int32_t>(4410, level), 1); }
    void Sound(Row row, int left, int right) {
        std::vector<std::int32_t> numbers;
        for (int i = 0; i < 4410; ++i) numbers.insert(numbers.end(), {left, right});
        Sound(row, numbers, 2);
    }
    void Sound(Row row, const std::vector<std::int32_t>& numbers, int channels) {
        Wave wave;
        wave.Channels = channels;
        wave.Data = Pcm(numbers, 16);
        const std::string name = "loop" + std::to_string(row) + ".wav";
        Folder.Write(name, WaveBytes(wave));
        LoopLoad(s, row, Folder.Path(""), name);
        LoopPlay(s, row, true);
    }
    std::vector<std::int16_t> Render(int frames) {
        std::vector<std::int16_t> out(static_cast<std::size_t>(2 * frames));
        Renderer.Render(out.data(), frames);
        return out;
    }
    /// The output after the last change has taken effect.
    Sides Heard() {
        Render(2048);
        const std::vector<std::int16_t> out = Render(1024);
        Sides sum;
        for (std::size_t i = 0; i < out.size(); i += 2) {
            sum.Left += out[i];
            sum.Right += out[i + 1];
        }
        return {sum.Left / 1024, sum.Right / 1024};
    }
    /// Moves a ball to a place in map units and applies it.
    void Place(int ball, double x, double y) {
        PosScaled(s, x, y, ball, s.MapRange, {.Absolute = true, .Apply = true});
    }
    void Silence() {
        for (Row row = 0; row < kLoopTracks; ++row) LoopClear(s, row);
    }
};

}  // namespace marvolin::test

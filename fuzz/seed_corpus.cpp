/// \file
/// Writes the first inputs of the fuzz targets: `seed_corpus session FOLDER`, and so with `wav`, `shortcut` and
/// `script`.

#include <filesystem>
#include <string>

#include "audio/wave_bytes.h"
#include "fakes/file_bytes.h"
#include "fakes/lnk_bytes.h"
#include "persistence/golden.h"

namespace {

using namespace marvolin::test;

void SeedSessions(const std::string& folder) {
    const std::string whole = GoldenSession("/srv");
    WriteBytes(folder + "/whole.mvn", whole);
    for (const std::size_t part : {20U, 50U, 400U, 1000U, 2000U, 3000U}) {
        WriteBytes(folder + "/cut" + std::to_string(part), whole.substr(0, part));
    }
    for (const bool on : {false, true}) {
        Bytes b;
        PutHeader(b);
        PutSwitches(b, on ? "" : "all");
        PutThreeD(b, on);
        GoldenLoop loop;
        loop.NSteps = 32000;
        loop.StepDuration = 0;
        loop.Channel = 255;
        loop.Pattern = 32000;
        PutLoops(b, {loop, loop}, on);
        WriteBytes(folder + (on ? "/wild3d" : "/wild"), b.TagText("END").Str());
    }
}

void SeedWaves(const std::string& folder) {
    const auto write = [&](const std::string& name, const Wave& wave) {
        const ByteList bytes = WaveBytes(wave);
        WriteBytes(folder + "/" + name, std::string(bytes.begin(), bytes.end()));
    };
    for (const int bits : {8, 16, 24, 32}) {
        for (const int channels : {1, 2}) {
            Wave wave;
            wave.Bits = bits;
            wave.Channels = channels;
            wave.Data = Pcm({0, 90, -90, 127, -128, 1, -1, 30, 60, 90, 120, 90, 60, 30, 0, -30}, bits);
            const std::string name = std::to_string(bits) + "bits" + std::to_string(channels);
            write(name, wave);
            wave.Extensible = true;
            wave.Rate = bits == 8 ? 100 : 1'000'000;
            write(name + "extensible", wave);
        }
    }
    Wave wave;
    wave.Data = Pcm({1, 2, 3, 4}, 16);
    wave.DataSize = 4000;
    write("long", wave);
    wave.DataSize = {};
    wave.Tag = 3;
    write("float", wave);
    wave.Tag = 1;
    wave.Container = "RIFX";
    write("swapped", wave);
}

void SeedShortcuts(const std::string& folder) {
    WriteBytes(folder + "/both", LnkBytes("C:\\tmp\\Kick.wav", "..\\Kick.wav"));
    WriteBytes(folder + "/local", LnkBytes("C:\\etc\\hostname", ""));
    WriteBytes(folder + "/relative", LnkBytes("", ".\\x.wav"));
    WriteBytes(folder + "/none", LnkBytes("", ""));
    WriteBytes(folder + "/cut", LnkBytes("C:\\tmp\\Kick.wav", "..\\Kick.wav").substr(0, 90));
}

void SeedScripts(const std::string& folder) {
    int number = 0;
    for (const char* text :
         {"function OnVolChange(row, vol) marvolin.set_pan(row - 1, vol // 2) end",
          "function OnClock(ms, part, seconds) for row = 0, 3 do marvolin.set_volume(row, seconds) end end",
          "function OnPanScroll(...) print(select('#', ...), ...) end  local t = {3, 1, 2} table.sort(t)",
          "while true do pcall(function() while true do end end) end",
          "local t = {} while true do t[#t + 1] = ('x'):rep(1000) end",
          "print(('key = value'):gsub('(%w+)%s*=%s*(%w+)', '%2 = %1'), ('a(b)c'):match('%b()'), ('x'):find('[^%a]'))",
          "local f = coroutine.wrap(function(a) local b = coroutine.yield(a) error(b) end) f(1) pcall(f, {})",
          "setmetatable(_G, {__index = function(t, k) return marvolin[k] end}) volume('A') select_group('All')",
          "marvolin.after(0, function() marvolin.load_set('x') end) marvolin.clear('Z') marvolin.stop_script()",
          "local t = setmetatable({}, {__close = function() error() end}) do local x <close> = t end goto a ::a::",
          "marvolin.play_all() marvolin.set_pattern('Z', 'pan', 1, -500) marvolin.set_place('A', 1, 1) "
          "marvolin.set_pad_ball(1, -1) marvolin.set_wires('Groups of 2') marvolin.fade_to('Z', 100)",
          "x = = 1", "return 1", "((((", "\"\\", "--[==["}) {
        WriteBytes(folder + "/script" + std::to_string(number++), text);
    }
    WriteBytes(folder + "/binary", std::string("\x1bLua\x54\0\x19\x93\r\n\x1a\n", 12));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 1;
    const std::string what = argv[1];
    std::filesystem::create_directories(argv[2]);
    if (what == "session") {
        SeedSessions(argv[2]);
    } else if (what == "wav") {
        SeedWaves(argv[2]);
    } else if (what == "shortcut") {
        SeedShortcuts(argv[2]);
    } else if (what == "script") {
        SeedScripts(argv[2]);
    } else {
        return 1;
    }
    return 0;
}

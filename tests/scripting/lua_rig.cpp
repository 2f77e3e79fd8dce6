#include "scripting/lua_rig.h"

#include <utility>

#include "performance/map/sound_map.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"

namespace marvolin::test {

LuaRig::LuaRig(const LuaRigParts& parts)
    : Engine({.Clock = parts.Clock ? parts.Clock : [this] { return Now += Look; },
              .Print = parts.Print ? parts.Print : [this](std::string_view line) { Printed.emplace_back(line); },
              .Ended = parts.Ended}),
      s(Scripted(parts.Screen != nullptr ? *parts.Screen : Screen)) {
    Engine.Attach(s);
    s.DX = std::make_unique<FakeDirectX>(Sound);
    s.DS = s.DX->DirectSoundCreate("guid1");
    s.DSReady = true;
    s.GangReady = true;
    PadGeometryInit(s, 4500, 4500);
    PadTablesInit(s);
    MapInit(s);
    for (const auto& [row, path] : {std::pair<Row, std::string>{0, "/samples/one.WAV"}, {1, "/samples/two.WAV"}}) {
        if (parts.Sample != nullptr) Sound.Samples.emplace(path, *parts.Sample);
        Fill(row, path);
    }
    s.StatusText.clear();
}

LuaRig::~LuaRig() = default;

Services LuaRig::Scripted(Display& screen) {
    return {.Screen = screen,
            .Desk = Desk,
            .Forms = Forms,
            .Chance = Chance,
            .Timers = Timers,
            .Scripts = Host,
            .Store = Store,
            .CreateDirectX7 = [this] { return std::make_unique<FakeDirectX>(Sound); },
            .CreateDirectInput = [this] { return std::make_unique<FakeInput>(Stick); }};
}

std::string LuaRig::Prints(const std::string& text) {
    Printed.clear();
    Desk.Boxes.clear();
    Run(text);
    if (!Desk.Boxes.empty()) return Box();
    std::string all;
    for (const std::string& line : Printed) all += (all.empty() ? "" : "\n") + line;
    return all;
}

std::string LuaRig::Box() const {
    const std::string text = Desk.LastBox();
    const std::string start = "Error in code for ";
    return text.starts_with(start) ? text.substr(start.size()) : text;
}

void LuaRig::Fill(Row row, const std::string& path) {
    auto buffer = s.DS->CreateSoundBufferFromFile(path, buffer_flags::kSample);
    LoopTrackSet& set = s.Set[row];
    set.FileName = path;
    set.SampleRate = buffer->GetFrequency();
    set.BufferBytes = buffer->GetCaps().BufferBytes;
    set.AvgBytesPerSec = buffer->GetFormat().AvgBytesPerSec;
    set.Length = static_cast<double>(set.BufferBytes) / set.AvgBytesPerSec;
    s.Run[row].Buffer = std::move(buffer);
    s.Run[row].Loaded = True;
    Sound.Log.clear();
}

void LuaRig::Pass(std::int32_t milliseconds) {
    for (std::int32_t at = 0; at < milliseconds; at += 10) {
        Now += 10'000'000;
        const std::vector<FakeTimers::Timer*> timers = Timers.Live;
        for (FakeTimers::Timer* timer : timers) {
            if (timer->Enabled && timer->Interval == 10) timer->OnTick(10);
        }
    }
}

}  // namespace marvolin::test

#include "demo.h"

#include <array>
#include <filesystem>
#include <span>
#include <system_error>

#include "audio/play_modes.h"
#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "core/files/paths.h"
#include "headless_world.h"
#include "parameters/fades.h"
#include "parameters/position.h"
#include "parameters/setters.h"
#include "parameters/wires.h"

namespace marvolin::demo {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kEighth = 25;   // 1/100 s at 120 beats a minute
constexpr double kFadeStep = 1.5;      // `Vol` units per 10 ms: a fade of three seconds
constexpr std::int16_t kTwoBars = 16;  // steps of an eighth

/// A LoopTrack of the demo. A pattern with fewer values than steps repeats; an empty one stays at its default.
struct Part {
    const char* Folder;
    const char* Sample;
    std::int16_t PlayMode;
    std::int16_t Vol;
    std::int16_t Pan;
    std::int16_t Channel;
    float X, Y;  ///< on the sound map, the listener in the middle
    std::span<const std::int16_t> VolPattern;
    std::span<const std::int16_t> HzPattern;
    std::span<const std::int16_t> PanPattern;
};

// The bass restarts the first note of its loop, a low D, at every step; the pitches form a line over the harmony of the
// chords: a bar of D minor, half a bar of B flat, half a bar of C.
constexpr std::array<std::int16_t, kTwoBars> kBassPitches{1000, 1000, 2000, 1000, 749, 1000, 891,  1189,
                                                          794,  794,  1587, 794,  891, 891,  1782, 1122};
constexpr std::array<std::int16_t, 4> kBassAccents{500, 420, 470, 430};
// The chords pulse in eighths and move from side to side over the two bars.
constexpr std::array<std::int16_t, 8> kChordGate{500, 330, 440, 360, 500, 300, 470, 400};
constexpr std::array<std::int16_t, kTwoBars> kChordSway{500, 460, 420, 390, 380, 390, 420, 460,
                                                        500, 540, 580, 610, 620, 610, 580, 540};

// A, the beat, remains when the others have faded.
constexpr std::array<Part, kLoopTracks> kParts{{
    {"Beats", "Beat 120 straight", kLoop, 490, 500, 1, 0.0F, 0.6F, {}, {}, {}},
    {"Bass", "Bass pulse D", kDrum, 480, 500, 2, -0.5F, 0.3F, kBassAccents, kBassPitches, {}},
    {"Chords", "Chords slow wash", kTrack, 480, 500, 3, 0.7F, 0.8F, kChordGate, {}, kChordSway},
    {"Tones", "Tone bell arp", kLoop, 460, 530, 4, -0.8F, 0.9F, {}, {}, {}},
}};

void FillPattern(LoopTrackSet& set, int patternRow, std::span<const std::int16_t> values) {
    if (values.empty()) return;
    for (int step = 0; step < kTwoBars; ++step) {
        set.Pattern[patternRow][step] = values[static_cast<std::size_t>(step) % values.size()];
    }
}

void SetUp(Session& s, Row row, const Part& part, const std::string& samples) {
    LoopLoad(s, row, JoinPath(samples, part.Folder), std::string(part.Sample) + ".wav");
    LoopSetPlayMode(s, row, part.PlayMode, false);
    LoopVolChangeGang(s, row, part.Vol, UpdateDisplay::Yes);
    LoopPanChangeGang(s, row, part.Pan);
    LoopSetChannelGang(s, row, part.Channel, Apply::Yes);
    PositionSet(s, row, part.X, part.Y, {.Apply = true, .StoreBall = true});
    LoopTrackSet& set = s.Set[row];
    set.StepDuration = kEighth;
    set.NSteps = kTwoBars - 1;
    FillPattern(set, kVolPattern, part.VolPattern);
    FillPattern(set, kHzPattern, part.HzPattern);
    FillPattern(set, kPanPattern, part.PanPattern);
}

}  // namespace

std::string WriteDemo(const std::string& programFolder) {
    const std::string demo = JoinPath(programFolder, kDemoFile);
    const std::string disabled = JoinPath(programFolder, kDisabledDemoFile);
    const std::string& target = !FileExists(demo) && FileExists(disabled) ? disabled : demo;

    headless::World world(programFolder);
    Session& s = world.s;
    if (!world.Started) return world.Desk.Boxes.empty() ? "the instrument does not start" : world.Desk.Boxes.front();
    for (Row row = 0; row < kLoopTracks; ++row) {
        SetUp(s, row, kParts[static_cast<std::size_t>(row)], JoinPath(programFolder, "Samples"));
    }
    SetFadeFactor(s, kFadeStep);
    PlayAll(s);
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Run[row].Playing == False) return std::string("LoopTrack ") + RowLetter(row) + " does not play";
        // The package may be moved, so paths of the machine that builds it are useless in it.
        s.History[row].clear();
    }

    std::error_code none;
    fs::remove(target, none);  // an older demo is no session of the player's that needs a backup
    if (!world.Store.SaveSession(s, target, LoopsSaved::All, AllSwitches())) {
        return world.Desk.Boxes.empty() ? "the demo was not saved" : world.Desk.Boxes.back();
    }
    return world.Desk.Boxes.empty() ? "" : world.Desk.Boxes.back();
}

}  // namespace marvolin::demo

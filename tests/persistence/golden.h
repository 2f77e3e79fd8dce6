#pragma once
/// \file
/// Session files put together byte by byte, independently of the writer.

#include <array>
#include <string>
#include <vector>

#include "fakes/file_bytes.h"

namespace marvolin::test {

/// A LoopTrack for a file; the values differ from every default.
struct GoldenLoop {
    int Index = 0;
    std::string FileName;
    int Hz = 1234;
    int SampleRate = 48000;
    int Vol = 321;
    int Pan = 654;
    int Selected = -1;
    int Thinnable = 0;
    int StepDuration = 25;
    int Swing = 3;
    int BeatStart = 50;
    int BufferBytes = 176400;
    double Length = 1.0;
    int AvgBytesPerSec = 176400;
    int PlayMode = 2;
    int NSteps = 7;
    int Pattern = 100;  ///< element k of pattern row r is this + 100 r + k
    float PositionX = 0.25F;
    float PositionY = -0.5F;
    unsigned Channel = 6;
    int WasPlaying = -1;
};

inline void PutRecord(Bytes& b, const GoldenLoop& loop) {
    b.Text(loop.FileName).I16(loop.Hz).I32(loop.SampleRate).I16(loop.Vol).I16(loop.Pan);
    b.I16(loop.Selected).I16(loop.Thinnable).I32(loop.StepDuration).I32(loop.Swing).I32(loop.BeatStart);
    b.I32(loop.BufferBytes).F64(loop.Length).I32(loop.AvgBytesPerSec).I16(loop.PlayMode).I16(loop.NSteps);
    for (int row = 0; row < 3; ++row) {
        for (int k = 0; k < 33; ++k) b.I16(loop.Pattern + 100 * row + k);
    }
    b.F32(loop.PositionX).F32(loop.PositionY).U8(loop.Channel);
}

inline void PutLoop(Bytes& b, const GoldenLoop& loop) {
    b.I16(loop.Index);
    PutRecord(b, loop);
    b.I16(loop.WasPlaying);
}

inline void PutHeader(Bytes& b, int number = 12) {
    b.Text("Marvolin File Format (C) K. Venner, 2000 v0.5f").I16(number);
}

inline constexpr std::array<const char*, 16> kGoldenSwitches{
    "LoopTrack",  "Freq",      "FreqPattern", "Vol",    "VolPattern", "Pan",       "PanPattern", "Position",
    "CrossFader", "PickLists", "General",     "ThreeD", "Bands",      "PlayState", "ClipBoard",  "HistoryLists"};

/// The switch table; `off` names a switch that is off, or all of them.
inline void PutSwitches(Bytes& b, const std::string& off = "") {
    b.TagI32(16);
    for (const char* name : kGoldenSwitches) b.TagText(name).TagBool(off != "all" && off != name);
}

inline void PutSettings(Bytes& b) {
    b.TagText("Settings").TagI32(27);
    b.TagText("Limit").TagText("3").TagText("Restore").TagI16(0).TagText("NDevices").TagI16(3);
    b.TagText("DeviceNum").TagI16(1);
    b.TagText("JoyFactor 0").TagI16(600).TagText("JoyFactor 1").TagI16(700).TagText("JoyFactor 2").TagI16(800);
    b.TagText("JoyRelative 0").TagI16(1).TagText("JoyRelative 1").TagI16(0);
    for (int i = 0; i < 5; ++i) b.TagText("Button " + std::to_string(i)).TagI16(i + 1);
    b.TagText("Axis 0").TagI16(4).TagText("Axis 1").TagI16(5);
    for (int i = 0; i < 4; ++i) b.TagText("FadeFunc " + std::to_string(i)).TagI16(i % 3 + 1);
    b.TagText("FadeFactor").TagF64(0.5).TagText("TopTab").TagI16(2).TagText("DialAxis").TagI16(0);
    b.TagText("PositionUpdate 0").TagI16(0).TagText("PositionUpdate 1").TagI16(1);
    b.TagText("PositionUpdate 2").TagI16(1).TagText("TimingRes").TagI16(20);
}

inline void PutThreeD(Bytes& b, bool on = false, double mapSize = 4.0) {
    b.TagText("ThreeD").I16(on ? -1 : 0).F32(on ? 2.5F : 0.0F).F64(mapSize);
}

inline void PutPickLists(Bytes& b, const std::array<std::string, 3>& folders) {
    b.TagText("PickLists");
    constexpr std::array<int, 3> kDestinations{2, 256, 257};
    for (int record = 0; record < 9; ++record) {
        const std::size_t bin = record < 3 ? static_cast<std::size_t>(record) : 2;
        b.Text(folders[bin]).I16(kDestinations[bin]).I16(bin == 1 ? 0 : -1);
    }
}

inline void PutLoops(Bytes& b, const std::vector<GoldenLoop>& loops, bool use3D = false) {
    b.TagText("LoopsV1").I16(static_cast<int>(loops.size())).I16(use3D ? -1 : 0);
    for (const GoldenLoop& loop : loops) PutLoop(b, loop);
}

inline void PutHistory(Bytes& b) {
    b.TagText("History").I16(2).I16(0).I16(2).TagText("/h/new.wav").TagText("/h/old.wav").I16(3).I16(0);
}

inline void PutBands(Bytes& b) {
    b.TagText("Bands").I16(0).I16(3).I16(0).I16(0).I16(1).I16(2).I16(0).I16(-1);
    for (int band = 2; band < 6; ++band) b.I16(5).I16(3).I16(0).I16(0);
}

inline void PutClips(Bytes& b, const std::vector<GoldenLoop>& clips) {
    b.TagText("ClipBoard").I16(static_cast<int>(clips.size()));
    for (const GoldenLoop& clip : clips) PutRecord(b, clip);
}

/// A whole session with four LoopTracks, of which B is empty, and one clip. Samples and bins lie in `folder`.
inline std::string GoldenSession(const std::string& folder, const std::string& switchOff = "") {
    Bytes b;
    PutHeader(b);
    PutSwitches(b, switchOff);
    PutSettings(b);
    PutThreeD(b);
    PutPickLists(b, {folder, folder, folder});
    std::vector<GoldenLoop> loops(4);
    for (int i = 0; i < 4; ++i) {
        GoldenLoop& loop = loops[static_cast<std::size_t>(i)];
        loop.Index = i;
        loop.Hz += i;
        loop.Channel = static_cast<unsigned>(4 - i);
        if (i != 1) loop.FileName = folder + "/" + static_cast<char>('a' + i) + ".wav";
    }
    loops[2].WasPlaying = 0;
    PutLoops(b, loops);
    PutHistory(b);
    PutBands(b);
    GoldenLoop clip;
    clip.FileName = folder + "/clip.wav";
    PutClips(b, {clip});
    b.TagText("END");
    return b.Str();
}

}  // namespace marvolin::test

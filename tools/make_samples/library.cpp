#include "library.h"

#include <string>

#include "finishing.h"
#include "parts.h"
#include "wav_writer.h"

namespace marvolin::samples {
namespace {

// Four loops at full volume fit together below full scale.
constexpr double kLoudness = 0.088;
constexpr double kBassLoudness = 0.12;  // low sounds seem softer

constexpr LibraryEntry kLibrary[] = {
    {"Beats", "Beat 120 straight", BeatStraight, kLoudness},
    {"Beats", "Beat 120 swing", BeatSwing, kLoudness},
    {"Beats", "Beat 120 broken", BeatBroken, kLoudness},
    {"Beats", "Beat 120 half time", BeatHalfTime, kLoudness},
    {"Beats", "Hats 120 shuffle", HatsShuffle, kLoudness},
    {"Beats", "Congas 120", Congas, kLoudness},
    {"Bass", "Bass walking D", BassWalking, kBassLoudness},
    {"Bass", "Bass pulse D", BassPulse, kBassLoudness},
    {"Bass", "Bass acid D", BassAcid, kBassLoudness},
    {"Bass", "Bass sub long", BassSub, kBassLoudness},
    {"Bass", "Bass plucked D", BassPlucked, kBassLoudness},
    {"Chords", "Chords slow wash", ChordsWash, kLoudness},
    {"Chords", "Chords off-beat stabs", ChordsStabs, kLoudness},
    {"Chords", "Chords electric piano", ChordsElectricPiano, kLoudness},
    {"Chords", "Chords organ drone", ChordsOrgan, kLoudness},
    {"Chords", "Chords high strings", ChordsStrings, kLoudness},
    {"Tones", "Tone bell arp", ToneBellArp, kLoudness},
    {"Tones", "Tone pluck arp", TonePluckArp, kLoudness},
    {"Tones", "Tone glass", ToneGlass, kLoudness},
    {"Tones", "Tone lead phrase", ToneLead, kLoudness},
    {"Tones", "Tone marimba", ToneMarimba, kLoudness},
    {"OneShots", "Kick deep", ShotKick, kLoudness},
    {"OneShots", "Snare tight", ShotSnare, kLoudness},
    {"OneShots", "Clap wide", ShotClap, kLoudness},
    {"OneShots", "Hat open", ShotHat, kLoudness},
    {"OneShots", "Toms two", ShotTom, kLoudness},
    {"OneShots", "Crash", ShotCrash, kLoudness},
    {"OneShots", "Bell D", ShotBell, kLoudness},
    {"OneShots", "Chord hit Dm", ShotChord, kLoudness},
    {"OneShots", "Zap", ShotZap, kLoudness},
    {"OneShots", "Swell noise", ShotSwell, kLoudness},
};

}  // namespace

std::span<const LibraryEntry> Library() { return kLibrary; }

Clip Make(const LibraryEntry& entry) {
    Clip clip = entry.make();
    Finish(clip, entry.loudness);
    return clip;
}

void WriteLibrary(const std::filesystem::path& root) {
    for (const LibraryEntry& entry : Library()) {
        const std::filesystem::path folder = root / entry.folder;
        std::filesystem::create_directories(folder);
        WriteWav(folder / (std::string(entry.name) + ".wav"), Make(entry));
    }
}

}  // namespace marvolin::samples

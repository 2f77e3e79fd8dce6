#include "scene.h"

#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "browser/clipboard.h"
#include "browser/sample_bins.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/map/sound_map.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "window/tabs/tab_mix_pad.h"

namespace marvolin::test {

namespace fs = std::filesystem;

namespace {

constexpr int kFrames = 22050;
constexpr const char* kBinFolders[] = {"Bass", "Drums", "Keys"};

/// Sixteen bits, stereo: `beats` triangle waves that die away.
FakeSample Beats(int beats) {
    FakeSample sample;
    sample.Bytes.assign(kFrames * 4, 0);
    const int length = kFrames / beats;
    for (int frame = 0; frame < kFrames; ++frame) {
        const int left = length - frame % length;
        const int wave = std::abs(frame % 200 - 100) - 50;
        const int value = wave * 600 / length * left;
        for (int channel = 0; channel < 2; ++channel) {
            const auto at = static_cast<std::size_t>(frame * 4 + channel * 2);
            sample.Bytes[at] = static_cast<std::uint8_t>(value & 0xff);
            sample.Bytes[at + 1] = static_cast<std::uint8_t>(value >> 8 & 0xff);
        }
    }
    return sample;
}

void WriteFile(const fs::path& path, std::size_t size) {
    std::ofstream(path, std::ios::binary) << std::string(size, '\0');
    constexpr std::time_t kNoon = 1584187200;  // 14 March 2020
    const auto noon = std::chrono::file_clock::from_sys(std::chrono::system_clock::from_time_t(kNoon));
    fs::last_write_time(path, std::chrono::time_point_cast<fs::file_time_type::duration>(noon));
}

std::string In(const std::string& name) { return std::string(kPictureFolder) + "/" + name; }

}  // namespace

void WritePictureFolder() {
    RemovePictureFolder();
    for (const char* folder : kBinFolders) {
        fs::create_directories(In(folder));
        for (int sample = 1; sample <= 24; ++sample) {
            const std::string name = std::string(folder) + " loop number " + std::to_string(sample);
            WriteFile(fs::path(In(folder)) / (name + ".wav"), static_cast<std::size_t>(sample * 1500));
        }
    }
    for (const char* folder : {"home", "run"}) fs::create_directories(In(folder));
    fs::permissions(In("run"), fs::perms::owner_all);
    fs::create_directories(In("sets"));
    for (const char* name : {"first.mvn", "second.mvn", "third set with a long name.mvn", "night.mvp"}) {
        WriteFile(fs::path(In("sets")) / name, 4321);
    }
}

void RemovePictureFolder() { fs::remove_all(kPictureFolder); }

Scene::Scene() {
    Desk.Folder = kPictureFolder;
    s.DX = std::make_unique<FakeDirectX>(Sound);
    s.DS = s.DX->DirectSoundCreate("guid1");
    s.DSEnum = s.DX->GetDSEnum();
    s.DSReady = true;
    s.OpenDriver = 0;
    s.GangReady = true;
    s.Drivers = {"Primary Sound Driver", "Second Device", "No Sound"};
    s.Driver = 0;
    s.TodayLabel = "Mar 14";
    PadGeometryInit(s, TabMixPad::InnerWidth(), TabMixPad::InnerHeight());
    PadListInit(s);
    PadTablesInit(s);
    MapInit(s);
    InitDirectInput(s);
    s.StatusText.clear();
    s.ReadoutText.clear();
}

void Scene::Play() {
    Fill(0, In("Bass/Bass loop number 1.wav"), 4);
    Fill(1, In("Drums/Drums loop number 12.wav"), 16);
    Fill(3, In("Keys/Keys loop number 7.wav"), 3);
    SetRows();
    SetPatterns();
    SetBands();
    SetMap();
    SetLists();
}

void Scene::Fill(Row row, const std::string& path, int beats) {
    Sound.Samples[path] = Beats(beats);
    auto buffer = s.DS->CreateSoundBufferFromFile(path, buffer_flags::kSample);
    LoopTrackSet& set = s.Set[row];
    set.FileName = path;
    set.SampleRate = 44100;
    set.BufferBytes = kFrames * 4;
    set.AvgBytesPerSec = 176400;
    set.Length = 0.5;
    s.Run[row].Buffer = std::move(buffer);
    s.Run[row].Loaded = True;
}

void Scene::SetRows() {
    const PlayMode modes[] = {kLoop, kDrum, kTrack, kOneShot};
    const std::int16_t vols[] = {500, 320, 410, 75, 260, 430};
    for (Row row = 0; row < kRows; ++row) {
        s.Set[row].Vol = vols[row];
        s.Set[row].Pan = static_cast<std::int16_t>(150 + 170 * row);
        s.Set[row].Hz = static_cast<std::int16_t>(400 + 450 * row);
        if (row == kMasterRow) continue;
        s.SndDisp[row] = {vols[row], static_cast<std::int16_t>(500 - vols[row] / 2), 0};
    }
    for (Row row = 0; row < kLoopTracks; ++row) {
        s.Set[row].PlayMode = modes[row];
        s.Set[row].Channel = static_cast<std::uint8_t>(1 + 2 * row);
    }
    s.Set[3].Thinnable = False;
    for (const int row : {0, 1, 4}) s.Run[row].Playing = True;
    for (const int row : {0, 1}) {
        dynamic_cast<FakeSound::Buffer&>(*s.Run[row].Buffer).Position = kFrames * (1 + row);
    }
    s.Run[3].Paused = True;
    s.ThinList = "AB";
    s.Limit = 3;
    s.FadeStep = 0.8;
    s.Clock.Panel = "01:23:45";
    s.StatusText = "drg Vol; rtdrg Vol all the way up and down";
    s.ReadoutText = "64%";
}

void Scene::SetPatterns() {
    s.CurrentLoop = 1;
    LoopTrackSet& set = s.Set[1];
    set.NSteps = 15;
    set.StepDuration = 12;
    set.Swing = 3;
    set.BeatStart = 20;
    s.Run[1].Step = 6;
    for (int step = 0; step < 16; ++step) {
        set.Pattern[kVolPattern][step] = static_cast<std::int16_t>(step % 4 == 0 ? 500 : 90 + 23 * step);
        set.Pattern[kHzPattern][step] = static_cast<std::int16_t>(step % 3 == 0 ? 2000 : 500 + 61 * step);
        set.Pattern[kPanPattern][step] = static_cast<std::int16_t>(step * 1000 / 15);
    }
    set.Pattern[kVolPattern][kPatternOffset] = 120;
    set.Pattern[kHzPattern][kPatternOffset] = 700;
    set.Pattern[kPanPattern][kPatternOffset] = 333;
}

void Scene::SetBands() {
    for (const int row : {0, 3}) s.Set[row].Selected = True;
    const Row first[] = {0, 2};
    const Row last[] = {1, 2};
    for (Row band = 0; band < 2; ++band) {
        s.BandTable[band].First = first[band];
        s.BandTable[band].Last = last[band];
        for (Row row = first[band]; row <= last[band]; ++row) {
            s.Run[row].InBand = True;
            s.Run[row].Band = band;
        }
    }
    s.BandTable[1].Controlled = True;
    const std::int16_t levels[] = {0, 40, 160, 280, 400};
    for (int channel = 1; channel <= kChannels; ++channel) {
        s.ChannelVol[channel] = levels[channel];
        s.ChannelPan[channel] = static_cast<std::int16_t>(2 * levels[channel]);
        s.ChannelHz[channel] = static_cast<std::int16_t>(500 + 5 * levels[channel]);
    }
    for (int type = 0; type < 5; ++type) {
        s.PadTable[type].X = 400 * type - 700;
        s.PadTable[type].Y = 900 - 350 * type;
    }
    s.TwistPosition = 1200;
}

void Scene::SetMap() {
    for (Row row = 0; row < kLoopTracks; ++row) {
        s.Set[row].PositionX = 0.4F * static_cast<float>(row) - 0.9F;
        s.Set[row].PositionY = 0.7F - 0.35F * static_cast<float>(row);
    }
    s.ListenerX = 0.5;
    s.ListenerY = 0.25;
    s.ListenerAngle = 60;
    s.RollOff = 25;
    s.BallHighlighted[2] = true;
    SetMapSize(s, 2.5);
    s.StatusText = "drg Vol; rtdrg Vol all the way up and down";
}

void Scene::SetLists() {
    s.CurrentFolder = In("sets/");
    s.CurrentFile = "second.mvn";
    s.DialogueFile = "second.mvn";
    s.Title = "marvolin-second.mvn";
    s.SessionName = "Friday";
    s.SelectionsOnlySetting = 1;
    s.SaveItEnabled = true;
    s.SaveOpenSwitches[0].SetSwitch(true);
    s.SaveOpenSwitches[1].Put(Element::Vol, true);
    s.SaveOpenSwitches[1].Put(Element::Bands, true);
    s.QuickLoadEnabled = true;
    s.QuickLoadRows = {"<Close>", "first", "second", "third set with a long name"};
    s.QuickLoadFiles = {"", "first.mvn", "second.mvn", "third set with a long name.mvn"};
    s.HistoryRow = 1;
    s.HistoryEntries = {"<Close>", "<Empty>", "<Reverse>", "Drums loop number 12", "Drums loop number 3", "Other"};
    for (int bin = 0; bin < 3; ++bin) {
        SetPickDir(s, bin, In(kBinFolders[bin]));
        UpdatePickFile(s, bin);
        s.Bins[bin].Destination = static_cast<std::int16_t>(bin == 2 ? 5 : bin * 4);
        s.Bins[bin].ClickPlay = static_cast<std::int16_t>(bin == 1 ? 0 : 1);
    }
    s.Bins[1].Selected = 3;
    for (const int row : {0, 1, 3}) {
        s.Clips.ClipStaging = s.Set[row];
        AddNewClip(s);
    }
    s.Clips.Components[3] = false;
    s.TreeFolder = In("Drums");
}

}  // namespace marvolin::test

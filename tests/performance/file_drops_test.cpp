#include "performance/drops/file_drops.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "audio/transport.h"
#include "core/files/sample_files.h"
#include "fakes/file_bytes.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using namespace test;

struct FileDrops : Instrument {
    TempFolder Folder;
    std::string Put(const std::string& name) const { return Folder.Touch(name); }
    std::vector<std::string> Files() const {
        std::vector<std::string> files;
        for (Row row = 0; row < kLoopTracks; ++row) files.push_back(s.Set[row].FileName);
        return files;
    }
};

TEST(FileDrops, SeveralFilesFillTheRowsBelowAsFarAsThereAreRows) {
    FileDrops d;
    const std::string a = d.Put("a.wav");
    const std::string b = d.Put("b.wav");
    DropFilesOnRow(d.s, 2, {a, b, d.Put("c.wav")});
    EXPECT_EQ(d.Files(), (std::vector<std::string>{"", "", a, b}));
    EXPECT_FALSE(d.Desk.Busy);
}

TEST(FileDrops, SeveralFilesOnABandFillARowEachAndASingleOneFillsTheBand) {
    FileDrops d;
    d.s.BandTable[1].First = 0;
    d.s.BandTable[1].Last = 3;
    for (Row row = 0; row < kLoopTracks; ++row) {
        d.s.Run[row].InBand = True;
        d.s.Run[row].Band = 1;
    }
    const std::string a = d.Put("a.wav");
    const std::string b = d.Put("b.wav");
    DropFilesOnRow(d.s, 1, {a});
    EXPECT_EQ(d.Files(), (std::vector<std::string>{a, a, a, a}));
    WriteBytes(d.Folder / "notes.txt", "notes");
    DropFilesOnRow(d.s, 1, {b, d.Put("c.wav"), d.Folder / "notes.txt"});
    EXPECT_EQ(d.Files(), (std::vector<std::string>{a, b, d.Folder / "c.wav", a}));
    DropFilesOnRow(d.s, 1, {d.Folder / "notes.txt", b});
    EXPECT_EQ(d.Files(), (std::vector<std::string>{b, b, b, b}));
}

TEST(FileDrops, AllThatIsNoSampleIsNamed) {
    FileDrops d;
    WriteBytes(d.Folder / "notes.txt", "notes");
    WriteBytes(d.Folder / "more.txt", "more");
    DropFilesOnRow(d.s, 1, {d.Folder / "notes.txt", d.Put("a.wav"), d.Folder / "more.txt"});
    EXPECT_EQ(d.s.StatusText, "Not a sample: notes.txt, more.txt");
}

TEST(FileDrops, ThePointerPromisesADropOfASampleOfThisMachineAndTellsWhyOfNoOther) {
    FileDrops d;
    const auto why = [&](const std::vector<std::string>& paths) { return WhyFilesAreRefused(d.s, 2, paths); };
    WriteBytes(d.Folder / "notes.txt", "notes");
    EXPECT_EQ(why({d.Put("a.wav")}), "");
    EXPECT_EQ(why({"/gone/a.wav"}), "");  // the drop tells so in a box
    EXPECT_EQ(why({"", d.Folder / "notes.txt", d.Put("a.wav")}), "");
    EXPECT_EQ(why({d.Folder / "notes.txt", ""}), "Not a sample: notes.txt");
    EXPECT_EQ(why({d.Folder.Path()}), "Not a sample: " + FileNameOf(d.Folder.Path()));
    EXPECT_EQ(why({""}), "Not a file of this computer");
    EXPECT_EQ(why({}), "Not a file of this computer");
}

TEST(FileDrops, OfManyTheFirstIsNamedAndTheOthersAreCounted) {
    FileDrops d;
    std::vector<std::string> paths;
    for (int i = 0; i < 999; ++i) {
        paths.push_back(d.Folder / ("readme" + std::to_string(i) + ".txt"));
        WriteBytes(paths.back(), "text");
    }
    EXPECT_EQ(WhyFilesAreRefused(d.s, 0, paths), "Not a sample: readme0.txt and 998 more");
    DropFilesOnRow(d.s, 0, paths);
    EXPECT_EQ(d.s.StatusText, "Not a sample: readme0.txt and 998 more");
    // No drag looks at so many files at every control.
    paths.insert(paths.begin() + 47, d.Put("a.wav"));
    EXPECT_EQ(WhyFilesAreRefused(d.s, 0, paths), "");
    std::rotate(paths.begin(), paths.begin() + 40, paths.begin() + 47);
    EXPECT_EQ(WhyFilesAreRefused(d.s, 0, paths), "");
    paths.insert(paths.begin(), d.Folder / "readme998.txt");
    EXPECT_NE(WhyFilesAreRefused(d.s, 0, paths), "");
}

TEST(FileDrops, TheSelectionTakesFilesOnlyWhileAnythingIsInControl) {
    FileDrops d;
    const std::string a = d.Put("a.wav");
    EXPECT_EQ(WhyFilesAreRefused(d.s, kSelectionRow, {a}), "Nothing is in control of Z: select LoopTracks first");
    d.Select(1);
    EXPECT_EQ(WhyFilesAreRefused(d.s, kSelectionRow, {a}), "");
}

TEST(FileDrops, SamplesForWhichNoRowIsLeftAreNamed) {
    FileDrops d;
    WriteBytes(d.Folder / "notes.txt", "notes");
    const std::string a = d.Put("a.wav");
    const std::string b = d.Put("b.wav");
    const std::string c = d.Put("c.wav");
    DropFilesOnRow(d.s, 2, {a, b, c, d.Put("e.wav")});
    EXPECT_EQ(d.s.StatusText, "No row left for: c.wav, e.wav");
    DropFilesOnRow(d.s, 3, {d.Folder / "notes.txt", a, b});
    EXPECT_EQ(d.Files(), (std::vector<std::string>{"", "", a, a}));
    EXPECT_EQ(d.s.StatusText, "No row left for: b.wav; not a sample: notes.txt");
    d.Select(0);
    DropFilesOnRow(d.s, kSelectionRow, {c, b});
    EXPECT_EQ(d.Files(), (std::vector<std::string>{c, "", a, a}));
    EXPECT_EQ(d.s.StatusText, "No row left for: b.wav");
}

TEST(FileDrops, TwoFilesOnTheLastRowOfABandReplaceThatRowAlone) {
    FileDrops d;
    d.MakeBand(1, 2, 3);
    const std::string a = d.Put("a.wav");
    DropFilesOnRow(d.s, 3, {a, d.Put("b.wav")});
    EXPECT_EQ(d.Files(), (std::vector<std::string>{"", "", "", a}));
}

TEST(FileDrops, ThePointerIsBusyFromTheFirstFileToTheLast) {
    FileDrops d;
    DropFilesOnRow(d.s, 0, {d.Put("a.wav"), d.Put("b.wav"), d.Put("c.wav")});
    EXPECT_EQ(d.Desk.Log, (std::vector<std::string>{"busy pointer", "default pointer"}));
    EXPECT_EQ(d.s.BusyPointers, 0);
}

TEST(FileDrops, OnRowFourTheFirstFileLoadsIntoTheControlledRowsAndNoOtherFileLoads) {
    FileDrops d;
    d.Select(0);
    d.Select(3);
    const std::string a = d.Put("a.wav");
    DropFilesOnRow(d.s, kSelectionRow, {a, d.Put("b.wav")});
    EXPECT_EQ(d.Files(), (std::vector<std::string>{a, "", "", a}));
}

TEST(FileDrops, TheFileThatWasDroppedIsLoadedAlsoBesideOneThatDiffersInCaseOnly) {
    FileDrops d;
    const std::string lower = d.Put("a.wav");
    const std::string upper = d.Put("a.WAV");
    DropFilesOnRow(d.s, 0, {lower, upper});
    EXPECT_EQ(d.Files(), (std::vector<std::string>{lower, upper, "", ""}));
}

TEST(FileDrops, ABackslashInANameIsAPartOfTheName) {
    FileDrops d;
    const std::string path = d.Put("c\\d.WAV");
    DropFilesOnRow(d.s, 1, {path});
    EXPECT_EQ(d.s.Set[1].FileName, path);
}

TEST(FileDrops, InABandAFileOfAnyNameLoadsIntoAllRowsBeforeTheFirstOfThemPlays) {
    for (const char* name : {"kick.wav", "kick", "kick.pcm"}) {
        FileDrops d;
        d.MakeBand(1, 1, 2);
        d.s.PlayOnLoad = true;
        d.s.ActiveTab = kMapTab;
        const std::string path = d.Folder / name;
        WriteBytes(path, "RIFF1234WAVEfmt ");
        DropFilesOnRow(d.s, 2, {path});
        EXPECT_EQ(d.Files(), (std::vector<std::string>{"", path, path, ""}));
        const std::vector<std::string>& log = d.Sound.Log;
        const auto place = [&](const std::string& call) {
            const auto found = std::find_if(
                log.begin(), log.end(), [&](const std::string& line) { return line.find(call) != std::string::npos; });
            EXPECT_NE(found, log.end()) << call;
            return found - log.begin();
        };
        EXPECT_LT(place("DuplicateSoundBuffer"), place("Play"));
        EXPECT_NE(d.s.Run[1].Playing, False);
        EXPECT_NE(d.s.Run[2].Playing, False);
        EXPECT_EQ(d.s.PosHighlight, 2);
    }
}

TEST(FileDrops, AFolderOrATextIsNamedInTheStatusLineAndTheRowPlaysOn) {
    FileDrops d;
    std::filesystem::create_directory(d.Folder / "beats.wav");
    WriteBytes(d.Folder / "read\\me.txt", "RIFF raff, no wave");
    WriteBytes(d.Folder / "empty", "");
    for (const char* name : {"beats.wav", "read\\me.txt", "empty"}) {
        d.Fill(1);
        LoopPlay(d.s, 1, true);
        DropFilesOnRow(d.s, 1, {d.Folder / name});
        EXPECT_EQ(d.s.StatusText, std::string("Not a sample: ") + name);
        EXPECT_EQ(d.s.Run[1].Playing, True);
        EXPECT_EQ(d.Sound.Count("Stop"), 0);
        EXPECT_TRUE(d.Desk.Boxes.empty());
    }
}

TEST(FileDrops, WhatIsNoSampleTakesNoRow) {
    FileDrops d;
    WriteBytes(d.Folder / "notes.txt", "notes");
    const std::string a = d.Put("a.wav");
    const std::string b = d.Put("b.WaV");
    DropFilesOnRow(d.s, 1, {d.Folder / "notes.txt", a, d.Folder.Path(), b});
    EXPECT_EQ(d.Files(), (std::vector<std::string>{"", a, b, ""}));
}

TEST(FileDrops, AWavFileThatIsRubbishEmptiesTheRowAndIsNamed) {
    FileDrops d;
    d.Fill(1);
    d.Sound.Failures["CreateSoundBufferFromFile"] = sound_error::kBadFormat;
    WriteBytes(d.Folder / "rubbish.wav", "rubbish");
    DropFilesOnRow(d.s, 1, {d.Folder / "rubbish.wav"});
    EXPECT_EQ(d.s.StatusText, "Not loaded: rubbish.wav");
    EXPECT_EQ(d.s.Run[1].Loaded, False);
    EXPECT_EQ(d.Desk.Boxes.size(), 1U);
}

TEST(FileDrops, AllSamplesThatAreMissingOrRefusedAreNamedAndWhatElseThereIsToSay) {
    FileDrops d;
    const std::string gone = d.Folder / "gone.wav";
    const std::string lost = d.Folder / "lost.wav";
    DropFilesOnRow(d.s, 0, {gone, d.Put("a.wav"), lost});
    EXPECT_EQ(d.s.StatusText, "Not loaded: gone.wav, lost.wav");
    EXPECT_EQ(d.s.Set[1].FileName, d.Folder / "a.wav");
    d.Sound.Failures["CreateSoundBufferFromFile"] = sound_error::kBadFormat;
    WriteBytes(d.Folder / "notes.txt", "notes");
    DropFilesOnRow(d.s, 2, {d.Put("b.wav"), gone, lost, d.Folder / "notes.txt"});
    EXPECT_EQ(d.s.StatusText, "Not loaded: b.wav, gone.wav; no row left for: lost.wav; not a sample: notes.txt");
}

TEST(FileDrops, APipeIsNotReadToFindOutWhatItIs) {
    FileDrops d;
    ASSERT_EQ(mkfifo((d.Folder / "pipe").c_str(), 0600), 0);
    DropFilesOnRow(d.s, 0, {d.Folder / "pipe"});
    EXPECT_EQ(d.s.StatusText, "Not a sample: pipe");
}

}  // namespace
}  // namespace marvolin

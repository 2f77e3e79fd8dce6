#include "performance/drops/file_drops.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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
        const std::string path = d.Put(name);
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

}  // namespace
}  // namespace marvolin

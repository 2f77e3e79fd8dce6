// A set that is opened while the open device refuses its samples.

#include <gtest/gtest.h>

#include <filesystem>

#include "audio/carrying.h"
#include "audio/device.h"
#include "audio/loop_clearing.h"
#include "audio/sample_loading.h"
#include "persistence/clips.h"
#include "persistence/set_instrument.h"

namespace marvolin {
namespace {

using test::SetInstrument;

/// A set of two LoopTracks, the second sounding; nothing of it is in the instrument.
struct Refused : SetInstrument {
    Refused() {
        s.DeviceSwapArmed = true;
        Desk.TempFile = Folder / "VBN1.tmp";
        Store.OnSave = [this] { EXPECT_TRUE(SaveSession(s, Desk.TempFile, LoopsSaved::All, test::All())); };
        Store.OnLoad = [this] {
            EXPECT_TRUE(LoadSession(s, Desk.TempFile, SetAsCurrent::No, Store.Loaded, AdoptSwitches::No));
        };
        LoopLoad(s, 0, Folder.Path(), "a.wav");
        LoopLoad(s, 2, Folder.Path(), "b.wav");
        s.Set[0].BeatStart = 25;
        s.Set[2].Vol = 321;
        LoopPlay(s, 2, true);
        EXPECT_TRUE(Save("x.mvn"));
        LoopClear(s, 0);
        LoopClear(s, 2);
        Desk.Boxes.clear();
    }
    void Refuse(bool on) {
        Sound.Failures.clear();
        if (on) Sound.Failures["CreateSoundBufferFromFile"] = sound_error::kBadFormat;
    }
    void ExpectWhole() {
        EXPECT_EQ(s.Set[0].FileName, Folder / "a.wav");
        EXPECT_EQ(s.Run[0].Loaded, True);
        EXPECT_EQ(s.Run[0].Playing, False);
        EXPECT_EQ(s.Set[0].BeatStart, 25);
        EXPECT_EQ(s.Set[2].FileName, Folder / "b.wav");
        EXPECT_EQ(s.Run[2].Playing, True);
        EXPECT_EQ(s.Set[2].Vol, 321);
    }
};

TEST(RefusedSet, ItsSamplesWaitForTheNextDeviceAndAreNamed) {
    for (const std::int16_t emptyBlank : std::initializer_list<std::int16_t>{0, 1}) {
        SCOPED_TRACE(emptyBlank);
        Refused i;
        i.s.EmptyBlankSetting = emptyBlank;
        i.Refuse(true);
        ASSERT_TRUE(i.Load("x.mvn"));
        EXPECT_EQ(i.s.StatusText, "Not loaded: a.wav, b.wav");
        EXPECT_EQ(i.Desk.Boxes.size(), 2U);
        EXPECT_EQ(i.s.Run[0].Loaded, False);
        EXPECT_EQ(i.s.Run[2].Playing, False);
        EXPECT_EQ(i.s.ThinList, "");
        i.Refuse(false);
        cboDrivers_Click(i.s, 1);
        i.ExpectWhole();
    }
}

TEST(RefusedSet, ASaveInBetweenHoldsItsSamples) {
    Refused i;
    i.Refuse(true);
    ASSERT_TRUE(i.Load("x.mvn"));
    ASSERT_TRUE(i.Save("y.mvn"));
    i.Refuse(false);
    LoopClear(i.s, 0);
    LoopClear(i.s, 2);
    ASSERT_TRUE(i.Load("y.mvn"));
    i.ExpectWhole();
}

TEST(RefusedSet, AStopStopsWhatWaitsAndAnotherSampleReplacesIt) {
    Refused i;
    i.Refuse(true);
    ASSERT_TRUE(i.Load("x.mvn"));
    StopAll(i.s);
    i.Refuse(false);
    LoopLoad(i.s, 0, i.Folder.Path(), "c.wav");
    cboDrivers_Click(i.s, 1);
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "c.wav");
    EXPECT_EQ(i.s.Set[2].FileName, i.Folder / "b.wav");
    EXPECT_EQ(i.s.Run[2].Playing, False);
}

TEST(RefusedSet, ASampleWhoseFileIsMissingDoesNotWaitAndTheRowKeepsWhatWaitsThere) {
    Refused i;
    i.Refuse(true);
    ASSERT_TRUE(i.Load("x.mvn"));
    std::filesystem::remove(i.Folder / "b.wav");
    i.Refuse(false);
    // Row 0 has its sample again; row 2 finds none, and its earlier one waits on.
    ASSERT_TRUE(i.Load("x.mvn"));
    EXPECT_EQ(i.s.Run[0].Loaded, True);
    EXPECT_EQ(i.s.Run[2].InHand.FileName, i.Folder / "b.wav");
    Refused empty;
    std::filesystem::remove(empty.Folder / "b.wav");
    ASSERT_TRUE(empty.Load("x.mvn"));
    EXPECT_EQ(empty.s.Run[2].InHand.FileName, "");
}

TEST(RefusedSet, AClipThatIsRefusedSoundsWithTheNextDevice) {
    Refused i;
    i.Refuse(true);
    i.s.Clips.ClipStaging = {};
    i.s.Clips.ClipStaging.FileName = i.Folder / "clip.wav";
    i.s.Clips.ClipStore = {i.s.Clips.ClipStaging};
    i.s.Clips.ClipTop = 0;
    i.s.Clips.Selected = 0;
    DropClip(i.s, 1, {"ClipBoardList", 0, "1"});
    EXPECT_EQ(i.s.Run[1].Loaded, False);
    i.Refuse(false);
    cboDrivers_Click(i.s, 1);
    EXPECT_EQ(i.s.Set[1].FileName, i.Folder / "clip.wav");
    EXPECT_EQ(i.s.Run[1].Playing, True);
}

}  // namespace
}  // namespace marvolin

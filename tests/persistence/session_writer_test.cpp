#include "persistence/session_writer.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "persistence/golden.h"
#include "persistence/loop_record.h"
#include "persistence/set_instrument.h"

namespace marvolin {
namespace {

using namespace test;

TEST(SaveSession, WritesTheBytesOfTheFormat) {
    SetInstrument i;
    i.s.JoyEnabled = true;
    const std::string golden = GoldenSession(i.Folder.Path());
    ASSERT_TRUE(i.LoadBytes(golden));
    // A load leaves these unchanged or takes them from the sample; the test sets them.
    i.s.BandTable[1] = {1, 2, 0, True};
    for (Row row = 0; row < kLoopTracks; ++row) {
        LoopTrackSet& set = i.s.Set[row];
        set.SampleRate = 48000;
        set.Selected = True;
        set.Thinnable = False;
        set.BeatStart = 50;
        set.BufferBytes = 176400;
        set.Length = 1.0;
        set.AvgBytesPerSec = 176400;
        set.PlayMode = kTrack;
        set.PositionX = 0.25F;
        set.PositionY = -0.5F;
    }
    i.s.Run[1].Playing = True;
    i.s.History[1].clear();
    ASSERT_TRUE(i.Save("out.mvn"));
    std::string expected = golden;
    // The golden session holds two blocks of history; a save of everything holds four.
    const std::string from = Bytes().TagText("History").I16(2).I16(0).Str();
    const std::string to = Bytes().TagText("History").I16(4).I16(0).Str();
    const auto at = expected.find(from);
    ASSERT_NE(at, std::string::npos);
    const std::string blocks = Bytes().I16(2).TagText("/h/new.wav").TagText("/h/old.wav").I16(3).I16(0).Str();
    expected.replace(at, from.size() + blocks.size(),
                     to + Bytes().I16(3).TagText(i.Folder / "a.wav").TagText("/h/new.wav").TagText("/h/old.wav").Str() +
                         Bytes().I16(1).I16(0).I16(2).I16(1).TagText(i.Folder / "c.wav").I16(3).I16(1).Str() +
                         Bytes().TagText(i.Folder / "d.wav").Str());
    i.s.History[0] = {i.Folder / "a.wav", "/h/new.wav", "/h/old.wav"};
    i.s.History[2] = {i.Folder / "c.wav"};
    i.s.History[3] = {i.Folder / "d.wav"};
    ASSERT_TRUE(i.Save("out.mvn"));
    EXPECT_EQ(ReadBytes(i.Folder / "out.mvn"), expected);
}

TEST(SaveSession, KeepsEveryByteOfEveryFieldAlsoOfValuesThatNoGestureMakes) {
    TempFolder folder;
    GoldenLoop wild;
    wild.FileName = "\xFF\x01 \"q\"";
    wild.Hz = -32768;
    wild.Selected = 5;
    wild.Thinnable = 77;
    wild.StepDuration = -2147483647;
    wild.Length = -0.0;
    wild.NSteps = 32000;
    wild.PlayMode = -9;
    wild.Pattern = 32000;
    wild.PositionX = std::numeric_limits<float>::infinity();
    wild.Channel = 255;
    Bytes b;
    PutRecord(b, wild);
    WriteBytes(folder / "in", b.Str());
    RecordReader in(folder / "in");
    const LoopTrackSet set = ReadLoopTrackSet(in);
    RecordWriter out(folder / "out");
    WriteLoopTrackSet(out, set);
    out.Close();
    EXPECT_EQ(ReadBytes(folder / "out"), b.Str());
    EXPECT_EQ(b.Str().size(), 255 + wild.FileName.size());
}

TEST(SaveSession, ALoadedFileSavedAgainIsTheSameFile) {
    SetInstrument i;
    ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path())));
    ASSERT_TRUE(i.Save("one.mvn", AllBut(Element::ClipBoard)));
    SetInstrument other;
    ASSERT_TRUE(LoadSession(other.s, i.Folder / "one.mvn", SetAsCurrent::No, All(), AdoptSwitches::No));
    other.s.BandTable = i.s.BandTable;
    for (Row row = 0; row < kLoopTracks; ++row) other.s.Set[row].Selected = i.s.Set[row].Selected;
    other.s.Joy.Button = i.s.Joy.Button;
    ASSERT_TRUE(SaveSession(other.s, i.Folder / "two.mvn", LoopsSaved::All, AllBut(Element::ClipBoard)));
    EXPECT_EQ(ReadBytes(i.Folder / "one.mvn"), ReadBytes(i.Folder / "two.mvn"));
}

TEST(SaveSession, TheHeaderIsFiftyBytes) {
    SetInstrument i;
    ASSERT_TRUE(i.Save("x.mvn"));
    Bytes b;
    PutHeader(b);
    ASSERT_EQ(b.Str().size(), 50U);
    EXPECT_EQ(ReadBytes(i.Folder / "x.mvn").substr(0, 50), b.Str());
    EXPECT_EQ(b.Str()[0], '\x2E');
}

TEST(SaveSession, WithNothingSelectedAndSelectionsOnlyTheFileHoldsNoLoopTrackAndIsValid) {
    SetInstrument i;
    clsSwitchRecord switches = Only(Element::HistoryLists);
    ASSERT_TRUE(i.Save("x.mvn", switches, LoopsSaved::SelectionsOnly));
    Bytes b;
    PutHeader(b);
    b.TagI32(16);
    for (const char* name : kGoldenSwitches) b.TagText(name).TagBool(std::string(name) == "HistoryLists");
    b.TagText("LoopsV1").I16(0).I16(0).TagText("History").I16(0).TagText("END");
    EXPECT_EQ(ReadBytes(i.Folder / "x.mvn"), b.Str());
    EXPECT_TRUE(i.Load("x.mvn"));
}

TEST(SaveSession, ASelectionIsRestoredInTheSlotsFromWhichItWasSaved) {
    SetInstrument i;
    i.Select(1);
    i.Select(3);
    i.s.Set[1].Hz = 111;
    i.s.Set[3].Hz = 333;
    i.s.Set[2].Hz = 222;
    ASSERT_TRUE(i.Save("x.mvn", All(), LoopsSaved::SelectionsOnly));
    SetInstrument other;
    ASSERT_TRUE(LoadSession(other.s, i.Folder / "x.mvn", SetAsCurrent::No, All(), AdoptSwitches::No));
    EXPECT_EQ(other.s.Set[1].Hz, 111);
    EXPECT_EQ(other.s.Set[3].Hz, 333);
    EXPECT_EQ(other.s.Set[2].Hz, 1000);
}

TEST(SaveSession, PlayStateIsFalseWhenItsSwitchIsOff) {
    SetInstrument i;
    i.Fill(0);
    i.s.Run[0].Playing = True;
    ASSERT_TRUE(i.Save("on.mvn", Only(Element::PlayState)));
    ASSERT_TRUE(i.Save("off.mvn", clsSwitchRecord{}));
    const std::string tail = Bytes().U8(1).I16(-1).I16(1).Str();  // Channel, WasPlaying, the next Index
    EXPECT_NE(ReadBytes(i.Folder / "on.mvn").find(tail), std::string::npos);
    EXPECT_EQ(ReadBytes(i.Folder / "off.mvn").find(tail), std::string::npos);
}

TEST(SaveSession, APackageCopiesTheSamplesOfLoadedLoopTracksAndKeepsTheirPaths) {
    SetInstrument i;
    TempFolder package;
    i.Fill(0, i.Folder / "a.wav");
    i.s.Set[1].FileName = i.Folder / "b.wav";
    ASSERT_TRUE(SaveSession(i.s, package / "set.mvp", LoopsSaved::All, All()));
    EXPECT_EQ(ReadBytes(package / "a.wav"), "a.wav");
    EXPECT_FALSE(std::filesystem::exists(package / "b.wav"));
    EXPECT_NE(ReadBytes(package / "set.mvp").find(i.Folder / "a.wav"), std::string::npos);
}

TEST(SaveSession, TwoSamplesOfOneNameOverwriteEachOtherInAPackageAndTheLaterWins) {
    SetInstrument i;
    TempFolder other;
    TempFolder package;
    WriteBytes(other / "a.wav", "later");
    i.Fill(0, i.Folder / "a.wav");
    i.Fill(2, other / "a.wav");
    ASSERT_TRUE(SaveSession(i.s, package / "set.mvp", LoopsSaved::All, All()));
    EXPECT_EQ(ReadBytes(package / "a.wav"), "later");
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(SaveSession, ASampleThatIsItsOwnCopySurvives) {
    SetInstrument i;
    i.Fill(0, i.Folder / "a.wav");
    std::filesystem::create_symlink(i.Folder / "b.wav", i.Folder / "link.wav");
    ASSERT_TRUE(i.Save("set.mvp"));
    EXPECT_EQ(ReadBytes(i.Folder / "a.wav"), "a.wav");
}

TEST(SaveSession, AnEmptyClipBoardIsWrittenAsTheCountZero) {
    SetInstrument i;
    ASSERT_TRUE(i.Save("x.mvn", Only(Element::ClipBoard)));
    EXPECT_TRUE(ReadBytes(i.Folder / "x.mvn").ends_with(Bytes().TagText("ClipBoard").I16(0).TagText("END").Str()));
}

TEST(SaveSession, EveryElementChosenAloneWritesItsOwnSection) {
    struct Case {
        Element Switch;
        std::string Tag;
    };
    for (const Case& one : {Case{Element::General, "Settings"}, Case{Element::ThreeD, "ThreeD"},
                            Case{Element::PickLists, "PickLists"}, Case{Element::HistoryLists, "History"},
                            Case{Element::Bands, "Bands"}, Case{Element::ClipBoard, "ClipBoard"}}) {
        SCOPED_TRACE(one.Tag);
        SetInstrument i;
        ASSERT_TRUE(i.Save("x.mvn", Only(one.Switch)));
        // After the switch table, which names some of the tags too.
        Bytes head;
        PutHeader(head);
        PutSwitches(head);
        const std::string sections = ReadBytes(i.Folder / "x.mvn").substr(head.Str().size());
        EXPECT_NE(sections.find(Bytes().TagText("LoopsV1").Str()), std::string::npos);
        for (const char* tag : {"Settings", "ThreeD", "PickLists", "History", "Bands", "ClipBoard"}) {
            EXPECT_EQ(sections.find(Bytes().TagText(tag).Str()) != std::string::npos, tag == one.Tag) << tag;
        }
    }
}

}  // namespace
}  // namespace marvolin

#include <gtest/gtest.h>

#include <limits>

#include "core/files/record_stream.h"
#include "persistence/golden.h"
#include "persistence/heap.h"
#include "persistence/set_instrument.h"
#include "sequencing/loop_clock.h"

namespace marvolin {
namespace {

using namespace test;

bool IsLoadMessage(const std::string& box) {
    return box.starts_with("Error Opening ") || box.starts_with("File Format Error on Open in ");
}

constexpr std::size_t kMostMemory = 64 << 20;

/// One instrument for many loads. Its boxes and the memory that it took are checked after each.
struct Victim : SetInstrument {
    bool LoadHostile(const std::string& bytes) {
        Desk.Boxes.clear();
        Sound.Log.clear();
        Screen.Log.clear();
        s.Clips = {};
        ResetHeapPeak();
        const bool loaded = LoadBytes(bytes);
        EXPECT_LE(HeapPeak(), kMostMemory);
        if (!loaded) {
            EXPECT_FALSE(Desk.Boxes.empty());
            if (!Desk.Boxes.empty()) {
                EXPECT_TRUE(IsLoadMessage(Desk.LastBox())) << Desk.LastBox();
            }
        }
        return loaded;
    }
    /// The instrument goes on playing whatever was loaded.
    void Play() {
        for (Row row = 0; row < kLoopTracks; ++row) {
            s.Run[row].Playing = s.Run[row].Loaded;
            s.Set[row].PlayMode = kTrack;
        }
        for (int tick = 0; tick < 40; ++tick) LoopTimer_Timer(s, 1000);
    }
};

TEST(HostileSession, CutAtEveryByteItEndsInOneOfTheTwoMessages) {
    Victim v;
    const std::string whole = GoldenSession(v.Folder.Path());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        ASSERT_FALSE(v.LoadHostile(whole.substr(0, length)));
    }
    EXPECT_TRUE(v.LoadHostile(whole));
}

TEST(HostileSession, WithAnyByteFlippedItIsLoadedOrEndsInOneOfTheTwoMessages) {
    Victim v;
    const std::string whole = GoldenSession(v.Folder.Path());
    for (std::size_t at = 0; at < whole.size(); ++at) {
        SCOPED_TRACE(at);
        std::string bytes = whole;
        bytes[at] = static_cast<char>(~bytes[at]);
        v.LoadHostile(bytes);
        ASSERT_FALSE(HasFailure());
    }
}

void PutHead(Bytes& b) {
    PutHeader(b);
    PutSwitches(b);
}

TEST(HostileSession, ACountThatTheFileCannotHoldIsRefused) {
    Victim v;
    for (const char* tag : {"LoopsV1", "History", "ClipBoard"}) {
        for (const int count : {-1, -32768, 1, 32767}) {
            SCOPED_TRACE(std::string(tag) + " " + std::to_string(count));
            Bytes b;
            PutHead(b);
            b.TagText(tag).I16(count).I16(0).TagText("END");
            ASSERT_FALSE(v.LoadHostile(b.Str()));
        }
        Bytes b;
        PutHead(b);
        b.TagText(tag).I16(0);
        if (std::string(tag) == "LoopsV1") b.I16(0);
        ASSERT_TRUE(v.LoadHostile(b.TagText("END").Str())) << tag;
    }
    for (const std::int64_t count : {-1LL, 28LL, 32767LL, 2147483647LL}) {
        Bytes b;
        PutHead(b);
        b.TagText("Settings").TagI32(count).TagText("END");
        ASSERT_FALSE(v.LoadHostile(b.Str())) << count;
    }
}

TEST(HostileSession, AThousandClaimsOfManyEntriesTakeNoMemory) {
    Victim v;
    Bytes b;
    PutHead(b);
    // Each block of history claims as many entries as an Integer can count.
    b.TagText("History").I16(1000);
    for (int block = 0; block < 1000; ++block) b.I16(block % 4).I16(32767);
    ASSERT_FALSE(v.LoadHostile(b.Str()));
    ResetHeapPeak();
    const std::vector<char> held(kMostMemory + 1);
    EXPECT_GT(HeapPeak(), kMostMemory) << "the measurement itself";
}

TEST(HostileSession, AStringOfNegativeOrHugeLengthAndAnUnknownTypeAreRefused) {
    Victim v;
    for (const int length : {-1, -32768, 32767}) {
        Bytes b;
        PutHead(b);
        b.I16(8).I16(length).Raw("Settings");
        ASSERT_FALSE(v.LoadHostile(b.Str())) << length;
    }
    for (const int code : {0, 1, 4, 6, 7, 9, 10, 12, -1, 32767}) {
        Bytes b;
        PutHead(b);
        b.I16(code).I16(0).I16(0).TagText("END");
        ASSERT_FALSE(v.LoadHostile(b.Str())) << code;
    }
}

TEST(HostileSession, ANegativeIndexIsASubscriptOutOfRange) {
    Victim v;
    GoldenLoop loop;
    loop.Index = -1;
    Bytes b;
    PutHead(b);
    PutLoops(b, {loop});
    EXPECT_FALSE(v.LoadHostile(b.TagText("END").Str()));
    EXPECT_EQ(v.Desk.LastBox(), "Error Opening Subscript out of range");
}

TEST(HostileSession, AHistoryBelowTheFirstRowIsASubscriptOutOfRange) {
    Victim v;
    Bytes b;
    PutHead(b);
    b.TagText("History").I16(1).I16(-1).I16(1).TagText("/x.wav").TagText("END");
    EXPECT_FALSE(v.LoadHostile(b.Str()));
    EXPECT_EQ(v.Desk.LastBox(), "Error Opening Subscript out of range");
}

TEST(HostileSession, ASettingThatIsNoNumberOrDoesNotFitIsReported) {
    Victim v;
    const auto settings = [](const std::function<void(Bytes&)>& pair) {
        Bytes b;
        PutHead(b);
        b.TagText("Settings").TagI32(1);
        pair(b);
        return b.TagText("END").Str();
    };
    EXPECT_FALSE(v.LoadHostile(settings([](Bytes& b) { b.TagText("TopTab").TagText("x"); })));
    EXPECT_EQ(v.Desk.LastBox(), "Error Opening Type mismatch");
    EXPECT_FALSE(v.LoadHostile(settings([](Bytes& b) { b.TagText("TopTab").TagI32(99999); })));
    EXPECT_EQ(v.Desk.LastBox(), "Error Opening Overflow");
}

TEST(HostileSession, SettingsThatTheirControlsCannotShowAreIgnored) {
    Victim v;
    v.s.JoyEnabled = true;
    Bytes b;
    PutHead(b);
    b.TagText("Settings").TagI32(16);
    b.TagText("Limit").TagText("99").TagText("JoyFactor 0").TagI16(-5).TagText("Button 0").TagI16(32767);
    b.TagText("Button 1").TagI16(-1).TagText("Axis 0").TagI16(2).TagText("FadeFunc 0").TagI16(0);
    b.TagText("FadeFunc 3").TagI16(4).TagText("NDevices").TagI16(3).TagText("DeviceNum").TagI16(3);
    b.TagText("FadeFactor").TagF64(std::numeric_limits<double>::quiet_NaN()).TagText("TopTab").TagI16(4);
    b.TagText("DialAxis").TagI16(-1).TagText("TimingRes").TagI16(0).TagText("PositionUpdate 0").TagI16(2);
    b.TagText("JoyRelative 0").TagI16(2).TagText("Restore").TagI16(2);
    const auto functions = v.s.PadTable[0].Function;
    ASSERT_TRUE(v.LoadHostile(b.TagText("END").Str())) << v.Desk.LastBox();
    EXPECT_EQ(v.s.Limit, 4);
    EXPECT_EQ(v.s.Joy.Factor[0], 100);
    EXPECT_EQ(v.s.Joy.Button[0], 0);
    EXPECT_EQ(v.s.Joy.Button[1], 2);
    EXPECT_EQ(v.s.Joy.Axis[0], 0);
    EXPECT_EQ(v.s.PadTable[0].Function, functions);
    EXPECT_EQ(v.s.Driver, 0);
    EXPECT_EQ(v.s.FadeStep, 2);
    EXPECT_EQ(v.s.ActiveTab, 0);
    EXPECT_EQ(v.s.DragAxis, 1);
    EXPECT_EQ(v.s.TimingRes, 10);
}

TEST(HostileSession, ValuesOutOfEveryRangeGoThroughTheSettersAndTheClockGoesOn) {
    Victim v;
    for (const int value : {-32768, -1, 0, 32767}) {
        for (const unsigned channel : {0U, 255U}) {
            SCOPED_TRACE(value);
            GoldenLoop loop;
            loop.FileName = v.Folder / "a.wav";
            loop.Hz = loop.Vol = loop.Pan = loop.PlayMode = loop.Selected = loop.Thinnable = value;
            loop.NSteps = value == 32767 ? 32000 : value;
            loop.Channel = channel;
            loop.StepDuration = loop.Swing = loop.BeatStart = value < 0 ? -2147483647 : value == 0 ? 0 : 2147483647;
            loop.Length = std::numeric_limits<double>::quiet_NaN();
            loop.Pattern = value;
            Bytes b;
            PutHead(b);
            PutLoops(b, {loop});
            ASSERT_TRUE(v.LoadHostile(b.TagText("END").Str())) << v.Desk.LastBox();
            const LoopTrackSet& set = v.s.Set[0];
            EXPECT_GE(set.Hz, 1);
            EXPECT_LE(set.Hz, 4000);
            EXPECT_GE(set.Vol, 0);
            EXPECT_LE(set.Vol, 500);
            EXPECT_GE(set.Pan, 0);
            EXPECT_LE(set.Pan, 1000);
            EXPECT_EQ(set.Channel, channel == 0 ? 1 : 8);
            EXPECT_GE(set.NSteps, 0);
            EXPECT_LE(set.NSteps, 31);
            EXPECT_GE(set.PlayMode, 0);
            EXPECT_LE(set.PlayMode, 3);
            EXPECT_LE(set.BeatStart, 100);
            // Patterns are copied unchanged.
            EXPECT_EQ(set.Pattern[0][0], static_cast<std::int16_t>(value));
            v.Play();
            EXPECT_LE(v.s.Run[0].Step, 31);
        }
    }
}

TEST(HostileSession, APositionThatIsNoNumberIsIgnored) {
    Victim v;
    v.s.Use3D = true;
    v.s.Set[0].PositionX = 0.5F;
    GoldenLoop loop;
    loop.PositionX = std::numeric_limits<float>::quiet_NaN();
    loop.PositionY = std::numeric_limits<float>::infinity();
    Bytes b;
    PutHead(b);
    PutLoops(b, {loop}, true);
    ASSERT_TRUE(v.LoadBytes(b.TagText("END").Str(), AllBut(Element::ThreeD)));
    EXPECT_EQ(v.s.Set[0].PositionX, 0.5F);
}

TEST(HostileSession, AMapSizeOrRollOffThatIsNoNumberIsIgnored) {
    Victim v;
    for (const double size :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e300, -1e300}) {
        Bytes b;
        PutHead(b);
        b.TagText("ThreeD").I16(-1).F32(static_cast<float>(size)).F64(size).TagText("END");
        ASSERT_TRUE(v.LoadHostile(b.Str()));
        EXPECT_GE(v.s.MapRange, 0.25);
        EXPECT_LE(v.s.MapRange, 5.0);
        EXPECT_TRUE(v.s.RollOffValue >= 0 && v.s.RollOffValue <= 10);
    }
    for (const float rollOff : {-3.0F, 50.0F}) {
        Bytes b;
        PutHead(b);
        b.TagText("ThreeD").I16(-1).F32(rollOff).F64(3).TagText("END");
        ASSERT_TRUE(v.LoadHostile(b.Str()));
        EXPECT_EQ(v.s.RollOffValue, rollOff < 0 ? 0.0F : 10.0F);
    }
}

TEST(HostileSession, ClipsBeforeTheDamageStayAndAreShown) {
    Victim v;
    Bytes b;
    PutHead(b);
    PutClips(b, std::vector<GoldenLoop>(3));
    std::string bytes = b.Str();
    // The last clip claims a longer name than the file holds.
    bytes.replace(bytes.size() - 255, 2, Bytes().I16(30000).Str());
    v.Screen.Log.clear();
    ASSERT_FALSE(v.LoadHostile(bytes));
    EXPECT_EQ(v.s.Clips.ClipTop, 1);
    EXPECT_EQ(v.Screen.Count("ShowClips"), 1);
}

TEST(HostileSession, AFullClipBoardIsReportedOnceAndTheNextSectionIsRead) {
    Victim v;
    Bytes b;
    PutHead(b);
    std::vector<GoldenLoop> clips(2010);
    PutClips(b, clips);
    PutHistory(b);
    ASSERT_TRUE(v.LoadHostile(b.TagText("END").Str()));
    EXPECT_EQ(v.s.Clips.ClipTop, 2000);
    ASSERT_EQ(v.Desk.Boxes.size(), 1U);
    EXPECT_EQ(v.Desk.LastBox(), "Too many LoopTracks on ClipBoard.");
    EXPECT_EQ(v.s.History[0].size(), 2U);
}

}  // namespace
}  // namespace marvolin

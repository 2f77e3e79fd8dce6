#include "instrument/keyboard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/play_commands.h"
#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Keys : Instrument {
    Keys() {
        for (Row row = 0; row < kLoopTracks; ++row) Fill(row, "/" + std::to_string(row) + ".WAV");
    }
};

TEST(Keyboard, LettersAToDPlayAndStopTheirRows) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        Keys i;
        Form_KeyUp(i.s, 'A' + row, kNoShift);
        for (Row each = 0; each < kLoopTracks; ++each) EXPECT_EQ(i.s.Run[each].Playing, ToBoolean(each == row));
        Form_KeyUp(i.s, 'A' + row, kNoShift);
        EXPECT_EQ(i.s.Run[row].Playing, False);
    }
}

TEST(Keyboard, AKeyResumesAPausedRow) {
    Keys i;
    LoopPlay(i.s, 1, true);
    LoopPlayCommand(i.s, 1, PlayCommand::Pause);
    Form_KeyUp(i.s, 'B', kNoShift);
    EXPECT_EQ(i.s.Run[1].Paused, False);
    EXPECT_EQ(i.s.Run[1].Playing, True);
}

TEST(Keyboard, EAndZActAsRowFour) {
    for (const int key : {'E', 'Z'}) {
        Keys i;
        i.Select(1);
        i.Select(2);
        Form_KeyUp(i.s, key, kNoShift);
        EXPECT_EQ(i.s.ThinList, "BC");
        EXPECT_EQ(i.s.Run[kSelectionRow].Playing, True);
        Form_KeyUp(i.s, key, kNoShift);
        EXPECT_EQ(i.s.ThinList, "");
    }
}

TEST(Keyboard, FDoesNothingWithoutAMessage) {
    Keys i;
    Form_KeyUp(i.s, 'F', kNoShift);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_EQ(i.s.Run[5].Playing, False);
}

TEST(Keyboard, GToPShowTheErrorBoxOfThePlayButton) {
    for (int key = 'G'; key <= 'P'; ++key) {
        Keys i;
        Form_KeyUp(i.s, key, kNoShift);
        ASSERT_EQ(i.Desk.Boxes.size(), 1U) << key;
        EXPECT_EQ(i.Desk.LastBox(), "Error stopping/playing loop: ");
        EXPECT_THAT(i.Sound.Log, IsEmpty());
    }
}

TEST(Keyboard, OtherKeysAreIgnored) {
    Keys i;
    i.Select(0);
    for (int key = 0; key < 256; ++key) {
        if ((key >= 'A' && key <= 'P') || key == 'Z') continue;
        for (const int shift : {kNoShift, kShiftKey, kCtrlKey, kAltKey}) Form_KeyUp(i.s, key, shift);
    }
    EXPECT_THAT(i.Sound.Log, IsEmpty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(i.s.Run[row].FadeState, kNoFade);
}

TEST(Keyboard, ShiftFadesUpCtrlDownAndAltInTheOtherDirection) {
    const struct {
        int shift;
        std::int16_t vol;
        std::int16_t state;
    } kCases[] = {{kShiftKey, 200, kRising}, {kShiftKey, 0, kRising},  {kCtrlKey, 200, kFalling},
                  {kCtrlKey, 0, kFalling},   {kAltKey, 200, kFalling}, {kAltKey, 0, kRising}};
    for (const auto& c : kCases) {
        SCOPED_TRACE(std::to_string(c.shift) + " at " + std::to_string(c.vol));
        Keys i;
        i.s.Set[2].Vol = c.vol;
        Form_KeyUp(i.s, 'C', c.shift);
        EXPECT_EQ(i.s.Run[2].FadeState, c.state);
        EXPECT_EQ(i.s.Run[1].FadeState, kNoFade);
        EXPECT_EQ(i.s.Run[2].Playing, False);
    }
}

TEST(Keyboard, AFadeOfRowFourActsOnTheControlledRows) {
    for (const int key : {'E', 'Z'}) {
        Keys i;
        i.Select(0);
        i.Select(3);
        Form_KeyUp(i.s, key, kCtrlKey);
        EXPECT_EQ(i.s.Run[0].FadeState, kFalling);
        EXPECT_EQ(i.s.Run[1].FadeState, kNoFade);
        EXPECT_EQ(i.s.Run[3].FadeState, kFalling);
    }
}

TEST(Keyboard, AFadeBeyondRowFourDoesNothing) {
    for (int key = 'F'; key <= 'P'; ++key) {
        Keys i;
        Form_KeyUp(i.s, key, kShiftKey);
        EXPECT_TRUE(i.Desk.Boxes.empty()) << key;
    }
}

}  // namespace
}  // namespace marvolin

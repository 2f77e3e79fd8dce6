#include "performance/pad/pad_tables.h"

#include <gtest/gtest.h>

#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;

TEST(PadTables, StartWithTheTableOfTypes) {
    Surfaces i;
    struct Line {
        Colour Back;
        int Icon, Function, TwistIcon, TwistTarget;
    };
    const std::array<Line, 5> lines{{{{237, 226, 197}, 1, 1, 2, 1},
                                     {{234, 237, 197}, 1, 1, 2, 2},
                                     {{190, 211, 212}, 0, 2, 0, 3},
                                     {{212, 212, 212}, 2, 1, 1, 0},
                                     {{163, 167, 130}, 0, 0, 4, 0}}};
    for (std::size_t type = 0; type < lines.size(); ++type) {
        SCOPED_TRACE(type);
        const PadRecord& pad = i.s.PadTable[type];
        EXPECT_EQ(pad.BackColor, lines[type].Back);
        EXPECT_EQ(pad.Icon, lines[type].Icon);
        EXPECT_EQ(pad.Function, lines[type].Function);
        EXPECT_EQ(pad.TwistIcon, lines[type].TwistIcon);
        EXPECT_EQ(pad.TwistTarget, lines[type].TwistTarget);
        EXPECT_EQ(pad.X, 0);
        EXPECT_EQ(pad.Y, 0);
    }
    EXPECT_EQ(i.s.PadTypeIndex, 2);
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_TRUE(i.s.CursorFree);
}

TEST(PadTables, TheListsHoldTheirTexts) {
    EXPECT_THAT(kPadTypeTexts, testing::ElementsAre("300 Pitch", "400 Pitch", "Vol", "Pan"));
    EXPECT_EQ(kPadCurves[0].Function, 1);
    EXPECT_EQ(kPadCurves[0].Text, "Fde Dgnl");
    EXPECT_EQ(kPadCurves[1].Function, 2);
    EXPECT_EQ(kPadCurves[1].Text, "Fde aftr Centr");
    EXPECT_EQ(kPadCurves[2].Function, 3);
    EXPECT_EQ(kPadCurves[2].Text, "Fde aftr Side Centr");
}

TEST(PadTables, TheStartRunsTheClickOfVol) {
    Surfaces i;
    i.s.ChannelVol[1] = 77;
    PadTablesInit(i.s);
    EXPECT_EQ(i.s.ChannelVol[1], 0);
    EXPECT_GE(i.Screen.Count("ShowPad"), 1);
    EXPECT_GE(i.Screen.Count("ShowTwist"), 1);
    EXPECT_EQ(i.s.StatusText, "W: 500, WB: 500, BW: 500, B: 500, ");
}

TEST(PadType, AClickRecentresTheTypeThatIsLeftAndKeepsTheLevelsOfTheNewOne) {
    Surfaces i;
    i.Fill(0);
    i.s.TwistPosition = 9;
    PadMove(i.s, 500, 500, 500.0, {.Absolute = true, .Apply = true});
    EXPECT_EQ(i.s.ChannelVol[1], 500);
    i.s.ChannelPan[1] = 123;
    i.Clear();
    PadType_Click(i.s, 3);
    EXPECT_EQ(i.s.PadTypeIndex, 3);
    EXPECT_EQ(i.s.ChannelVol[1], 0);
    EXPECT_EQ(i.s.PadTable[2].X, 0);
    EXPECT_EQ(i.s.PadTable[2].Y, 0);
    EXPECT_EQ(i.s.ChannelPan[1], 123);
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_EQ(i.Sound.Count("SetVolume b0"), 1);
    EXPECT_EQ(i.Sound.Count("SetPan"), 0);
    EXPECT_EQ(PadBallFace(i.s), 4);
    EXPECT_EQ(i.Screen.Count("ShowPad"), 1);
    const BallPoint centre = PadBallPlace(i.s);
    EXPECT_EQ(centre.X, Surfaces::kHalf - 127.5);
    EXPECT_EQ(centre.Y, Surfaces::kHalf - 127.5);
}

TEST(PadType, LeavingVolOnThePlainCurveLeavesEveryChannelHalfAttenuated) {
    Surfaces i;
    i.s.PadTable[2].Function = 1;
    PadType_Click(i.s, 0);
    for (int c = 1; c <= 4; ++c) EXPECT_EQ(i.s.ChannelVol[c], 250);
}

TEST(PadFunction, AClickStoresTheCurveOfTheCurrentTypeAlone) {
    Surfaces i;
    PadFunction_Click(i.s, 3);
    EXPECT_EQ(i.s.PadTable[2].Function, 3);
    EXPECT_EQ(i.s.PadTable[0].Function, 1);
    EXPECT_EQ(i.s.PadTypeIndex, 2);
}

TEST(PadFunction, ChoosingTheSameEntryAgainRecentresTheBall) {
    Surfaces i;
    PadMove(i.s, 300, 200, 500.0, {.Absolute = true, .Apply = true});
    EXPECT_NE(i.s.PadTable[2].X, 0);
    PadFunction_Click(i.s, 2);
    EXPECT_EQ(i.s.PadTable[2].X, 0);
    EXPECT_EQ(i.s.PadTable[2].Y, 0);
    EXPECT_EQ(i.s.StatusText, "W: 500, WB: 500, BW: 500, B: 500, ");
}

TEST(PadTwist, ShowsTheFaceOfTheTypeOrHidesTheBall) {
    Surfaces i;
    EXPECT_EQ(PadTwistFace(i.s, 0), 3);
    EXPECT_EQ(PadTwistFace(i.s, 2), 1);
    EXPECT_EQ(PadTwistFace(i.s, 3), 2);
    EXPECT_EQ(PadTwistFace(i.s, 4), 0);
    PadTwistShow(i.s, 2);
    EXPECT_EQ(i.Screen.Count("ShowTwist"), 1);
}

}  // namespace
}  // namespace marvolin

#include "performance/map/sound_map.h"

#include <gtest/gtest.h>

#include <cmath>

#include "parameters/position.h"
#include "performance/map/listener.h"
#include "performance/map/scatter.h"
#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;

TEST(SoundMap, TheStartPutsTheListenerInTheMiddleAndRaisesTheBallsFromTheListenerDown) {
    Surfaces i;
    i.s.ListenerX = 1;
    i.s.ListenerAngle = 90;
    i.s.CursorFree = false;
    i.s.RollOffValue = 0;
    i.s.MapRange = 4;
    i.s.MapSize = 80;
    i.Clear();
    MapInit(i.s);
    EXPECT_TRUE(i.s.CursorFree);
    EXPECT_EQ(i.s.ListenerX, 0);
    EXPECT_EQ(i.s.ListenerAngle, 0);
    EXPECT_EQ(i.s.RollOffValue, 1.0F);
    EXPECT_EQ(i.s.MapRange, 1.5);
    EXPECT_EQ(i.s.MapSize, 30);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_EQ(i.Screen.Count("ShowListenerFace"), 1);
    std::vector<std::string> raised;
    for (const std::string& entry : i.Screen.Log) {
        if (entry.starts_with("RaiseMapBall")) raised.push_back(entry);
    }
    EXPECT_THAT(raised, testing::ElementsAre("RaiseMapBall 4", "RaiseMapBall 3", "RaiseMapBall 2", "RaiseMapBall 1",
                                             "RaiseMapBall 0"));
    for (int ball = 0; ball < 5; ++ball) EXPECT_EQ(i.Screen.Count("ShowMapBall " + std::to_string(ball)), 1);
}

TEST(SoundMap, AMoveIsStoredInTwipsAndInMapUnitsAndShownCutToTwoDecimals) {
    Surfaces i;
    PosMove(i.s, 710, -355, 2, {.Absolute = true, .Apply = true});
    EXPECT_EQ(i.s.BallPos[2].X, 710);
    EXPECT_EQ(i.s.BallPos[2].Y, -355);
    EXPECT_FLOAT_EQ(i.s.Set[2].PositionX, 0.5F);
    EXPECT_FLOAT_EQ(i.s.Set[2].PositionY, -0.25F);
    EXPECT_EQ(i.s.StatusText, "0.5, -0.25");
    PosMove(i.s, 10, 10, 2, {.Absolute = false, .Apply = true});
    EXPECT_EQ(i.s.BallPos[2].X, 720);
    EXPECT_EQ(i.s.BallPos[2].Y, -345);
    // 0.50704..., -0.24295...: cut down, not rounded.
    EXPECT_EQ(i.s.StatusText, "0.5, -0.25");
    PosMove(i.s, 0, 0, 2, {.Absolute = true, .Apply = true});
    EXPECT_EQ(i.s.StatusText, "0, 0");
}

TEST(SoundMap, APlaceIsCutInThePrecisionInWhichItIsStored) {
    Surfaces i;
    // 0.7 and 1.1 are less than 70 and 110 hundredths in double precision, but not in single.
    PosScaled(i.s, 0.7, 1.1, 0, 1.5, {.Absolute = true, .Apply = true});
    EXPECT_EQ(i.s.StatusText, "0.7, 1.1");
    // Just left of the middle is cut to -0.01; zero has no sign.
    PosMove(i.s, -0.1, -0.0, 0, {.Absolute = true, .Apply = true});
    EXPECT_EQ(i.s.StatusText, "-0.01, 0");
}

TEST(SoundMap, TheListenerMovesInItsOwnPlace) {
    Surfaces i;
    PosMove(i.s, -2130, 1065, kListenerBall, {.Absolute = true, .Apply = true});
    EXPECT_EQ(i.s.ListenerX, -1.5);
    EXPECT_EQ(i.s.ListenerY, 0.75);
    EXPECT_EQ(i.s.StatusText, "-1.5, 0.75");
    EXPECT_EQ(i.s.Set[4].PositionX, 0);
}

TEST(SoundMap, AMoveBeyondTheEdgeIsClampedToTheMap) {
    Surfaces i;
    PosMove(i.s, 99999, -99999, 0, {.Absolute = true, .Apply = true});
    EXPECT_EQ(i.s.BallPos[0].X, Surfaces::kHalf);
    EXPECT_EQ(i.s.BallPos[0].Y, -Surfaces::kHalf);
    EXPECT_EQ(i.s.Set[0].PositionX, 1.5F);
    EXPECT_EQ(i.s.Set[0].PositionY, -1.5F);
}

TEST(SoundMap, OnAMapThatIsNotSquareYGoesInByTheHeightAndComesOutByTheWidth) {
    Surfaces i;
    PadGeometryInit(i.s, 4500, 2370);
    PosScaled(i.s, 50, 50, 1, 100, {.Absolute = true, .Apply = true});
    EXPECT_EQ(i.s.BallPos[1].X, 1065);
    EXPECT_EQ(i.s.BallPos[1].Y, 532.5);
    EXPECT_FLOAT_EQ(i.s.Set[1].PositionX, 0.75F);
    EXPECT_FLOAT_EQ(i.s.Set[1].PositionY, 0.375F);
}

TEST(SoundMap, With3DTheServiceGetsTheFlatPlaceOfALoadedLoopTrackAndOfTheListener) {
    Surfaces i;
    i.Use3D();
    i.Fill(1);
    PosMove(i.s, 1065, -2130, 1, {.Absolute = true, .Apply = true});
    PosMove(i.s, 1065, -2130, 0, {.Absolute = true, .Apply = true});
    PosMove(i.s, -1065, 0, kListenerBall, {.Absolute = true, .Apply = true});
    PosMove(i.s, 1065, 0, 1, {.Absolute = true, .Apply = false});
    EXPECT_THAT(i.Sound.Log, testing::ElementsAre("SetPosition b0 0.750000,0.000000,-1.500000",
                                                  "SetListenerPosition -0.750000,0.000000,0.000000"));
    EXPECT_EQ(i.Screen.Count("ShowMapBall 1"), 2);
}

TEST(SoundMap, With3DOffEveryPlaceIsStillStoredAndNoAudioCallIsMadeAndTheBallsAreDisabled) {
    Surfaces i;
    i.Fill(0);
    PosMove(i.s, 1065, 0, 0, {.Absolute = true, .Apply = true});
    PosMove(i.s, 0, 1065, kListenerBall, {.Absolute = true, .Apply = true});
    EXPECT_FLOAT_EQ(i.s.Set[0].PositionX, 0.75F);
    EXPECT_EQ(i.s.ListenerY, 0.75);
    EXPECT_EQ(i.s.BallPos[4].Y, 1065);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_FALSE(i.s.MapEnabled);
}

TEST(SoundMap, ADoubleClickOnABallSendsTheSoundToTheMiddleWhateverTheBoxesSay) {
    Surfaces i;
    i.Use3D();
    i.Fill(3);
    i.s.PositionUpdate = Table<bool, 3>{{{false, false, false}}};
    PosMove(i.s, 500, 500, 3, {.Absolute = true, .Apply = true});
    i.Sound.Log.clear();
    PosBall_DblClick(i.s, 3);
    EXPECT_EQ(i.s.Set[3].PositionX, 0);
    EXPECT_EQ(i.s.Set[3].PositionY, 0);
    EXPECT_EQ(i.Sound.Count("SetPosition b0 0.000000,0.000000,0.000000"), 1);
}

TEST(SoundMap, CentreAllPutsAllFiveBallsInTheMiddle) {
    Surfaces i;
    for (int ball = 0; ball < 5; ++ball) PosMove(i.s, 100, 200, ball, {.Absolute = true, .Apply = true});
    CentreAll_Click(i.s);
    for (int ball = 0; ball < 5; ++ball) {
        EXPECT_EQ(i.s.BallPos[ball].X, 0);
        EXPECT_EQ(MapUnits(i.s, ball).Y, 0);
    }
}

TEST(SoundMap, CentreAllIsHeardFromTheFirstLoopTrackToTheListener) {
    Surfaces i;
    i.Use3D();
    i.s.PositionUpdate = Table<bool, 3>{{{false, false, false}}};
    i.Fill(1);
    CentreAll_Click(i.s);
    EXPECT_THAT(i.Sound.Log, testing::ElementsAre("SetPosition b0 0.000000,0.000000,0.000000",
                                                  "SetListenerPosition 0.000000,0.000000,0.000000"));
    std::vector<std::string> shown;
    for (const std::string& entry : i.Screen.Log) {
        if (entry.starts_with("ShowMapBall")) shown.push_back(entry);
    }
    EXPECT_THAT(shown, testing::ElementsAre("ShowMapBall 0", "ShowMapBall 1", "ShowMapBall 2", "ShowMapBall 3",
                                            "ShowMapBall 4"));
}

TEST(SoundMap, PosPopBringsTheListenerBackOntoTheMapAndToTheFront) {
    Surfaces i;
    i.Use3D();
    i.s.ActiveTab = kMapTab;
    i.s.ListenerX = 9;
    i.s.ListenerY = -9;
    PosPop_Click(i.s);
    EXPECT_EQ(i.s.ListenerX, 1.5);
    EXPECT_EQ(i.s.ListenerY, -1.5);
    EXPECT_EQ(i.Screen.Count("ShowMapBall 4"), 1);
    EXPECT_EQ(i.Screen.Count("RaiseMapBall 4"), 1);
}

TEST(SoundMap, PosPopSendsNothingAndLeavesThePlaceFromWhichAMoveCounts) {
    Surfaces i;
    i.Use3D();
    i.s.ListenerX = 9;
    i.s.BallPos[kListenerBall] = {123, -456};
    PosPop_Click(i.s);
    EXPECT_EQ(i.s.ListenerX, 1.5);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_EQ(i.s.BallPos[kListenerBall].X, 123);
    EXPECT_EQ(i.s.BallPos[kListenerBall].Y, -456);
}

TEST(SoundMap, TheStartSendsTheHeading) {
    Surfaces i;
    i.Use3D();
    MapInit(i.s);
    EXPECT_EQ(i.Sound.Count("SetOrientation 0.000000,0.000000,1.000000 0.000000,1.000000,0.000000"), 1);
}

TEST(SoundMap, ThePlacesAreShownAsTheyAreCutInTheStatusLine) {
    Surfaces i;
    PosScaled(i.s, 0.7, 1.1, 0, 1.5, {.Absolute = true, .Apply = true});
    EXPECT_EQ(ShownPlace(i.s, 0).X, 0.7);
    EXPECT_EQ(ShownPlace(i.s, 0).Y, 1.1);
    i.s.ListenerX = -0.255;
    EXPECT_EQ(ShownPlace(i.s, kListenerBall).X, -0.26);
    EXPECT_EQ(ShownPlace(i.s, kListenerBall).Y, 0);
}

TEST(MapSize, AfterAChangeTheBallsHaveMovedOnTheScreenAndThePlacesStay) {
    Surfaces i;
    i.Use3D();
    PosMove(i.s, 1065, -1065, 0, {.Absolute = true, .Apply = true});
    const float x = i.s.Set[0].PositionX;
    const double left = MapBallPlace(i.s, 0).X;
    i.Clear();
    SetMapSize(i.s, 6.0);
    EXPECT_EQ(i.s.MapSize, 60);
    EXPECT_EQ(i.s.MapRange, 3.0);
    EXPECT_EQ(i.s.Set[0].PositionX, x);
    EXPECT_DOUBLE_EQ(i.s.BallPos[0].X, 532.5);
    EXPECT_DOUBLE_EQ(i.s.BallPos[0].Y, -532.5);
    EXPECT_EQ(MapBallPlace(i.s, 0).X, left - 532.5);
    for (int ball = 0; ball < 5; ++ball) EXPECT_EQ(i.Screen.Count("ShowMapBall " + std::to_string(ball)), 1);
    EXPECT_TRUE(i.Sound.Log.empty());
}

TEST(MapSize, AfterAChangeARelativeMoveOfTheListenerStartsFromThePlaceOfRowFour) {
    Surfaces i;
    PosMove(i.s, 1000, 1000, kListenerBall, {.Absolute = true, .Apply = true});
    i.s.Set[4].PositionX = 0.5F;
    MapSize_Change(i.s, 20);
    EXPECT_EQ(i.s.BallPos[4].X, 1065);
    EXPECT_EQ(i.s.BallPos[4].Y, 0);
    EXPECT_NE(i.s.ListenerX, 0);
    PosMove(i.s, 0, 0, kListenerBall, {.Absolute = false, .Apply = true});
    EXPECT_EQ(i.s.ListenerX, 0.5);
}

TEST(MapSize, IsLimitedToTheGauge) {
    Surfaces i;
    SetMapSize(i.s, 0.1);
    EXPECT_EQ(i.s.MapSize, 5);
    EXPECT_EQ(i.s.MapRange, 0.25);
    SetMapSize(i.s, 1e9);
    EXPECT_EQ(i.s.MapSize, 100);
    EXPECT_EQ(i.s.MapRange, 5.0);
    MapSize_Change(i.s, -3);
    EXPECT_EQ(i.s.MapSize, 5);
}

TEST(MapSize, WhileTheGaugeMovesTheBallsFollowAndTheSideIsShownTwice) {
    Surfaces i;
    i.Use3D();
    PosMove(i.s, 1065, 0, 0, {.Absolute = true, .Apply = true});
    i.Clear();
    MapSize_Moving(i.s, 42);
    EXPECT_EQ(i.s.StatusText, "4.2 x 4.2");
    EXPECT_EQ(i.s.MapRange, 2.1);
    EXPECT_EQ(i.s.MapSize, 42);
    EXPECT_EQ(i.Screen.Count("ShowMapBall 0"), 1);
    EXPECT_EQ(i.Screen.Count("ShowMapSize"), 1);
    EXPECT_FLOAT_EQ(i.s.Set[0].PositionX, 0.75F);
    MapSize_Moving(i.s, 5);
    EXPECT_EQ(i.s.StatusText, ".5 x .5");
    MapSize_Moving(i.s, 400);
    EXPECT_EQ(i.s.StatusText, "10. x 10.");
    EXPECT_EQ(i.s.MapRange, 5);
}

TEST(TenthsText, ShowsNoDigitThatIsNotNeededAndAlwaysThePoint) {
    for (const auto& [tenths, text] :
         {std::pair<std::int16_t, const char*>{0, "."}, {5, ".5"}, {10, "1."}, {30, "3."}, {35, "3.5"}, {100, "10."}}) {
        EXPECT_EQ(TenthsText(tenths), text);
    }
}

TEST(RollOff, ClickingTheGaugeWithTheRightButtonResetsItToOne) {
    Surfaces i;
    i.Use3D();
    RollOff_Release(i.s, kLeftButton, 37);
    EXPECT_EQ(i.s.RollOffValue, 3.7F);
    i.Clear();
    RollOff_Release(i.s, kRightButton, 37);
    EXPECT_EQ(i.s.RollOff, 10);
    EXPECT_EQ(i.s.StatusText, "RollOff =1");
    EXPECT_EQ(i.s.RollOffValue, 1.0F);
    EXPECT_THAT(i.Sound.Log, testing::ElementsAre("SetRolloffFactor 1.000000"));
}

TEST(RollOff, TheLeftButtonSetsATenthOfTheGaugeAndAnotherButtonNothing) {
    Surfaces i;
    i.Use3D();
    RollOff_Release(i.s, kMiddleButton, 90);
    EXPECT_TRUE(i.Sound.Log.empty());
    RollOff_Release(i.s, kLeftButton, 0);
    EXPECT_EQ(i.s.RollOffValue, 0.0F);
    RollOff_Release(i.s, kLeftButton, 300);
    EXPECT_EQ(i.s.RollOff, 100);
    EXPECT_EQ(i.s.RollOffValue, 10.0F);
}

TEST(RollOff, ShowsTheFactorWhileTheGaugeMoves) {
    Surfaces i;
    i.Use3D();
    RollOff_Moving(i.s, 5);
    EXPECT_EQ(i.s.StatusText, ".5");
    RollOff_Moving(i.s, 20);
    EXPECT_EQ(i.s.StatusText, "2.");
    EXPECT_EQ(i.s.RollOff, 20);
    EXPECT_EQ(i.s.RollOffValue, 1.0F);
    RollOff_Moving(i.s, 400);
    EXPECT_EQ(i.s.StatusText, "10.");
    RollOff_Moving(i.s, -1);
    EXPECT_EQ(i.s.StatusText, ".");
    EXPECT_TRUE(i.Sound.Log.empty());
}

TEST(Gauges, UnderThePointerTheyShowTheirValues) {
    Surfaces i;
    EXPECT_EQ(MapSizeText(i.s), "3. x 3.");
    EXPECT_EQ(RollOffText(i.s), "RollOff =1");
    MapSize_Change(i.s, 55);
    i.s.RollOff = 25;
    EXPECT_EQ(MapSizeText(i.s), "5.5 x 5.5");
    EXPECT_EQ(RollOffText(i.s), "2.5");
}

TEST(RollOff, ARefusalIsShownAndThePlayerGoesOn) {
    Surfaces i;
    i.Use3D();
    i.Sound.Failures["SetRolloffFactor"] = sound_error::kInvalidArgument;
    RollOff_Release(i.s, kLeftButton, 20);
    EXPECT_EQ(i.Desk.LastBox(), "Error setting roll off: An invalid parameter was passed to the returning function.");
}

TEST(SoundMap, ARefusedPlaceIsReportedAndTheBallStays) {
    Surfaces i;
    i.Use3D();
    i.Fill(1);
    PosMove(i.s, 710, 710, 1, {.Absolute = true, .Apply = true});
    PosMove(i.s, 355, 355, kListenerBall, {.Absolute = true, .Apply = true});
    i.Sound.Failures["SetPosition"] = sound_error::kGeneric;
    i.Sound.Failures["SetListenerPosition"] = sound_error::kGeneric;
    i.Clear();
    for (const int ball : {1, kListenerBall}) {
        PosMove(i.s, 100, 100, ball, {.Absolute = false, .Apply = true});
        EXPECT_EQ(i.Desk.LastBox(),
                  "Error placing sound: An undetermined error occurred inside the DirectSound subsystem.");
    }
    EXPECT_EQ(i.Desk.Boxes.size(), 2U);
    EXPECT_FLOAT_EQ(i.s.Set[1].PositionX, 0.5F);
    EXPECT_EQ(i.s.BallPos[1].X, 710);
    EXPECT_FLOAT_EQ(static_cast<float>(i.s.ListenerX), 0.25F);
    EXPECT_EQ(i.s.BallPos[kListenerBall].X, 355);
    EXPECT_EQ(i.s.StatusText, "");
}

TEST(SoundMap, ARefusedPlaceEndsAWanderBeforeItsBoxOpens) {
    Surfaces i;
    i.Use3D();
    for (Row row = 0; row < kLoopTracks; ++row) i.Fill(row);
    PosMacros_Click(i.s, kMacroWander);
    i.Sound.Failures["SetPosition"] = sound_error::kGeneric;
    i.Clear();
    i.Desk.WhenReported = [&] { WanderStep(i.s, 1000); };
    WanderStep(i.s, 100);
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.s.PosMacro, kMacroOff);
    EXPECT_EQ(i.Screen.Count("ShowMapControls"), 1);
}

TEST(Listener, ARefusedHeadingIsReportedAndThePreviousOneStays) {
    Surfaces i;
    i.Use3D();
    RotateListener(i.s, 40, Apply::Yes);
    i.Sound.Failures["SetOrientation"] = sound_error::kInvalidArgument;
    i.Clear();
    RotateListener(i.s, 90, Apply::Yes);
    EXPECT_EQ(i.Desk.LastBox(), "Error turning listener: An invalid parameter was passed to the returning function.");
    EXPECT_EQ(i.s.ListenerAngle, 40);
    EXPECT_EQ(i.Screen.Count("ShowListenerFace"), 0);
    RotateListener(i.s, 90, Apply::No);
    EXPECT_EQ(i.s.ListenerAngle, 90);
}

TEST(Listener, RotatingByMinusTenGives350AndBy720Gives0) {
    Surfaces i;
    for (const auto& [angle, heading] :
         {std::pair{-10, 350}, {720, 0}, {-360, 0}, {-370, 350}, {-32000, 40}, {32000, 320}, {359, 359}, {0, 0}}) {
        RotateListener(i.s, angle, Apply::Yes);
        EXPECT_EQ(i.s.ListenerAngle, heading) << angle;
    }
    EXPECT_EQ(i.Screen.Count("ShowListenerFace"), 8);
    EXPECT_TRUE(i.Sound.Log.empty());
}

TEST(Listener, TheDegreesAreUsedAsRadians) {
    Surfaces i;
    i.Use3D();
    RotateListener(i.s, 90, Apply::Yes);
    const std::string front = test::Text({static_cast<float>(std::sin(90.0)), 0, static_cast<float>(std::cos(90.0))});
    EXPECT_THAT(i.Sound.Log, testing::ElementsAre("SetOrientation " + front + " 0.000000,1.000000,0.000000"));
    EXPECT_TRUE(front.starts_with("0.893997"));
    i.Sound.Log.clear();
    RotateListener(i.s, 10, Apply::No);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_EQ(i.s.ListenerAngle, 10);
}

TEST(Listener, TheFrameIsAFifthOfTheAngleAndTheLastPictureIsNeverShown) {
    for (int angle = 0; angle < 360; ++angle) {
        const int expected = angle >= 355 ? 0 : angle / 5;
        ASSERT_EQ(ListenerFrame(static_cast<std::int16_t>(angle)), expected);
    }
    EXPECT_EQ(ListenerFrame(355), 0);
    EXPECT_EQ(ListenerFrame(354), 70);
}

}  // namespace
}  // namespace marvolin

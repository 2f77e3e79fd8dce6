#include "parameters/position.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// An instrument with a map that is a little higher than wide; a map unit is 1000 twips.
struct MapInstrument : Instrument {
    explicit MapInstrument(bool use3D = true) {
        s.Use3D = use3D;
        s.MapRange = 1.5;
        s.Geometry.PadHalfX = 1500;
        s.Geometry.PadHalfY = 1600;
        s.Geometry.BallCentreX = 127.5;
        s.Geometry.BallCentreY = 128.5;
        s.ActiveTab = kMapTab;
        if (use3D) s.Listener = std::make_unique<test::FakeListener>(Sound);
    }
};

TEST(PositionSet, StoresALoopTracksPlaceAndSendsItToTheServiceWhenApplied) {
    MapInstrument i;
    i.Fill(2);
    PositionSet(i.s, 2, 0.5F, -0.25F, {.Apply = true, .Refresh = false});
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetPosition b0 0.500000,0.000000,-0.250000"));
    EXPECT_EQ(i.s.Set[2].PositionX, 0.5F);
    EXPECT_EQ(i.s.Set[2].PositionY, -0.25F);
    EXPECT_EQ(i.s.BallPos[2].X, 0);
    EXPECT_THAT(i.Screen.Log, IsEmpty());
}

TEST(PositionSet, StoresTheListenersPlaceAndSendsItToTheServiceWhenApplied) {
    MapInstrument i;
    PositionSet(i.s, kListenerBall, 0.5F, -0.25F, {.Apply = true, .Refresh = false, .Quiet = true});
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetListenerPosition 0.500000,0.000000,-0.250000"));
    EXPECT_EQ(i.s.ListenerX, 0.5);
    EXPECT_EQ(i.s.ListenerY, -0.25);
    EXPECT_EQ(i.s.Set[4].PositionX, 0);
}

TEST(PositionSet, WithoutApplyOrWithoutASampleOrWithThreeDimensionsOffOnlyStores) {
    MapInstrument on;
    on.Fill(0);
    PositionSet(on.s, 0, 1, 1, {.Apply = false, .Refresh = false});
    PositionSet(on.s, 1, 1, 1, {.Apply = true, .Refresh = false});
    PositionSet(on.s, kListenerBall, 1, 1, {.Apply = false, .Refresh = false});
    EXPECT_THAT(on.Sound.Log, IsEmpty());
    MapInstrument off(false);
    off.Fill(0);
    PositionSet(off.s, 0, 1, 1, {.Apply = true});
    PositionSet(off.s, kListenerBall, 1, 1, {.Apply = true});
    EXPECT_THAT(off.Sound.Log, IsEmpty());
    EXPECT_EQ(off.Screen.Count("ShowMapBall 0"), 0);
    EXPECT_EQ(off.Screen.Count("ShowMapBall 4"), 0);
    EXPECT_EQ(on.s.Set[0].PositionX, 1);
    EXPECT_EQ(on.s.Set[1].PositionX, 1);
    EXPECT_EQ(on.s.ListenerX, 1);
    EXPECT_EQ(off.s.Set[0].PositionY, 1);
    EXPECT_EQ(off.s.ListenerY, 1);
}

TEST(PositionSet, WithNoDeviceOpenTheListenersPlaceIsStillStored) {
    MapInstrument i;
    i.s.Listener.reset();
    PositionSet(i.s, kListenerBall, 1, 1, {.Apply = true, .Refresh = false});
    EXPECT_EQ(i.s.ListenerX, 1);
}

TEST(PositionSet, NothingIsSentToABufferMadeWithoutThreeDimensions) {
    MapInstrument i(false);
    i.Fill(0);
    i.s.Use3D = true;
    PositionSet(i.s, 0, 1, -1, {.Apply = true, .Refresh = false});
    EXPECT_THAT(i.Sound.Log, IsEmpty());
    EXPECT_EQ(i.s.Set[0].PositionY, -1);
}

TEST(PositionSet, AFailureOfTheServiceRisesAndThePlaceStays) {
    MapInstrument i;
    i.Fill(0);
    i.Sound.Failures["SetPosition"] = sound_error::kGeneric;
    EXPECT_THROW(PositionSet(i.s, 0, 1, 1, {.Apply = true, .StoreBall = true}), SoundError);
    EXPECT_EQ(i.s.Set[0].PositionX, 0);
    EXPECT_THAT(i.Screen.Log, IsEmpty());
}

TEST(PositionSet, StoresTheTwipsByTheHalfWidthOnBothAxes) {
    MapInstrument i;
    PositionSet(i.s, 3, 0.5F, -1.5F, {.Apply = false, .Refresh = false, .StoreBall = true});
    EXPECT_DOUBLE_EQ(i.s.BallPos[3].X, 500);
    EXPECT_DOUBLE_EQ(i.s.BallPos[3].Y, -1500);
    PositionSet(i.s, kListenerBall, -0.5F, 1, {.Apply = false, .Refresh = false, .StoreBall = true});
    EXPECT_DOUBLE_EQ(i.s.BallPos[4].X, -500);
    EXPECT_DOUBLE_EQ(i.s.BallPos[4].Y, 1000);
}

TEST(PositionSet, TheQuietFlagChangesNothing) {
    for (const int ball : {2, kListenerBall}) {
        SCOPED_TRACE(ball);
        MapInstrument loud;
        MapInstrument quiet;
        loud.Fill(2);
        quiet.Fill(2);
        PositionSet(loud.s, ball, 0.5F, -0.25F, {.Apply = true, .StoreBall = true});
        PositionSet(quiet.s, ball, 0.5F, -0.25F, {.Apply = true, .Quiet = true, .StoreBall = true});
        EXPECT_FALSE(loud.Sound.Log.empty());
        EXPECT_EQ(quiet.Sound.Log, loud.Sound.Log);
        EXPECT_EQ(quiet.Screen.Log, loud.Screen.Log);
        EXPECT_EQ(quiet.s.Set[2], loud.s.Set[2]);
        EXPECT_EQ(quiet.s.BallPos[ball].X, loud.s.BallPos[ball].X);
        EXPECT_EQ(quiet.s.ListenerX, loud.s.ListenerX);
    }
}

TEST(PositionRefresh, PlacesTheBallOnlyWithThreeDimensionsOnAndWritesItsPlaceInAnyCase) {
    MapInstrument on;
    PositionSet(on.s, 1, 0, 0, {.Apply = false});
    EXPECT_THAT(on.Screen.Log, ElementsAre("ShowMapBall 1"));
    MapInstrument off(false);
    PositionRefresh(off.s, 1);
    EXPECT_THAT(off.Screen.Log, ElementsAre("ShowMapPlaces"));
}

TEST(PositionRefresh, TheBallIsCentredOnItsMapUnits) {
    MapInstrument i;
    i.s.Set[0].PositionX = 0.5F;
    i.s.Set[0].PositionY = -0.5F;
    EXPECT_DOUBLE_EQ(MapBallPlace(i.s, 0).X, 500 + 1500 - 127.5);
    EXPECT_DOUBLE_EQ(MapBallPlace(i.s, 0).Y, -500 + 1600 - 128.5);
    i.s.ListenerX = 1;
    i.s.ListenerY = -1;
    EXPECT_DOUBLE_EQ(MapBallPlace(i.s, 4).X, 1000 + 1500 - 127.5);
    EXPECT_DOUBLE_EQ(MapBallPlace(i.s, 4).Y, -1000 + 1600 - 128.5);
}

TEST(PosSetHighlight, DoesNothingUnlessTheMapShows) {
    MapInstrument i;
    i.s.ActiveTab = kMixPadTab;
    PosSetHighlight(i.s, 1);
    EXPECT_EQ(i.s.PosHighlight, -1);
    EXPECT_THAT(i.Screen.Log, IsEmpty());
}

TEST(PosSetHighlight, TheOldBallGetsItsNormalFaceTheNewOneItsHighlightedFaceAndTheFront) {
    MapInstrument i;
    PosSetHighlight(i.s, 1);
    EXPECT_THAT(i.Screen.Log, UnorderedElementsAre("ShowMapHighlight 1", "RaiseMapBall 1"));
    EXPECT_TRUE(i.s.BallHighlighted[1]);
    i.Screen.Log.clear();
    PosSetHighlight(i.s, 3);
    EXPECT_THAT(i.Screen.Log, UnorderedElementsAre("ShowMapHighlight 1", "ShowMapHighlight 3", "RaiseMapBall 3"));
    EXPECT_FALSE(i.s.BallHighlighted[1]);
    EXPECT_TRUE(i.s.BallHighlighted[3]);
    i.Screen.Log.clear();
    PosSetHighlight(i.s, 3);
    EXPECT_THAT(i.Screen.Log, IsEmpty());
    EXPECT_EQ(i.s.PosHighlight, 3);
}

TEST(PosSetHighlight, TheListenerOnlyComesToTheFrontAndThePreviousBallKeepsItsFace) {
    MapInstrument i;
    PosSetHighlight(i.s, 1);
    i.Screen.Log.clear();
    PosSetHighlight(i.s, kListenerBall);
    EXPECT_THAT(i.Screen.Log, ElementsAre("RaiseMapBall 4"));
    EXPECT_EQ(i.s.PosHighlight, 4);
    EXPECT_TRUE(i.s.BallHighlighted[1]);
    PosSetHighlight(i.s, 2);
    EXPECT_TRUE(i.s.BallHighlighted[1]);
    EXPECT_TRUE(i.s.BallHighlighted[2]);
    EXPECT_EQ(i.Screen.Count("ShowMapHighlight 1"), 0);
}

TEST(RollOff, IsStoredSentAndShownWithThreeDimensionsOn) {
    MapInstrument i;
    SetRollOff(i.s, 2.5F);
    EXPECT_EQ(GetRoll(i.s), 2.5F);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetRolloffFactor 2.500000"));
    EXPECT_EQ(i.s.RollOff, 25);
    EXPECT_THAT(i.Screen.Log, ElementsAre("ShowRollOff"));
}

TEST(RollOff, IsUnchangedWithThreeDimensionsOff) {
    MapInstrument i(false);
    SetRollOff(i.s, 2.5F);
    EXPECT_EQ(GetRoll(i.s), 0);
    RefreshRollOff(i.s);
    EXPECT_EQ(i.s.RollOff, 10);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
    EXPECT_THAT(i.Screen.Log, IsEmpty());
}

TEST(RollOff, TheGaugeLimitsWhatItShows) {
    MapInstrument i;
    SetRollOff(i.s, 1e9F);
    EXPECT_EQ(i.s.RollOff, 100);
    SetRollOff(i.s, -3);
    EXPECT_EQ(i.s.RollOff, 0);
}

TEST(RollOff, AFailureIsShownAsSettingRollOffAndTheGaugeStays) {
    MapInstrument i;
    i.Sound.Failures["SetRolloffFactor"] = sound_error::kInvalidArgument;
    SetRollOff(i.s, 2);
    EXPECT_THAT(i.Desk.LastBox(), ::testing::StartsWith("Error setting roll off: "));
    EXPECT_EQ(GetRoll(i.s), 2);
    EXPECT_EQ(i.s.RollOff, 10);
}

}  // namespace
}  // namespace marvolin

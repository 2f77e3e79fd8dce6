#include "performance/pad/mix_pad.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>

#include "performance/pad/pad_tables.h"
#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;

constexpr double kPadHalf = Surfaces::kHalf;

/// Mixes a place of the pad under a type and a curve.
void Mix(Surfaces& i, std::int16_t type, std::int16_t function, double x, double y) {
    i.s.PadTable[type].Function = function;
    PadMix(i.s, x, y, type, {.Absolute = true, .Apply = false});
}

std::array<int, 4> Levels(const Surfaces& i, std::int16_t type) {
    const auto& table = type <= 1 ? i.s.ChannelHz : type == 2 ? i.s.ChannelVol : i.s.ChannelPan;
    return {table[1], table[2], table[3], table[4]};
}

using Four = std::array<int, 4>;

TEST(PadGeometry, FollowsFromTheInnerSize) {
    Surfaces i;
    const PadGeometry& g = i.s.Geometry;
    EXPECT_EQ(g.BallHalfX, 120);
    EXPECT_EQ(g.BallHalfY, 120);
    EXPECT_EQ(g.BallSizeX, 240);
    EXPECT_EQ(g.BallSizeY, 240);
    EXPECT_EQ(g.BallCentreX, 127.5);
    EXPECT_EQ(g.BallCentreY, 127.5);
    EXPECT_EQ(g.PadHalfX, 2130);
    EXPECT_EQ(g.PadHalfY, 2130);
    EXPECT_DOUBLE_EQ(g.PadRadius, 2130 * std::sqrt(2.0));
    EXPECT_DOUBLE_EQ(g.PadDiagonal, 2 * 2130 * std::sqrt(2.0));
    EXPECT_DOUBLE_EQ(g.SideCentre, 0.35355339059327379);
    PadGeometryInit(i.s, 3000, 1500);
    EXPECT_EQ(g.PadHalfX, 1380);
    EXPECT_EQ(g.PadHalfY, 630);
    EXPECT_DOUBLE_EQ(g.PadRadius, std::hypot(1380, 630));
}

TEST(PadMix, BallOnTheCentreOfASquarePadGivesTheMiddleOfEachScale) {
    Surfaces i;
    Mix(i, 2, 2, 0, 0);
    EXPECT_EQ(Levels(i, 2), (Four{0, 0, 0, 0}));
    Mix(i, 2, 1, 0, 0);
    EXPECT_EQ(Levels(i, 2), (Four{250, 250, 250, 250}));
    Mix(i, 3, 1, 0, 0);
    EXPECT_EQ(Levels(i, 3), (Four{500, 500, 500, 500}));
    for (const auto pitch : std::initializer_list<std::int16_t>{0, 1}) {
        Mix(i, pitch, 1, 0, 0);
        EXPECT_EQ(Levels(i, pitch), (Four{1000, 1000, 1000, 1000}));
    }
}

TEST(PadMix, BallOnACornerSilencesTheOppositeChannelAfterTheCentre) {
    Surfaces i;
    Mix(i, 2, 2, -kPadHalf, -kPadHalf);
    // The neighbouring corners are at 0.7071 of the diagonal.
    EXPECT_EQ(Levels(i, 2), (Four{0, 207, 500, 207}));
}

TEST(PadMix, BallOnACornerFadesTheNeighboursWhollyAfterTheSideCentre) {
    Surfaces i;
    const std::array<std::array<double, 2>, 4> corners{{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};
    for (std::size_t corner = 0; corner < 4; ++corner) {
        SCOPED_TRACE(corner);
        Mix(i, 2, 3, corners[corner][0] * kPadHalf, corners[corner][1] * kPadHalf);
        Four expected{500, 500, 500, 500};
        expected[corner] = 0;
        EXPECT_EQ(Levels(i, 2), expected);
    }
}

TEST(PadMix, PitchJumpsFromUnityDownToNearNothingAsTheBallCrossesTheThreshold) {
    Surfaces i;
    for (const auto pitch : std::initializer_list<std::int16_t>{0, 1}) {
        for (const auto function : std::initializer_list<std::int16_t>{2, 3}) {
            SCOPED_TRACE(function);
            const double threshold = function == 2 ? 0.5 : i.s.Geometry.SideCentre;
            // Along the diagonal from corner 1; its weight is the share of the diagonal.
            const double at = -kPadHalf + threshold * 2 * kPadHalf;
            Mix(i, pitch, function, at - 2, at - 2);
            EXPECT_EQ(i.s.ChannelHz[1], 1000);
            Mix(i, pitch, function, at + 2, at + 2);
            EXPECT_LT(i.s.ChannelHz[1], 10);
            EXPECT_GE(i.s.ChannelHz[1], 0);
        }
    }
}

TEST(PadMix, OnTheThresholdItselfAChannelIsUntouched) {
    Surfaces i;
    // With this size the middle of a side is exactly on the threshold.
    PadGeometryInit(i.s, 4470, 4470);
    ASSERT_EQ(2115 / i.s.Geometry.PadDiagonal, i.s.Geometry.SideCentre);
    Mix(i, 0, 3, 0, -2115);
    EXPECT_EQ(i.s.ChannelHz[1], 1000);
    EXPECT_EQ(i.s.ChannelHz[2], 1000);
    Mix(i, 0, 2, 0, 0);
    EXPECT_EQ(i.s.ChannelHz[1], 1000);
}

TEST(PadMix, PitchPadsRunFromNothingOnTheCornerToThreeOrFourTimesOnTheOppositeOne) {
    Surfaces i;
    Mix(i, 0, 1, -kPadHalf, -kPadHalf);
    EXPECT_EQ(i.s.ChannelHz[1], 0);
    EXPECT_EQ(i.s.ChannelHz[3], 3000);
    Mix(i, 1, 1, kPadHalf, -kPadHalf);
    EXPECT_EQ(i.s.ChannelHz[2], 0);
    EXPECT_EQ(i.s.ChannelHz[4], 4000);
}

TEST(PadMix, APlaceBeyondTheEdgesIsClampedInTheArgumentsInTheStoreAndInTheBall) {
    Surfaces i;
    double x = 99999;
    double y = -99999;
    PadMix(i.s, x, y, 2, {.Absolute = true, .Apply = false, .ReadOut = false});
    EXPECT_EQ(x, kPadHalf);
    EXPECT_EQ(y, -kPadHalf);
    EXPECT_EQ(i.s.PadTable[2].X, kPadHalf);
    EXPECT_EQ(i.s.PadTable[2].Y, -kPadHalf);
    const BallPoint ball = PadBallPlace(i.s);
    EXPECT_EQ(ball.X, 2 * kPadHalf - 127.5);
    EXPECT_EQ(ball.Y, -127.5);
}

TEST(PadMix, AMoveThatIsNotAbsoluteGoesOnFromTheStoredPlaceOfItsType) {
    Surfaces i;
    i.s.PadTable[2].X = 100;
    i.s.PadTable[2].Y = 200;
    i.s.PadTable[0].X = -7;
    double x = 30;
    double y = -50;
    PadMix(i.s, x, y, 2, {.Absolute = false, .Apply = false, .ReadOut = false});
    EXPECT_EQ(x, 130);
    EXPECT_EQ(y, 150);
    EXPECT_EQ(i.s.PadTable[2].X, 130);
    EXPECT_EQ(i.s.PadTable[0].X, -7);
}

TEST(PadMix, TheThresholdStaysAShareOfTheDiagonalOnAPadThatIsNotSquare) {
    Surfaces i;
    PadGeometryInit(i.s, 9000, 2000);
    const double halfX = i.s.Geometry.PadHalfX;
    const double halfY = i.s.Geometry.PadHalfY;
    // Middle of the short side: far nearer than 0.3536 of the diagonal, so channel 1 is untouched there.
    Mix(i, 2, 3, -halfX, 0);
    EXPECT_EQ(i.s.ChannelVol[1], 0);
    // Middle of the long side: at nearly half the diagonal, so it is not.
    Mix(i, 2, 3, 0, -halfY);
    const double w = halfX / i.s.Geometry.PadDiagonal;
    EXPECT_EQ(i.s.ChannelVol[1], std::lround((w - 0.35355339059327379) / 0.35355339059327379 * 500));
    EXPECT_GT(i.s.ChannelVol[1], 0);
}

TEST(PadMix, TheOneAxisFormFadesTheLeftPairAgainstTheRightPair) {
    Surfaces i;
    i.s.PadTable[2].Function = 1;
    for (const auto& [at, left, right] : {std::tuple{-1.0, 0, 500}, {0.0, 250, 250}, {1.0, 500, 0}, {0.5, 375, 125}}) {
        for (double up : {-kPadHalf, 0.0, 700.0}) {
            double x = at * kPadHalf;
            double y = up;
            PadMix(i.s, x, y, 2, {.Absolute = true, .Apply = false, .ReadOut = false, .TwoAxes = false});
            EXPECT_EQ(Levels(i, 2), (Four{left, right, right, left}));
        }
    }
}

TEST(PadMix, LevelsOnAHalfGoToTheEvenNumber) {
    Surfaces i;
    i.s.PadTable[2].Function = 1;
    // One-axis weights in whole eighths, so that the attenuation is exactly a half.
    i.s.Geometry.PadHalfX = 512;
    for (const auto& [x0, left, right] : {std::tuple{-384.0, 62, 438}, {-128.0, 188, 312}, {128.0, 312, 188}}) {
        double x = x0;
        double y = 0;
        PadMix(i.s, x, y, 2, {.Absolute = true, .Apply = false, .ReadOut = false, .TwoAxes = false});
        EXPECT_EQ(Levels(i, 2), (Four{left, right, right, left})) << x0;
    }
}

TEST(PadMix, IndexZeroOfTheLevelsStaysNeutral) {
    Surfaces i;
    for (std::int16_t type = 0; type <= 3; ++type) Mix(i, type, 1, 800, -300);
    EXPECT_EQ(i.s.ChannelVol[0], 0);
    EXPECT_EQ(i.s.ChannelPan[0], 500);
    EXPECT_EQ(i.s.ChannelHz[0], 1000);
}

TEST(PadMix, TheFifthTypeStoresItsPlaceAndEndsThere) {
    Surfaces i;
    const auto hz = i.s.ChannelHz;
    const auto vol = i.s.ChannelVol;
    const auto pan = i.s.ChannelPan;
    double x = 5;
    double y = 6;
    PadMix(i.s, x, y, 4, {.Absolute = true, .Apply = true});
    EXPECT_EQ(i.s.PadTable[4].X, 5);
    EXPECT_EQ(i.s.PadTable[4].Y, 6);
    EXPECT_EQ(i.s.ChannelHz, hz);
    EXPECT_EQ(i.s.ChannelVol, vol);
    EXPECT_EQ(i.s.ChannelPan, pan);
    EXPECT_EQ(i.s.StatusText, "");
}

TEST(PadMix, ATypeOutsideTheTableIsAnInternalFault) {
    Surfaces i;
    double x = 0;
    double y = 0;
    EXPECT_THROW(PadMix(i.s, x, y, 5, {.Absolute = true, .Apply = true}), SubscriptError);
    EXPECT_THROW(PadMix(i.s, x, y, -1, {.Absolute = true, .Apply = true}), SubscriptError);
}

TEST(PadMix, ReadsOutWhatIsLeftOfTheVolumeThePanAroundTheCentreAndThePitchInPercent) {
    Surfaces i;
    Mix(i, 2, 2, -kPadHalf, -kPadHalf);
    EXPECT_EQ(i.s.StatusText, "W: 500, WB: 293, BW: 0, B: 293, ");
    Mix(i, 3, 1, -kPadHalf, -kPadHalf);
    EXPECT_EQ(i.s.StatusText, "W: -500, WB: 207, BW: 500, B: 207, ");
    Mix(i, 0, 1, -kPadHalf, -kPadHalf);
    EXPECT_EQ(i.s.StatusText, "W: 0, WB: 182.8, BW: 300, B: 182.8, ");
    Mix(i, 1, 1, 0, 0);
    EXPECT_EQ(i.s.StatusText, "W: 100, WB: 100, BW: 100, B: 100, ");
}

TEST(PadMix, SendsOnlyTheParameterOfItsTypeAndOnlyWithApply) {
    Surfaces i;
    i.Fill(0);
    const std::array<std::string, 4> calls{"SetFrequency b0", "SetFrequency b0", "SetVolume b0", "SetPan b0"};
    for (std::int16_t type = 0; type <= 3; ++type) {
        SCOPED_TRACE(type);
        double x = 400;
        double y = 300;
        i.Sound.Log.clear();
        PadMix(i.s, x, y, type, {.Absolute = true, .Apply = false, .ReadOut = false});
        EXPECT_TRUE(i.Sound.Log.empty());
        PadMix(i.s, x, y, type, {.Absolute = true, .Apply = true, .ReadOut = false});
        EXPECT_EQ(i.Sound.Log.size(), 1u);
        EXPECT_EQ(i.Sound.Count(calls[static_cast<std::size_t>(type)]), 1);
        EXPECT_EQ(i.s.StatusText, "");
    }
}

/// The levels computed another way: with the hypotenuse, tables and the rounding of the processor.
int Independent(double weight, int type, int function) {
    const double side = std::sqrt(0.125);
    bool untouched = false;
    if (function == 2) {
        untouched = weight <= 0.5;
        weight = 2 * weight - 1;
    } else if (function == 3) {
        untouched = weight <= side;
        weight = std::min(weight / side - 1, 1.0);
    }
    const double fastSlope = type == 0 ? 4000 : 6000;
    switch (type) {
        case 2:
            return untouched ? 0 : static_cast<int>(std::nearbyint(500 * weight));
        case 3:
            return untouched ? 500 : static_cast<int>(std::nearbyint(1000 * weight));
        default:
            if (untouched) return 1000;
            return static_cast<int>(std::nearbyint(weight <= 0.5 ? 2000 * weight : 1000 + fastSlope * (weight - 0.5)));
    }
}

TEST(PadMix, AgreesWithAnIndependentComputationOverPlacesTypesAndCurves) {
    ASSERT_EQ(std::fegetround(), FE_TONEAREST);
    Surfaces i;
    const double diagonal = std::hypot(2 * kPadHalf, 2 * kPadHalf);
    int places = 0;
    for (std::int16_t type = 0; type <= 3; ++type) {
        for (const auto function : std::initializer_list<std::int16_t>{0, 1, 2, 3, 9}) {
            for (int column = -21; column <= 21; ++column) {
                for (int row = -21; row <= 21; ++row) {
                    const double x = column * kPadHalf / 21 * 0.9973;
                    const double y = row * kPadHalf / 21 * 0.9971;
                    Mix(i, type, function, x, y);
                    const std::array<double, 4> distances{
                        std::hypot(x + kPadHalf, y + kPadHalf), std::hypot(x - kPadHalf, y + kPadHalf),
                        std::hypot(x - kPadHalf, y - kPadHalf), std::hypot(x + kPadHalf, y - kPadHalf)};
                    for (std::size_t c = 0; c < 4; ++c) {
                        ASSERT_EQ(Levels(i, type)[c], Independent(distances[c] / diagonal, type, function))
                            << "type " << type << " curve " << function << " at " << x << ", " << y << " channel "
                            << c + 1;
                    }
                    ++places;
                }
            }
        }
    }
    EXPECT_EQ(places, 4 * 5 * 43 * 43);
}

/// Counts the calls to the sound service that were made before the status text is shown.
struct StatusWatch : test::FakeDisplay {
    const std::vector<std::string>* Calls = nullptr;
    std::vector<std::size_t> Before;
    void ShowStatusText() override { Before.push_back(Calls->size()); }
};

TEST(PadMix, TheSoundHasTheLevelsBeforeTheyAreReadOut) {
    Surfaces i;
    StatusWatch watch;
    Session s{i.For(watch)};
    watch.Calls = &i.Sound.Log;
    s.DX = std::make_unique<test::FakeDirectX>(i.Sound);
    s.DS = s.DX->DirectSoundCreate("guid1");
    s.Run[0].Buffer = s.DS->CreateSoundBufferFromFile("/samples/one.WAV", buffer_flags::kSample);
    s.Run[0].Loaded = True;
    s.DSReady = true;
    PadGeometryInit(s, 4500, 4500);
    i.Sound.Log.clear();
    double x = 400;
    double y = 300;
    PadMix(s, x, y, kVolPad, {.Absolute = true});
    EXPECT_THAT(watch.Before, testing::ElementsAre(1));
    EXPECT_EQ(i.Sound.Count("SetVolume b0"), 1);
}

TEST(PadMix, WithoutASizeTheBallIsInTheMiddle) {
    Surfaces i;
    i.s.Geometry = {};
    Mix(i, 2, 1, 100, 100);
    EXPECT_EQ(Levels(i, 2), (Four{250, 250, 250, 250}));
}

TEST(PadMove, ScalesBothAxesAndPlacesTheBall) {
    Surfaces i;
    PadGeometryInit(i.s, 4500, 3000);
    PadMove(i.s, 250, -100, 500.0, {.Absolute = true, .Apply = true});
    EXPECT_EQ(i.s.PadTable[2].X, i.s.Geometry.PadHalfX / 2);
    EXPECT_DOUBLE_EQ(i.s.PadTable[2].Y, -i.s.Geometry.PadHalfY / 5);
    EXPECT_EQ(i.Screen.Count("ShowPadBall"), 1);
    EXPECT_NE(i.s.StatusText, "");
}

TEST(PadBall, DoubleClickUnderVolPutsTheChannelsOnTheirCentreValuesAndShowsThem) {
    Surfaces i;
    i.Fill(0);
    PadMove(i.s, 500, 500, 500.0, {.Absolute = true, .Apply = true});
    EXPECT_EQ(i.s.ChannelVol[1], 500);
    i.Sound.Log.clear();
    PadBall_DblClick(i.s);
    EXPECT_EQ(Levels(i, 2), (Four{0, 0, 0, 0}));
    EXPECT_EQ(i.s.StatusText, "W: 500, WB: 500, BW: 500, B: 500, ");
    EXPECT_EQ(i.Sound.Count("SetVolume b0"), 1);
    EXPECT_EQ(i.s.PadTable[2].X, 0);
}

TEST(PadTwist, TheBallStandsOnItsLine) {
    Surfaces i;
    PadTwistMove(i.s, 40);
    EXPECT_EQ(i.s.TwistPosition, 40);
    EXPECT_EQ(TwistBallLeft(i.s), 40 + kPadHalf - 127.5);
    EXPECT_EQ(i.Screen.Count("ShowTwist"), 1);
}

}  // namespace
}  // namespace marvolin

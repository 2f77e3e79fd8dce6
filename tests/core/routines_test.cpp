#include "core/routines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

#include "core/errors.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::FakeRandom;
using test::Instrument;
using ::testing::ElementsAre;

constexpr double kAlmostOne = 0.9999999;

TEST(Rounding, IntRoundsDown) {
    EXPECT_EQ(Int(1.9), 1);
    EXPECT_EQ(Int(-0.1), -1);
    EXPECT_EQ(Int(-2), -2);
}

TEST(Rounding, TiesGoToTheEvenNumber) {
    EXPECT_EQ(Round(0.5), 0);
    EXPECT_EQ(Round(1.5), 2);
    EXPECT_EQ(Round(2.5), 2);
    EXPECT_EQ(Round(-0.5), 0);
    EXPECT_EQ(Round(-1.5), -2);
    EXPECT_EQ(Round(-2.5), -2);
    EXPECT_EQ(Round(2.51), 3);
    EXPECT_EQ(Round(0.125, 2), 0.12);
    EXPECT_EQ(Round(0.375, 2), 0.38);
}

TEST(Rounding, AValueThatDoesNotFitIsAnOverflow) {
    EXPECT_EQ(ToI2(32767.4), 32767);
    EXPECT_THROW(ToI2(32767.5), OverflowError);
    EXPECT_EQ(ToI2(-32768.5), -32768);
    EXPECT_THROW(ToI2(-32769), OverflowError);
    EXPECT_THROW(ToI2(std::nan("")), OverflowError);
    EXPECT_THROW(ToI4(std::numeric_limits<double>::infinity()), OverflowError);
    EXPECT_EQ(ToI4(-2147483648.0), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(AddI2(32000, 767), 32767);
    EXPECT_THROW(AddI2(32000, 768), OverflowError);
    EXPECT_THROW(AddI2(-32000, -769), OverflowError);
}

TEST(Clamps, LimitInPlaceAndTheLowEndWinsWhenTheEndsCross) {
    std::int16_t i2 = 7;
    ClampI2(i2, 0, 5);
    EXPECT_EQ(i2, 5);
    ClampI2(i2, 9, 3);
    EXPECT_EQ(i2, 9);
    std::int32_t i4 = -7;
    ClampI4(i4, -2, 5);
    EXPECT_EQ(i4, -2);
    double r8 = 2.5;
    ClampR8(r8, 0, 3);
    EXPECT_EQ(r8, 2.5);
    EXPECT_EQ(ClampVar(10, 0, 3.5), 3.5);
    EXPECT_EQ(ClampVar(-1, 0, 3.5), 0);
}

TEST(MaxOf, GivesTheSecondWhenTheyAreEqual) {
    EXPECT_TRUE(std::signbit(MaxOf(0.0, -0.0)));
    EXPECT_FALSE(std::signbit(MaxOf(-0.0, 0.0)));
    EXPECT_EQ(MaxOf(5, 4), 5);
    EXPECT_EQ(MaxOf(4, 5), 5);
}

TEST(PatternRandom, LiesBetweenZeroAndItsArgumentOfEitherSign) {
    for (const std::int16_t v : std::initializer_list<std::int16_t>{3, -3}) {
        FakeRandom chance;
        std::set<int> drawn;
        for (const double rnd : {0.0, 0.24, 0.26, 0.51, 0.76, kAlmostOne}) {
            chance.Sequence = {rnd};
            drawn.insert(PatternRandom(chance, v));
        }
        EXPECT_EQ(drawn, v > 0 ? (std::set<int>{0, 1, 2, 3}) : (std::set<int>{-3, -2, -1, 0}));
    }
}

TEST(PatternRandom, OfZeroIsZeroWithoutADraw) {
    FakeRandom chance;
    EXPECT_EQ(PatternRandom(chance, 0), 0);
    EXPECT_EQ(chance.Draws, 0);
}

TEST(PatternRandom, WorksWithTheSmallestAndTheLargestInteger) {
    FakeRandom chance;
    chance.Rest = kAlmostOne;
    EXPECT_EQ(PatternRandom(chance, 32767), 32767);
    EXPECT_EQ(PatternRandom(chance, -32768), 0);
    chance.Rest = 0;
    EXPECT_EQ(PatternRandom(chance, -32768), -32768);
}

TEST(RandomAround, OfAPositiveNumberSpreadsToBothSides) {
    FakeRandom chance;
    chance.Sequence = {0.0, 0.5, kAlmostOne, 0.0, kAlmostOne};
    EXPECT_EQ(RandomAround(chance, std::int16_t{10}), -10);
    EXPECT_EQ(RandomAround(chance, std::int16_t{10}), 0);
    EXPECT_EQ(RandomAround(chance, std::int16_t{10}), 10);
    EXPECT_EQ(RandomAround(chance, std::int32_t{100000}), -100000);
    EXPECT_EQ(RandomAround(chance, std::int32_t{100000}), 100000);
}

TEST(RandomAround, OfANegativeNumberLiesBetweenItsSizeAndThreeTimesThat) {
    FakeRandom chance;
    chance.Sequence = {0.0, kAlmostOne, 0.0, kAlmostOne};
    EXPECT_EQ(RandomAround(chance, std::int16_t{-10}), 10);
    EXPECT_EQ(RandomAround(chance, std::int16_t{-10}), 30);
    EXPECT_EQ(RandomAround(chance, std::int32_t{-10}), 10);
    EXPECT_EQ(RandomAround(chance, std::int32_t{-10}), 30);
    chance.Rest = kAlmostOne;
    EXPECT_THROW(RandomAround(chance, std::int16_t{-20000}), OverflowError);
}

TEST(RandomAround, OfZeroIsZeroWithoutADraw) {
    FakeRandom chance;
    EXPECT_EQ(RandomAround(chance, std::int16_t{0}), 0);
    EXPECT_EQ(RandomAround(chance, std::int32_t{0}), 0);
    EXPECT_EQ(chance.Draws, 0);
}

TEST(RandomPlusMinus, SpreadsARealNumber) {
    FakeRandom chance;
    chance.Sequence = {0.0, 0.75};
    EXPECT_EQ(RandomPlusMinus(chance, 2.0), -2.0);
    EXPECT_EQ(RandomPlusMinus(chance, 2.0), 1.0);
    EXPECT_EQ(RandomPlusMinus(chance, 0), 0);
    EXPECT_EQ(chance.Draws, 2);
}

TEST(MonthName, EndsAtNovember) {
    const char* kNames[] = {"", "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "", ""};
    for (int month = 0; month <= 13; ++month) EXPECT_EQ(MonthName(month), kNames[month]) << month;
    EXPECT_EQ(MonthName(-1), "");
}

TEST(TodayText, StartsWithTheBlankInDecember) {
    EXPECT_EQ(TodayText(3, 14), "Mar 14");
    EXPECT_EQ(TodayText(12, 25), " 25");
}

TEST(Texts, StartsWithComparesTheBeginning) {
    EXPECT_TRUE(StartsWith("startup.mvp", "start"));
    EXPECT_TRUE(StartsWith("x", ""));
    EXPECT_FALSE(StartsWith("st", "start"));
    EXPECT_FALSE(StartsWith("Startup", "start"));
}

TEST(Texts, TrimTakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim("\ta"), "\ta");
    EXPECT_EQ(UpperCase("a\xC3\xA4Z1"), "A\xC3\xA4Z1");
    EXPECT_EQ(NumberText(99.5), "99.5");
    EXPECT_EQ(NumberText(100), "100");
}

TEST(HourMinute, WritesTwoDigitsEach) {
    Instrument i;
    i.s.Clock.ClockHours = 0;
    i.s.Clock.ClockMinutes = 3;
    i.s.Clock.ClockSeconds = 27;
    EXPECT_EQ(HourMinute(i.s), "00h03m27s");
    i.s.Clock.ClockHours = 24;
    EXPECT_EQ(HourMinute(i.s), "24h03m27s");
}

TEST(TempFileName, AsksForThePrefixAndIsEmptyOnFailure) {
    Instrument i;
    EXPECT_EQ(TempFileName(i.s), "/nowhere/VBN1.tmp");
    EXPECT_THAT(i.Desk.Log, ElementsAre("TempFileName VBN"));
    i.Desk.TempFile = "";
    EXPECT_EQ(TempFileName(i.s), "");
}

TEST(ReadWorkArea, TurnsPixelsIntoTwips) {
    Instrument i;
    i.Desk.Area = {10, 20, 1280, 770};
    ReadWorkArea(i.s);
    EXPECT_EQ(i.s.WorkArea.Left, 150);
    EXPECT_EQ(i.s.WorkArea.Top, 300);
    EXPECT_EQ(i.s.WorkArea.Right, 19200);
    EXPECT_EQ(i.s.WorkArea.Bottom, 11550);
}

TEST(ClearProcedureFlags, ClearsAllNine) {
    Instrument i;
    i.s.ProcedureFlags.fill(-1);
    ClearProcedureFlags(i.s);
    EXPECT_THAT(i.s.ProcedureFlags, ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(ShowStatus, ShowsATextOnlyWhenItChanges) {
    Instrument i;
    ShowStatus(i.s, "hint");
    ShowStatus(i.s, "hint");
    EXPECT_EQ(i.Screen.Count("ShowStatusText"), 1);
    ShowReadout(i.s, "value");
    ShowReadout(i.s, "value");
    EXPECT_EQ(i.Screen.Count("ShowReadout"), 1);
}

}  // namespace
}  // namespace marvolin

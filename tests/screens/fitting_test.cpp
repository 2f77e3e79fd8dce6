#include "window/screens/fitting.h"

#include <gtest/gtest.h>

#include "window/screens/program_size.h"

namespace marvolin {
namespace {

const QRect kScreen(0, 0, 1366, 768);

TEST(MovedInto, LeavesAWindowThatIsWhole) {
    EXPECT_EQ(MovedInto({0, 0, 1366, 768}, kScreen), QRect(0, 0, 1366, 768));
    EXPECT_EQ(MovedInto({100, 50, 200, 100}, kScreen), QRect(100, 50, 200, 100));
}

TEST(MovedInto, MovesAsLittleAsPossible) {
    EXPECT_EQ(MovedInto({-20, -30, 200, 100}, kScreen), QRect(0, 0, 200, 100));
    EXPECT_EQ(MovedInto({1300, 700, 200, 100}, kScreen), QRect(1166, 668, 200, 100));
    EXPECT_EQ(MovedInto({1300, 50, 200, 100}, kScreen), QRect(1166, 50, 200, 100));
}

TEST(MovedInto, KeepsTheTitleBarOfAWindowThatIsTooLarge) {
    EXPECT_EQ(MovedInto({400, 300, 2000, 900}, kScreen).topLeft(), QPoint(0, 0));
    EXPECT_EQ(MovedInto({-400, -300, 2000, 900}, {0, 28, 1366, 740}).topLeft(), QPoint(0, 28));
}

TEST(MovedInto, CountsFromWhereTheScreenBegins) {
    EXPECT_EQ(MovedInto({0, 0, 200, 100}, {1366, 200, 1280, 720}), QRect(1366, 200, 200, 100));
}

TEST(MovedUpInto, OnlyMovesUp) {
    EXPECT_EQ(MovedUpInto({-20, 700, 200, 100}, kScreen), QRect(-20, 668, 200, 100));
    EXPECT_EQ(MovedUpInto({-20, -10, 200, 100}, kScreen), QRect(-20, -10, 200, 100));
    EXPECT_EQ(MovedUpInto({5, 300, 200, 900}, kScreen), QRect(5, 0, 200, 900));
}

TEST(ScreenOf, IsTheOneThatShowsMost) {
    const std::vector<ScreenArea> screens{{kScreen, kScreen}, {{1366, 0, 1280, 720}, {1366, 0, 1280, 690}}};
    EXPECT_EQ(ScreenOf({10, 10, 100, 100}, screens), &screens[0]);
    EXPECT_EQ(ScreenOf({1300, 10, 300, 100}, screens), &screens[1]);
    EXPECT_EQ(ScreenOf({1300, 10, 100, 100}, screens), &screens[0]);
    EXPECT_EQ(ScreenOf({5000, 10, 100, 100}, screens), nullptr);
    EXPECT_EQ(ScreenOf({1400, 695, 100, 100}, screens), nullptr) << "behind the panel";
}

TEST(PlaceBeside, IsAtTheLeftEdgeBesideTheMainWindow) {
    EXPECT_EQ(PlaceBeside({874, 150, 1040, 770}, {0, 0, 1920, 1080}, {782, 540}, 622), QRect(0, 150, 782, 540));
}

TEST(PlaceBeside, GetsNarrowerButNotBelowItsLeastWidth) {
    EXPECT_EQ(PlaceBeside({700, 150, 1040, 770}, {0, 0, 1750, 1080}, {782, 540}, 622), QRect(0, 150, 700, 540));
    EXPECT_TRUE(PlaceBeside({600, 150, 1040, 770}, {0, 0, 1650, 1080}, {782, 540}, 622).isNull());
}

TEST(PlaceBeside, TakesTheOtherSideWhereThereIsMoreRoom) {
    EXPECT_EQ(PlaceBeside({10, 150, 1040, 770}, {0, 0, 1920, 1080}, {782, 540}, 622), QRect(1138, 150, 782, 540));
}

TEST(PlaceBeside, EndsOnTheScreen) {
    EXPECT_EQ(PlaceBeside({874, 800, 1040, 300}, {0, 0, 1920, 1080}, {782, 540}, 622).bottom(), 1079);
}

TEST(PlacedClear, MovesAsLittleAsPossible) {
    const QRect strip(100, 300, 1040, 200);
    EXPECT_EQ(PlacedClear({10, 510, 400, 200}, strip, kScreen, 200), QRect(10, 510, 400, 200)) << "clear already";
    EXPECT_EQ(PlacedClear({10, 350, 400, 200}, strip, kScreen, 200), QRect(10, 500, 400, 200));
    EXPECT_EQ(PlacedClear({10, 200, 400, 200}, strip, kScreen, 200), QRect(10, 100, 400, 200));
    EXPECT_EQ(PlacedClear({1000, 350, 200, 600}, strip, kScreen, 600), QRect(1140, 168, 200, 600)) << "beside";
}

TEST(PlacedClear, AWindowThatIsTooTallGetsLowerOrStays) {
    const QRect strip(100, 300, 1040, 200);
    EXPECT_EQ(PlacedClear({10, 350, 400, 400}, strip, kScreen, 200), QRect(10, 0, 400, 300));
    EXPECT_EQ(PlacedClear({10, 350, 400, 400}, strip, kScreen, 301), QRect(10, 350, 400, 400));
}

TEST(NeverEmpty, ADesktopWithoutAScreenHasTheOneThatItHad) {
    std::vector<ScreenArea> now;
    const auto screens = NeverEmpty([&] { return now; });
    EXPECT_EQ(screens().size(), 1u);
    now = {{kScreen, kScreen}, {{1366, 0, 1280, 720}, {1366, 0, 1280, 690}}};
    EXPECT_EQ(screens().size(), 2u);
    now.clear();
    ASSERT_EQ(screens().size(), 2u);
    EXPECT_EQ(screens()[0].Free, kScreen);
}

const FormSizes kForms{{1040, 740}, 780};

TEST(ProgramSize, AFirstStartTakesTheLargestThatFits) {
    EXPECT_EQ(LargestSize(kForms, {1024, 600}), 75);
    EXPECT_EQ(LargestSize(kForms, {1280, 720}), 90);
    EXPECT_EQ(LargestSize(kForms, {1366, 768 - 28}), 95) << "with a panel";
    EXPECT_EQ(LargestSize(kForms, {1920, 1080}), 100);
    EXPECT_EQ(LargestSize(kForms, {3840, 2160}), 200);
}

TEST(ProgramSize, MoreThanAHundredNeedsRoomForTheBrowserToo) {
    EXPECT_EQ(LargestSize(kForms, {1600, 1000}), 100);
    EXPECT_EQ(LargestSize(kForms, {1820 * 5 / 4, 1000}), 125);
    EXPECT_EQ(LargestSize(kForms, {1820 * 5 / 4 - 1, 1000}), 110);
}

TEST(ProgramSize, AMainWindowFitsWithItsTitleBar) {
    EXPECT_TRUE(SizeFits(100, kForms, {1040, 740 + kTitleRoom}));
    EXPECT_FALSE(SizeFits(100, kForms, {1040, 740 + kTitleRoom - 1}));
    EXPECT_FALSE(SizeFits(100, kForms, {1039, 2000}));
}

TEST(ProgramSize, AChosenSizeIsTakenAsLongAsItFits) {
    EXPECT_EQ(UsableSize(125, kForms, {1920, 1080}), 125);
    EXPECT_EQ(UsableSize(200, kForms, {1920, 1080}), 125);
    EXPECT_EQ(UsableSize(75, kForms, {3840, 2160}), 75);
    EXPECT_EQ(UsableSize(200, kForms, {1024, 600}), 75);
    EXPECT_EQ(UsableSize(200, kForms, {640, 480}), 75) << "the smallest, although it does not fit";
}

}  // namespace
}  // namespace marvolin

#include "browser/destinations.h"

#include <gtest/gtest.h>

#include "browser/browser.h"

namespace marvolin {
namespace {

using namespace test;

TEST(Destinations, TheNineRowsNameTheLoopTracksAndTheCommands) {
    Browser b;
    b.s.Set[1].FileName = "/s/Kick.wav";
    const auto texts = DestinationTexts(b.s);
    EXPECT_EQ(texts[0], "A: ");
    EXPECT_EQ(texts[1], "B: Kick");
    const std::array<std::string, 5> rest{"> Gang", "Drg Drp", "Drg Drp (All)", "Distribute (All)", "Gang (All)"};
    for (std::size_t k = 0; k < rest.size(); ++k) EXPECT_EQ(texts[4 + k], rest[k]);
}

TEST(Destinations, TheCommandsSetAllBinsAndAreNeverAState) {
    Browser b;
    const auto destinations = [&] {
        return std::array<int, 3>{b.s.Bins[0].Destination, b.s.Bins[1].Destination, b.s.Bins[2].Destination};
    };
    ChooseDestination(b.s, 1, kAllDistribute);
    EXPECT_EQ(destinations(), (std::array<int, 3>{0, 1, 2}));
    ChooseDestination(b.s, 2, kAllGang);
    EXPECT_EQ(destinations(), (std::array<int, 3>{4, 4, 4}));
    ChooseDestination(b.s, 0, kAllDrag);
    EXPECT_EQ(destinations(), (std::array<int, 3>{5, 5, 5}));
    EXPECT_EQ(BinColour(b.s, 1), (Colour{227, 232, 223}));
    b.Screen.Log.clear();
    ChooseDestination(b.s, 1, 3);
    EXPECT_EQ(b.Screen.Log, (std::vector<std::string>{"ShowDestinations", "ShowBin 1"}));
    EXPECT_EQ(destinations(), (std::array<int, 3>{5, 3, 5}));
    EXPECT_EQ(BinColour(b.s, 1), (Colour{200, 203, 198}));
    ChooseDestination(b.s, 1, 9);
    ChooseDestination(b.s, 1, -1);
    EXPECT_EQ(b.s.Bins[1].Destination, 3);
}

}  // namespace
}  // namespace marvolin

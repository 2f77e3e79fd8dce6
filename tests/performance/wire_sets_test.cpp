#include "performance/pad/wire_sets.h"

#include <gtest/gtest.h>

#include "core/errors.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

std::array<int, 4> Wires(const Instrument& i) {
    return {i.s.Set[0].Channel, i.s.Set[1].Channel, i.s.Set[2].Channel, i.s.Set[3].Channel};
}

TEST(WireSets, EachEntryWiresTheFourLoopTracks) {
    const std::array<std::pair<std::string_view, std::array<int, 4>>, 9> sets{{{"Groups of 4", {1, 1, 1, 1}},
                                                                               {"Groups of 3", {1, 1, 1, 2}},
                                                                               {"Groups of 2", {1, 1, 2, 2}},
                                                                               {"Alternate by 4", {1, 2, 3, 4}},
                                                                               {"Alternate by 3", {1, 2, 3, 1}},
                                                                               {"Alternate by 2", {1, 2, 1, 2}},
                                                                               {"Groups of 8", {1, 1, 1, 1}},
                                                                               {"All to 1", {1, 1, 1, 1}},
                                                                               {"All to 0", {1, 1, 1, 1}}}};
    for (std::size_t entry = 0; entry < sets.size(); ++entry) {
        SCOPED_TRACE(sets[entry].first);
        Instrument i;
        for (Row row = 0; row < kLoopTracks; ++row) i.s.Set[row].Channel = 7;
        EXPECT_EQ(kWireSets[entry], sets[entry].first);
        SetChannel_Click(i.s, static_cast<std::int16_t>(entry));
        EXPECT_EQ(Wires(i), sets[entry].second);
        EXPECT_EQ(i.s.SetChannelChoice, static_cast<std::int16_t>(entry));
    }
}

TEST(WireSets, BlanksAroundTheTextAreIgnored) {
    Instrument i;
    WireSet(i.s, "  Alternate by 2  ");
    EXPECT_EQ(Wires(i), (std::array{1, 2, 1, 2}));
}

TEST(WireSets, AnyOtherTextChangesNoWireButSendsTheSound) {
    for (const char* text : {"", "All to 2", "all to 1", "By 2", "Groups of x", "Alternate by 0"}) {
        SCOPED_TRACE(text);
        Instrument i;
        i.Fill(1);
        WireSet(i.s, text);
        EXPECT_EQ(Wires(i), (std::array{1, 2, 3, 4}));
        EXPECT_EQ(i.Sound.Count("SetVolume b0"), 1);
    }
}

TEST(WireSets, EndWithFrequencyPanAndVolumeOfAllInThisOrder) {
    Instrument i;
    i.Fill(2);
    SetChannel_Click(i.s, 7);
    ASSERT_GE(i.Sound.Log.size(), 3u);
    const auto last = i.Sound.Log.end();
    EXPECT_TRUE((last - 3)->starts_with("SetFrequency"));
    EXPECT_TRUE((last - 2)->starts_with("SetPan"));
    EXPECT_TRUE((last - 1)->starts_with("SetVolume"));
}

TEST(WireSets, AnEntryThatTheListDoesNotHaveIsRefused) {
    Instrument i;
    EXPECT_THROW(SetChannel_Click(i.s, 9), SubscriptError);
    EXPECT_THROW(SetChannel_Click(i.s, -1), SubscriptError);
}

}  // namespace
}  // namespace marvolin

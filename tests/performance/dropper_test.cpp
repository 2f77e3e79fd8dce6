#include "performance/drops/dropper.h"

#include <gtest/gtest.h>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

TEST(DropperManager, ReadsAndWritesItsTags) {
    const clsDropperManager dropper;
    EXPECT_EQ(dropper.DropTo(3), "Dropper~~3");
    EXPECT_TRUE(dropper.IsDropping({"Letr", 0, "Dropper~~3"}));
    EXPECT_FALSE(dropper.IsDropping({"Letr", 0, "4"}));
    EXPECT_FALSE(dropper.IsDropping({"Letr", 0, "Dropper~"}));
    EXPECT_EQ(dropper.DroppingTo({"Letr", 0, "Dropper~~2"}), 2);
    EXPECT_EQ(dropper.DroppingTo({"Letr", 0, "Dropper~~"}), -1);
    EXPECT_EQ(dropper.DroppingTo({"Letr", 0, "4"}), -1);
}

TEST(Letr, LeftStartsTheDropperAndRightTheFadeDrag) {
    EXPECT_EQ(Letr_MouseDown(2, kLeftButton), (DragSource{"Letr", 2, "Dropper~~2"}));
    EXPECT_EQ(Letr_MouseDown(4, kRightButton), (DragSource{"Letr", 4, "4"}));
    EXPECT_FALSE(Letr_MouseDown(2, kMiddleButton));
}

TEST(Letr, ADoubleClickTogglesThinnableButNotOnRowFour) {
    Instrument d;
    Letr_DblClick(d.s, 1);
    EXPECT_EQ(d.s.Set[1].Thinnable, False);
    EXPECT_GE(d.Screen.Count("ShowCaption 1"), 1);
    Letr_DblClick(d.s, 1);
    EXPECT_EQ(d.s.Set[1].Thinnable, True);
    Letr_DblClick(d.s, 4);
    EXPECT_EQ(d.s.Set[4].Thinnable, True);
}

}  // namespace
}  // namespace marvolin

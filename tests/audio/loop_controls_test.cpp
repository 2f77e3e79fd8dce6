#include "audio/loop_controls.h"

#include <gtest/gtest.h>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

TEST(EnableLoopControls, OnlyThePanKnobFollowsAndOnlyWith3DOff) {
    Instrument i;
    EnableLoopControls(i.s, 1, false);
    EXPECT_FALSE(PanKnobEnabled(i.s, 1));
    EnableLoopControls(i.s, 1, true);
    EXPECT_TRUE(PanKnobEnabled(i.s, 1));
    i.s.Use3D = true;
    EnableLoopControls(i.s, 1, false);
    EXPECT_TRUE(PanKnobEnabled(i.s, 1));
    EXPECT_EQ(i.Screen.Count("ShowEnabled 1"), 3);
}

}  // namespace
}  // namespace marvolin

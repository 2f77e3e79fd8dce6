#include "audio/limiter.h"

#include <gtest/gtest.h>

#include <vector>

#include "audio/start.h"
#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

/// Loads and starts rows in this order.
TEST(Limiter, ADragSetsTheNumberAndOnlyItsEndThins) {
    Instrument i;
    Start(i, {2, 0, 1});
    Limiter_Gesture(i.s, Phase::Down, 1000);
    Limiter_Gesture(i.s, Phase::Move, 1060);
    EXPECT_EQ(i.s.Limit, 1);
    EXPECT_EQ(i.s.ThinList, "CAB");
    EXPECT_EQ(i.Screen.Count("ShowLimit"), 1);
    Limiter_Gesture(i.s, Phase::Up, 1060);
    EXPECT_EQ(i.s.ThinList, "B");
    EXPECT_EQ(i.s.Drag.Dragging, False);
}

TEST(Limiter, MovesOneForTwentyTwipsUpwardsMoreWithinOneToFour) {
    struct Case {
        double Distance;
        int Limit;
    };
    for (const Case& c : std::vector<Case>{
             {0, 2}, {-19, 2}, {-19.5, 3}, {-20, 3}, {-40, 4}, {-400, 4}, {1, 1}, {20, 1}, {400, 1}, {900000, 1}}) {
        Instrument i;
        i.s.Limit = 2;
        Limiter_Gesture(i.s, Phase::Down, 1000);
        Limiter_Gesture(i.s, Phase::Move, 1000 + c.Distance);
        EXPECT_EQ(i.s.Limit, c.Limit) << c.Distance;
    }
    for (std::int16_t limit = 1; limit <= 4; ++limit) {
        Instrument i;
        i.s.Limit = limit;
        Limiter_Gesture(i.s, Phase::Down, 1000);
        Limiter_Gesture(i.s, Phase::Move, 1000);
        EXPECT_EQ(i.s.Limit, limit);
    }
}

TEST(Limiter, AMoveWithoutAPressChangesNothingAndAReleaseDoesNotThin) {
    Instrument i;
    Start(i, {0, 1});
    i.s.Limit = 1;
    Limiter_Gesture(i.s, Phase::Move, 5000);
    Limiter_Gesture(i.s, Phase::Up, 5000);
    EXPECT_EQ(i.s.Limit, 1);
    EXPECT_EQ(i.s.ThinList, "AB");
}

TEST(Limiter, AStepMovesTheNumberWithinOneToFourAndThinsAtOnce) {
    Instrument i;
    Start(i, {2, 0, 1});
    Limiter_Step(i.s, -2);
    EXPECT_EQ(i.s.Limit, 2);
    EXPECT_EQ(i.s.ThinList, "AB");
    EXPECT_EQ(i.Screen.Count("ShowLimit"), 1);
    Limiter_Step(i.s, -10);
    EXPECT_EQ(i.s.Limit, 1);
    Limiter_Step(i.s, 10);
    EXPECT_EQ(i.s.Limit, 4);
}

TEST(Limiter, AStepDuringADragChangesNeitherTheNumberNorTheDrag) {
    Instrument i;
    Limiter_Gesture(i.s, Phase::Down, 1000);
    Limiter_Step(i.s, -1);
    EXPECT_EQ(i.s.Limit, 4);
    EXPECT_EQ(i.s.Drag.Dragging, True);
    EXPECT_EQ(i.s.Drag.DragOrigin, 1000);
}

}  // namespace
}  // namespace marvolin

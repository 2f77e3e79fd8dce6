#include "core/placers.h"

#include <gtest/gtest.h>

namespace marvolin {
namespace {

// Left 100, top 200, width 300, height 400; the control moved is 50 x 60.
constexpr TwipRect kOther{100, 200, 300, 400};

struct Placed {
    const char* name;
    void (*place)(TwipRect&, const TwipRect&, double);
    double left;
    double top;
};

constexpr Placed kPlaced[] = {
    {"below", PlaceBelow, 100, 610},      {"below right", PlaceBelowRight, 350, 610},
    {"above", PlaceAbove, 100, 130},      {"above right", PlaceAboveRight, 350, 130},
    {"right of", PlaceRightOf, 410, 200}, {"left of", PlaceLeftOf, 40, 200},
};

TEST(Placers, PutAControlBesideAnotherWithAGapAndKeepItsSize) {
    for (const Placed& placed : kPlaced) {
        SCOPED_TRACE(placed.name);
        TwipRect control{1, 2, 50, 60};
        placed.place(control, kOther, 10);
        EXPECT_EQ(control.Left, placed.left);
        EXPECT_EQ(control.Top, placed.top);
        EXPECT_EQ(control.Width, 50);
        EXPECT_EQ(control.Height, 60);
    }
}

TEST(Placers, MoveDownAndRightByAnAmount) {
    TwipRect control{1, 2, 50, 60};
    MoveDown(control, 30);
    MoveRight(control, -5);
    EXPECT_EQ(control.Top, 32);
    EXPECT_EQ(control.Left, -4);
}

}  // namespace
}  // namespace marvolin

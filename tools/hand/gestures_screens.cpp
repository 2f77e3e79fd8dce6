#include "gestures.h"
#include "window/screens/program_size.h"

namespace marvolin::hand {

void ChooseSize(Turn& turn) {
    turn.Mouse.LetGo();
    const int size = turn.D.OneIn(2) ? 100 : turn.D.Of(kProgramSizes);
    turn.Words += std::to_string(size) + " %";
    turn.W.Keeper.Choose(size);
    World::Settle();
}

// A screen is plugged in or pulled out, or the desktop has given one another place or a panel.
void ChangeScreens(Turn& turn) {
    static const ScreenArea kLarge{QRect(0, 0, 2560, 1440), QRect(0, 0, 2560, 1400)};
    static const ScreenArea kSmall{QRect(0, 0, 1366, 768), QRect(0, 24, 1366, 744)};
    static const ScreenArea kRight{QRect(2560, 0, 1920, 1080), QRect(2560, 0, 1920, 1080)};
    static const ScreenArea kLeft{QRect(-1920, 200, 1920, 1080), QRect(-1880, 200, 1880, 1080)};
    static const std::vector<ScreenArea> kLayouts[] = {{kLarge}, {kSmall}, {kLarge, kRight}, {kSmall, kLeft}};
    turn.W.Screens = turn.D.Of(kLayouts);
    turn.Words += std::to_string(turn.W.Screens.size()) + ", the first " +
                  std::to_string(turn.W.Screens.front().Whole.width()) + " wide";
    turn.W.Keeper.ScreensChanged();
    turn.W.ScreensMoved = true;
}

}  // namespace marvolin::hand

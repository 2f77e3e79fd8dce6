/// \file
/// Prints a line for each window that is shown on the display, until it is killed: the milliseconds since the epoch,
/// and the window's number. A window with a frame shows as its frame, when the window manager shows that.

#include <X11/Xlib.h>

#include <chrono>
#include <cstdio>

int main() {
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        std::fputs("no display\n", stderr);
        return 2;
    }
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    while (true) {
        XEvent event{};
        XNextEvent(display, &event);
        if (event.type != MapNotify) continue;
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
        std::printf("%lld 0x%lx\n", static_cast<long long>(ms), event.xmap.window);
        std::fflush(stdout);
    }
}

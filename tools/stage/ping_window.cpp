// Asks a window whether its program answers: the ping of the window managers (_NET_WM_PING), which the event loop of
// the program sends back. Prints the milliseconds that it took. Exits with 1 when no answer comes, 2 for a wrong call.

#include <X11/Xlib.h>
#include <poll.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

using Clock = std::chrono::steady_clock;

constexpr long kMostWait = 2000;   // ms
constexpr long kOwnTime = 0x6d61;  // marks this ping among those of the window manager

long Since(Clock::time_point start) {
    return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count());
}

/// A window that has gone since is no fault of this program: there is no answer then.
int IgnoreError(Display*, XErrorEvent*) { return 0; }

void Send(Display* display, Window window) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "_NET_WM_PING", False));
    event.xclient.data.l[1] = kOwnTime;
    event.xclient.data.l[2] = static_cast<long>(window);
    XSendEvent(display, window, False, NoEventMask, &event);
    XFlush(display);
}

bool IsAnswer(Display* display, const XEvent& event, Window window) {
    return event.type == ClientMessage && event.xclient.message_type == XInternAtom(display, "WM_PROTOCOLS", False) &&
           event.xclient.data.l[0] == static_cast<long>(XInternAtom(display, "_NET_WM_PING", False)) &&
           event.xclient.data.l[1] == kOwnTime && event.xclient.data.l[2] == static_cast<long>(window);
}

bool Await(Display* display, Window window, Clock::time_point start, long most) {
    while (Since(start) < most) {
        while (XPending(display) > 0) {
            XEvent event;
            XNextEvent(display, &event);
            if (IsAnswer(display, event, window)) return true;
        }
        pollfd waits{ConnectionNumber(display), POLLIN, 0};
        ::poll(&waits, 1, 10);
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: ping_window WINDOW [MS]\n", stderr);
        return 2;
    }
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        std::fputs("ping_window: no display\n", stderr);
        return 2;
    }
    XSetErrorHandler(IgnoreError);
    const Window window = std::strtoul(argv[1], nullptr, 0);
    const long most = argc > 2 ? std::atol(argv[2]) : kMostWait;
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    const Clock::time_point start = Clock::now();
    Send(display, window);
    const bool answered = Await(display, window, start, most);
    if (answered) std::printf("%ld\n", Since(start));
    XCloseDisplay(display);
    return answered ? EXIT_SUCCESS : EXIT_FAILURE;
}

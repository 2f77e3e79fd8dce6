/// \file
/// Asks a window whether it answers, as a window manager does before it calls a program hanging: the answer comes from
/// the event loop of the program, behind all that was sent to it before.
///
///     ping_window WINDOW MILLISECONDS
///
/// Prints the milliseconds until the answer. Exit status 1 when it has not come in this time, 2 when it cannot be
/// asked.

#include <X11/Xlib.h>
#include <poll.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

using Clock = std::chrono::steady_clock;

long Since(Clock::time_point begin) {
    return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin).count());
}

/// Waits for something of the display, at most this long.
void WaitFor(Display* display, long milliseconds) {
    pollfd of{ConnectionNumber(display), POLLIN, 0};
    ::poll(&of, 1, static_cast<int>(milliseconds));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("ping_window WINDOW MILLISECONDS\n", stderr);
        return 2;
    }
    const auto window = static_cast<Window>(std::strtoul(argv[1], nullptr, 0));
    const long most = std::strtol(argv[2], nullptr, 10);
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        std::fputs("no display\n", stderr);
        return 2;
    }
    const Atom protocols = XInternAtom(display, "WM_PROTOCOLS", False);
    const Atom ping = XInternAtom(display, "_NET_WM_PING", False);
    const Window root = DefaultRootWindow(display);
    XSelectInput(display, root, SubstructureNotifyMask);
    const auto begin = Clock::now();
    // Each question has its own number, so the answer to an earlier one is not mistaken for its own.
    const long number = static_cast<long>(begin.time_since_epoch().count() & 0x7fffffff);
    XEvent question{};
    question.xclient.type = ClientMessage;
    question.xclient.window = window;
    question.xclient.message_type = protocols;
    question.xclient.format = 32;
    question.xclient.data.l[0] = static_cast<long>(ping);
    question.xclient.data.l[1] = number;
    question.xclient.data.l[2] = static_cast<long>(window);
    XSendEvent(display, window, False, NoEventMask, &question);
    XFlush(display);
    for (long gone = 0; gone <= most; gone = Since(begin)) {
        while (XPending(display) > 0) {
            XEvent event{};
            XNextEvent(display, &event);
            if (event.type != ClientMessage || event.xclient.message_type != protocols) continue;
            if (event.xclient.data.l[0] != static_cast<long>(ping) || event.xclient.data.l[1] != number) continue;
            std::printf("%ld\n", Since(begin));
            XCloseDisplay(display);
            return 0;
        }
        WaitFor(display, most - gone);
    }
    XCloseDisplay(display);
    return 1;
}

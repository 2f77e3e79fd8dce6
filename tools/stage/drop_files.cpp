// Drops files onto the window at a position of the screen, as a file manager does: the source side of the XDND
// protocol. Exits with 0 when the window accepts the drop, 1 when it refuses it or does not answer.

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <poll.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

constexpr long kProtocol = 5;
constexpr std::chrono::seconds kPatience{10};

/// Path as a URI; every byte that is not plain is written in hexadecimal.
std::string Uri(const std::string& path) {
    static const std::string kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    std::string uri = "file://";
    for (const char c : path) {
        if (kPlain.find(c) != std::string::npos) {
            uri += c;
        } else {
            char code[4];
            std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
            uri += code;
        }
    }
    return uri;
}

class DragOfFiles {
public:
    DragOfFiles(Display* display, std::string uris) : display_(display), uris_(std::move(uris)) {
        source_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0);
        XSetSelectionOwner(display_, A("XdndSelection"), source_, CurrentTime);
    }

    /// Drops at a position of the screen; true when the window accepts the files.
    bool DropAt(int x, int y) {
        target_ = AwareWindowAt(x, y);
        if (target_ == None) {
            std::fprintf(stderr, "drop_files: no window at %d,%d takes drops\n", x, y);
            return false;
        }
        Send("XdndEnter", kProtocol << 24, static_cast<long>(A("text/uri-list")), 0, 0);
        // The window answers the first position for where the pointer entered, the second one for this position.
        for (int turn = 0; turn < 2; ++turn) {
            Send("XdndPosition", 0, (static_cast<long>(x) << 16) | y, CurrentTime,
                 static_cast<long>(A("XdndActionCopy")));
            XClientMessageEvent status;
            if (!Await("XdndStatus", status)) return false;
            if ((status.data.l[1] & 1) == 0 && turn == 1) {
                Send("XdndLeave", 0, 0, 0, 0);
                std::fprintf(stderr, "drop_files: refused at %d,%d\n", x, y);
                return false;
            }
        }
        Send("XdndDrop", 0, CurrentTime, 0, 0);
        XClientMessageEvent finished;
        return Await("XdndFinished", finished) && (finished.data.l[1] & 1) != 0;
    }

private:
    Atom A(const char* name) { return XInternAtom(display_, name, False); }

    bool IsAware(Window window) {
        Atom type = None;
        int format = 0;
        unsigned long count = 0;
        unsigned long left = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(display_, window, A("XdndAware"), 0, 1, False, AnyPropertyType, &type, &format, &count,
                           &left, &data);
        if (data != nullptr) XFree(data);
        return type != None;
    }

    /// The outermost window at the position that supports the protocol.
    Window AwareWindowAt(int x, int y) {
        const Window root = DefaultRootWindow(display_);
        Window window = root;
        while (true) {
            Window child = None;
            int insideX = 0;
            int insideY = 0;
            if (!XTranslateCoordinates(display_, root, window, x, y, &insideX, &insideY, &child) || child == None)
                return None;
            if (IsAware(child)) return child;
            window = child;
        }
    }

    void Send(const char* message, long a, long b, long c, long d) {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.display = display_;
        event.xclient.window = target_;
        event.xclient.message_type = A(message);
        event.xclient.format = 32;
        event.xclient.data.l[0] = static_cast<long>(source_);
        event.xclient.data.l[1] = a;
        event.xclient.data.l[2] = b;
        event.xclient.data.l[3] = c;
        event.xclient.data.l[4] = d;
        XSendEvent(display_, target_, False, NoEventMask, &event);
        XFlush(display_);
    }

    /// Waits for a message of the window and hands over the files meanwhile.
    bool Await(const char* message, XClientMessageEvent& answer) {
        const Atom wanted = A(message);
        const auto end = std::chrono::steady_clock::now() + kPatience;
        while (std::chrono::steady_clock::now() < end) {
            while (XPending(display_) > 0) {
                XEvent event;
                XNextEvent(display_, &event);
                if (event.type == SelectionRequest) HandOver(event.xselectionrequest);
                if (event.type == ClientMessage && event.xclient.message_type == wanted) {
                    answer = event.xclient;
                    return true;
                }
            }
            pollfd wait{ConnectionNumber(display_), POLLIN, 0};
            poll(&wait, 1, 100);
        }
        std::fprintf(stderr, "drop_files: no %s\n", message);
        return false;
    }

    void HandOver(const XSelectionRequestEvent& request) {
        XEvent reply{};
        reply.xselection.type = SelectionNotify;
        reply.xselection.requestor = request.requestor;
        reply.xselection.selection = request.selection;
        reply.xselection.target = request.target;
        reply.xselection.time = request.time;
        reply.xselection.property = None;
        if (request.target == A("text/uri-list")) {
            XChangeProperty(display_, request.requestor, request.property, request.target, 8, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(uris_.data()), static_cast<int>(uris_.size()));
            reply.xselection.property = request.property;
        }
        XSendEvent(display_, request.requestor, False, NoEventMask, &reply);
        XFlush(display_);
    }

    Display* display_;
    std::string uris_;
    Window source_ = None;
    Window target_ = None;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: drop_files X Y FILE...\n");
        return 2;
    }
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        std::fprintf(stderr, "drop_files: no display\n");
        return 1;
    }
    std::string uris;
    for (int i = 3; i < argc; ++i) uris += Uri(std::filesystem::absolute(argv[i]).string()) + "\r\n";
    const bool taken = DragOfFiles(display, uris).DropAt(std::atoi(argv[1]), std::atoi(argv[2]));
    XCloseDisplay(display);
    return taken ? 0 : 1;
}

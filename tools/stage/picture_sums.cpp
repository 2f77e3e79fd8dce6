// Prints checksums of parts of a window as they are on the screen, one a line, all of the same moment. Places are in
// pixels of the window. Exits with 1 and prints nothing when there is no such window or a part is not on the screen.

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

constexpr unsigned long kColours = 0xFFFFFF;  // the bits of a pixel that are seen

struct Place {
    int X, Y, Width, Height;
};

bool failed = false;
int Fail(Display*, XErrorEvent*) {
    failed = true;
    return 0;
}

/// The smallest place that contains all these.
Place Around(const std::vector<Place>& places) {
    int right = 0;
    int bottom = 0;
    Place all = places.front();
    for (const Place& place : places) {
        all.X = std::min(all.X, place.X);
        all.Y = std::min(all.Y, place.Y);
        right = std::max(right, place.X + place.Width);
        bottom = std::max(bottom, place.Y + place.Height);
    }
    all.Width = right - all.X;
    all.Height = bottom - all.Y;
    return all;
}

/// Checksum (64-bit FNV-1a) of a part of the picture.
std::uint64_t SumOf(XImage& picture, const Place& part) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (int y = part.Y; y < part.Y + part.Height; ++y) {
        for (int x = part.X; x < part.X + part.Width; ++x) {
            sum = (sum ^ (XGetPixel(&picture, x, y) & kColours)) * 0x100000001B3;
        }
    }
    return sum;
}

/// The checksums of places of the screen; empty when one is not on it.
std::vector<std::uint64_t> Sums(Display* display, const std::vector<Place>& places) {
    const Place all = Around(places);
    XImage* picture = XGetImage(display, DefaultRootWindow(display), all.X, all.Y, static_cast<unsigned>(all.Width),
                                static_cast<unsigned>(all.Height), AllPlanes, ZPixmap);
    if (picture == nullptr) return {};
    std::vector<std::uint64_t> sums;
    for (Place place : places) {
        place.X -= all.X;
        place.Y -= all.Y;
        sums.push_back(SumOf(*picture, place));
    }
    XDestroyImage(picture);
    return sums;
}

/// The arguments as places of the screen; none when they are not four each or there is no such window.
std::vector<Place> PlacesOf(Display* display, int argc, char** argv) {
    std::vector<Place> places;
    const Window window = std::strtoul(argv[1], nullptr, 0);
    int left = 0;
    int top = 0;
    Window child = None;
    if (argc % 4 != 2 ||
        !XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &left, &top, &child)) {
        return places;
    }
    for (int i = 2; i < argc; i += 4) {
        places.push_back(
            {std::atoi(argv[i]) + left, std::atoi(argv[i + 1]) + top, std::atoi(argv[i + 2]), std::atoi(argv[i + 3])});
    }
    return places;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 6) {
        std::fprintf(stderr, "usage: picture_sums WINDOW X Y WIDTH HEIGHT [X Y WIDTH HEIGHT]...\n");
        return 2;
    }
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        std::fprintf(stderr, "picture_sums: no display\n");
        return 1;
    }
    XSetErrorHandler(Fail);
    const std::vector<Place> places = PlacesOf(display, argc, argv);
    std::vector<std::uint64_t> sums;
    if (!failed && !places.empty()) sums = Sums(display, places);
    XCloseDisplay(display);
    for (const std::uint64_t sum : sums) std::printf("%016llx\n", static_cast<unsigned long long>(sum));
    return failed || sums.empty() ? 1 : 0;
}

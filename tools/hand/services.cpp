#include "services.h"

#include <array>
#include <string_view>

namespace marvolin::hand {

namespace {

/// What the errors say that no player's action may lead to.
constexpr std::array<std::string_view, 4> kFaults{"Subscript out of range", "Overflow", "Object variable",
                                                  "Type mismatch"};

}  // namespace

bool RunDesktop::MessageBox(const std::string& text, const std::string& title, BoxStyle style) {
    Look(text);
    return QtDesktop::MessageBox(text, title, style);
}

void RunDesktop::Report(const std::string& text, const std::string& title, BoxStyle style) {
    Look(text);
    QtDesktop::Report(text, title, style);
}

void RunDesktop::ClipCursor(const PixelRect& rect) {
    Caged = true;
    QtDesktop::ClipCursor(rect);
}

void RunDesktop::ReleaseCursor() {
    Caged = false;
    QtDesktop::ReleaseCursor();
}

// One name is enough: the file is read back before the next one is asked for.
std::string RunDesktop::TempFileName(const std::string& prefix) { return folder_ + "/" + prefix + ".tmp"; }

void RunDesktop::Look(const std::string& text) {
    ++Boxes;
    for (const std::string_view fault : kFaults) {
        if (text.find(fault) != std::string::npos) FaultInABox = text;
    }
}

}  // namespace marvolin::hand

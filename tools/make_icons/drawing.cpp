#include "make_icons/drawing.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace marvolin::icons {

namespace {

// The colours of the LoopTracks A to D; that of D is lighter here, to be seen on a dark ground.
constexpr std::array<const char*, 4> kLoops{"#ff0000", "#29fdff", "#ffc000", "#5c7cff"};
constexpr const char* kGround = "#1d1f23";
constexpr const char* kEdge = "#7d8590";
constexpr const char* kBall = "#e6e8eb";
constexpr const char* kPaper = "#f3f4f6";
constexpr const char* kFold = "#b3bac4";

/// A circle of the drawing; units.
struct Circle {
    double X = 32;
    double Y = 32;
    double Radius = 0;
};

std::string Number(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f", value);
    return text.data();
}

std::string Point(const Circle& circle, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return Number(circle.X + circle.Radius * std::cos(angle)) + " " +
           Number(circle.Y + circle.Radius * std::sin(angle));
}

/// The four LoopTracks in a ring, with the ball of the pad between them.
std::string Ring(const Circle& circle, double width, const char* ball) {
    constexpr double kGap = 18;  // degrees on either side of an arc
    std::string text;
    double from = -180;
    for (const char* colour : kLoops) {
        const std::string radius = Number(circle.Radius);
        text += "<path d=\"M " + Point(circle, from + kGap) + " A " + radius + " " + radius + " 0 0 1 " +
                Point(circle, from + 90 - kGap) + "\" fill=\"none\" stroke=\"" + colour + "\" stroke-width=\"" +
                Number(width) + "\" stroke-linecap=\"round\"/>\n";
        from += 90;
    }
    return text + "<circle cx=\"" + Number(circle.X) + "\" cy=\"" + Number(circle.Y) + "\" r=\"" +
           Number(circle.Radius * 0.32) + "\" fill=\"" + ball + "\"/>\n";
}

std::string Box(double left, double top, double size, double round) {
    return "<rect x=\"" + Number(left) + "\" y=\"" + Number(top) + "\" width=\"" + Number(size) + "\" height=\"" +
           Number(size) + "\" rx=\"" + Number(round) + "\" fill=\"" + kGround + "\" stroke=\"" + kEdge +
           "\" stroke-width=\"1.5\"/>\n";
}

std::string Sheet() {
    return std::string("<path d=\"M 12 3 H 40 L 53 16 V 61 H 12 Z\" fill=\"") + kPaper + "\" stroke=\"" + kEdge +
           "\" stroke-width=\"2\" stroke-linejoin=\"round\"/>\n<path d=\"M 40 3 V 16 H 53 Z\" fill=\"" + kFold +
           "\" stroke=\"" + kEdge + "\" stroke-width=\"2\" stroke-linejoin=\"round\"/>\n";
}

/// Lines of a program, each in the colour of a LoopTrack.
std::string Lines() {
    constexpr std::array<double, 4> kStarts{20, 25, 25, 20};
    constexpr std::array<double, 4> kEnds{40, 46, 38, 30};
    std::string text;
    for (std::size_t line = 0; line < kLoops.size(); ++line) {
        const std::string y = Number(25 + 8.5 * static_cast<double>(line));
        text += "<path d=\"M " + Number(kStarts[line]) + " " + y + " H " + Number(kEnds[line]) +
                "\" fill=\"none\" stroke=\"" + kLoops[line] + "\" stroke-width=\"5\" stroke-linecap=\"round\"/>\n";
    }
    return text;
}

std::string Shapes(Subject subject) {
    switch (subject) {
        case Subject::Program:
            return Box(2, 2, 60, 13) + Ring({.Radius = 20}, 8, kBall);
        case Subject::Set:
            return Sheet() + Ring({.X = 32.5, .Y = 37, .Radius = 13}, 5.5, kGround);
        case Subject::Package:
            return Sheet() + Box(17, 22, 31, 5) + Ring({.X = 32.5, .Y = 37.5, .Radius = 9.5}, 4.5, kBall);
        case Subject::Script:
            return Sheet() + Lines();
    }
    return "";
}

}  // namespace

std::string NameOf(Subject subject) {
    switch (subject) {
        case Subject::Program:
            return "marvolin";
        case Subject::Set:
            return "application-x-marvolin-set";
        case Subject::Package:
            return "application-x-marvolin-package";
        case Subject::Script:
            return "text-x-marvolin-script";
    }
    return "";
}

std::string Draw(Subject subject) {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"64\" height=\"64\" viewBox=\"0 0 64 64\">\n" +
           Shapes(subject) + "</svg>\n";
}

}  // namespace marvolin::icons

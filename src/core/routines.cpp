#include "core/routines.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <limits>

#include "core/errors.h"
#include "core/session.h"

namespace marvolin {

double Int(double x) { return std::floor(x); }

double Round(double x) {
    const double below = std::floor(x);
    const double rest = x - below;
    if (rest < 0.5) return below;
    if (rest > 0.5) return below + 1;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1;
}

double Round(double x, int digits) {
    const double scale = std::pow(10.0, digits);
    return Round(x * scale) / scale;
}

namespace {

template <typename Whole>
Whole ToWhole(double x) {
    const double rounded = Round(x);
    // A NaN fails both comparisons, and so ends here too.
    if (!(rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max())) {
        throw OverflowError();
    }
    return static_cast<Whole>(rounded);
}

template <typename Whole>
Whole RandomAroundOf(Random& chance, Whole v) {
    if (v == 0) return 0;
    const double wide = static_cast<double>(v);
    return ToWhole<Whole>(Int(chance.Rnd() * (2 * std::abs(wide) + 1)) - wide);
}

}  // namespace

std::int16_t ToI2(double x) { return ToWhole<std::int16_t>(x); }
std::int32_t ToI4(double x) { return ToWhole<std::int32_t>(x); }

std::int16_t AddI2(std::int16_t a, std::int16_t b) {
    const int sum = a + b;
    if (sum < std::numeric_limits<std::int16_t>::min() || sum > std::numeric_limits<std::int16_t>::max()) {
        throw OverflowError();
    }
    return static_cast<std::int16_t>(sum);
}

void ClampI2(std::int16_t& value, std::int16_t low, std::int16_t high) {
    if (value > high) value = high;
    if (value < low) value = low;
}

void ClampI4(std::int32_t& value, std::int32_t low, std::int32_t high) {
    if (value > high) value = high;
    if (value < low) value = low;
}

void ClampR8(double& value, double low, double high) {
    if (value > high) value = high;
    if (value < low) value = low;
}

double ClampVar(double value, double low, double high) {
    ClampR8(value, low, high);
    return value;
}

std::int16_t PatternRandom(Random& chance, std::int16_t v) {
    if (v == 0) return 0;
    if (v > 0) return ToI2(Int(chance.Rnd() * (v + 1.0)));
    return ToI2(Int(chance.Rnd() * (1.0 - v)) + v);
}

std::int16_t RandomAround(Random& chance, std::int16_t v) { return RandomAroundOf(chance, v); }
std::int32_t RandomAround(Random& chance, std::int32_t v) { return RandomAroundOf(chance, v); }

double RandomPlusMinus(Random& chance, double v) {
    if (v == 0) return 0;
    return (v + v) * chance.Rnd() - v;
}

std::string MonthName(int month) {
    // The table ends at "Nov": in December the label starts with the blank.
    static constexpr std::array<const char*, 11> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov"};
    if (month < 1 || month > static_cast<int>(kMonths.size())) return "";
    return kMonths[static_cast<std::size_t>(month - 1)];
}

std::string TodayText(int month, int day) { return MonthName(month) + " " + std::to_string(day); }

bool StartsWith(std::string_view text, std::string_view prefix) { return text.starts_with(prefix); }

std::string NumberText(double value) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.10g", value);
    return text.data();
}

std::string Trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return "";
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return upper;
}

std::string HourMinute(const Session& s) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%02dh%02dm%02ds", s.Clock.ClockHours, s.Clock.ClockMinutes,
                  s.Clock.ClockSeconds);
    return text.data();
}

std::string TempFileName(Session& s) { return s.World.Desk.TempFileName("VBN"); }

void ClearProcedureFlags(Session& s) {
    s.ProcedureFlags.fill(0);
    s.Drag = {};
    s.BandDrag = {};
    s.SelectDragTag = 0;
    s.PatternDrawRow = s.PatternRandomRow = -1;
    s.BallHolds = {};
    if (!s.CursorFree) s.World.Desk.ReleaseCursor();
    s.CursorFree = true;
}

void ReadWorkArea(Session& s) {
    const PixelRect area = s.World.Desk.WorkArea();
    const double x = s.World.Desk.TwipsPerPixelX();
    const double y = s.World.Desk.TwipsPerPixelY();
    s.WorkArea.Left = ToI4(area.Left * x);
    s.WorkArea.Top = ToI4(area.Top * y);
    s.WorkArea.Right = ToI4(area.Right * x);
    s.WorkArea.Bottom = ToI4(area.Bottom * y);
}

void ShowStatus(Session& s, std::string_view text) {
    if (s.StatusText == text) return;
    s.StatusText = text;
    s.World.Screen.ShowStatusText();
}

void ShowReadout(Session& s, std::string_view text) {
    if (s.ReadoutText == text) return;
    s.ReadoutText = text;
    s.World.Screen.ShowReadout();
}

}  // namespace marvolin

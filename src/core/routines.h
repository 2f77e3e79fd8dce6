#pragma once
/// \file
/// The routine library: clamps, rounding, random spreads and small texts.

#include <cstdint>
#include <string>
#include <string_view>

#include "core/random.h"

namespace marvolin {

struct Session;

/// The largest whole number not above `x`.
double Int(double x);

/// `x` to the nearest whole number, ties to the even one.
double Round(double x);
/// `x` to `digits` decimals, ties to the even digit.
double Round(double x, int digits);

/// `x` rounded as `Round` does, as an integer of its width. Raises `OverflowError` when it does not fit (or is no
/// number).
std::int16_t ToI2(double x);
std::int32_t ToI4(double x);

/// Sum in 16 bits; raises `OverflowError`.
std::int16_t AddI2(std::int16_t a, std::int16_t b);

/// Limit `value` in place: above `high` becomes `high`, below `low` becomes `low`.
void ClampI2(std::int16_t& value, std::int16_t low, std::int16_t high);
void ClampI4(std::int32_t& value, std::int32_t low, std::int32_t high);
void ClampR8(double& value, double low, double high);
/// The same for mixed types; returns the limited value.
double ClampVar(double value, double low, double high);

/// The larger; the second when they are equal.
template <typename T>
T MaxOf(const T& a, const T& b) {
    return a > b ? a : b;
}

/// A random whole number between 0 and `v` inclusive, of either sign; 0 for 0.
std::int16_t PatternRandom(Random& chance, std::int16_t v);
/// Int(Rnd * (2 * |v| + 1)) - v, for positive `v` a random whole number in -v..v; 0 for 0.
std::int16_t RandomAround(Random& chance, std::int16_t v);
std::int32_t RandomAround(Random& chance, std::int32_t v);
/// (v + v) * Rnd - v; 0 when `v` is 0.
double RandomPlusMinus(Random& chance, double v);

/// "Jan".."Nov" for 1..11; anything else, 12 included, gives "".
std::string MonthName(int month);
/// Month name, a blank and the day of the month.
std::string TodayText(int month, int day);
/// True if `text` begins with `prefix`.
bool StartsWith(std::string_view text, std::string_view prefix);
/// A number as a plain decimal text without trailing zeros: 100, 99.5, -0.25.
std::string NumberText(double value);
/// `text` without blanks around it.
std::string Trim(std::string_view text);
/// `text` with ASCII letters in capitals.
std::string UpperCase(std::string_view text);

/// The running clock as hours "h" minutes "m" seconds "s", two digits each: "00h03m27s".
std::string HourMinute(const Session& s);

/// A new unique file in the system's temporary folder with the prefix "VBN"; "" on failure.
std::string TempFileName(Session& s);

/// Clears `ProcedureFlags`, the flags of the gestures that have several stages.
void ClearProcedureFlags(Session& s);

/// Reads the desktop's work area into `WorkArea`, in twips.
void ReadWorkArea(Session& s);

/// Shows `text` in the first panel of the status bar, if it is not shown there already.
void ShowStatus(Session& s, std::string_view text);
/// Shows a value beside the hint, if it is not shown there already.
void ShowReadout(Session& s, std::string_view text);

}  // namespace marvolin

#pragma once
/// \file
/// The sizes that the whole program can be drawn in.

#include <QSize>
#include <array>

namespace marvolin {

/// The sizes that can be chosen, percent.
inline constexpr std::array<int, 11> kProgramSizes{75, 80, 85, 90, 95, 100, 110, 125, 150, 175, 200};
/// Room for a title bar above a window and its frame below, pixels.
inline constexpr int kTitleRoom = 37;

/// What has to fit, pixels at 100 %, without frames.
struct FormSizes {
    QSize Main;
    int Browser = 0;  ///< width of the browser
};

bool IsProgramSize(int percent);
/// Whether the main window is whole on a screen with `room` free, pixels at 100 %.
bool SizeFits(int percent, const FormSizes& forms, QSize room);
/// The size of a first start: the largest at which the main window is whole. More than 100 % only where the browser
/// still has room beside it.
int LargestSize(const FormSizes& forms, QSize room);
/// `percent`, or the largest size below it that fits, or else the smallest one.
int UsableSize(int percent, const FormSizes& forms, QSize room);

}  // namespace marvolin

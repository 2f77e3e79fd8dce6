#pragma once
/// \file
/// Hints of the status line that no gesture procedure shows itself. "clk" is a click, "dblclk" a double click, "rtclk"
/// a right click, "drg" and "rtdrg" a drag with the left or the right button.

#include <string_view>

namespace marvolin::hints {

inline constexpr std::string_view kBrowse = "clk Open Browser Window";
inline constexpr std::string_view kSaveOpen = "clk Save/Open Dialogue";
inline constexpr std::string_view kQuickLoad = "clk Open QuickLoad Dropdown";
inline constexpr std::string_view kToTop = "clk Toggle Mini/Regular Window";
inline constexpr std::string_view kFadeFactor = "set Fade Speed";
inline constexpr std::string_view kLimiter = "drg -/+ to Thin to N Playing LoopTracks";
inline constexpr std::string_view kHelpPanel = "drg Question Mark to Control for Help";

}  // namespace marvolin::hints

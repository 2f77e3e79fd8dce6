#pragma once
/// \file
/// Hints of the status line that no gesture procedure shows itself. "clk" is a click, "dblclk" a double click, "rtclk"
/// a right click, "drg" and "rtdrg" a drag with the left or the right button.

#include <string_view>

namespace marvolin::hints {

inline constexpr std::string_view kBrowse = "clk Open Browser Window";
inline constexpr std::string_view kSaveOpen = "clk Save/Open Dialogue";
inline constexpr std::string_view kQuickLoad = "clk Open QuickLoad Dropdown";
inline constexpr std::string_view kSnapShot = "clk Save Snapshot";
inline constexpr std::string_view kToTop = "clk Toggle Mini/Regular Window";
inline constexpr std::string_view kFadeFactor = "set Fade Speed";
inline constexpr std::string_view kLimiter = "drg -/+ to Thin to N Playing LoopTracks";
// Of the pad and the map: terse in the same way where the instrument has no words of its own.
inline constexpr std::string_view kPadBall = "drg Mix Channels; dblclk Centre";
inline constexpr std::string_view kPadType = "slct What the Ball Moves";
inline constexpr std::string_view kPadFunction = "slct Where the Fade Begins";
inline constexpr std::string_view kSetChannel = "slct Wires of all LoopTracks";
inline constexpr std::string_view kEnable3d = "clk Toggle 3D Sound";
inline constexpr std::string_view kMapSize = "drg Map Size";
inline constexpr std::string_view kRollOff = "drg Roll Off; rtclk Roll Off =1";
inline constexpr std::string_view kPosMacros = "slct Scatter or Wander";
inline constexpr std::string_view kCentreAll = "clk Center All";
inline constexpr std::string_view kPosPop = "clk Bring Listner to Front";
inline constexpr std::string_view kHelpPanel = "drg Question Mark to Control for Help";

}  // namespace marvolin::hints

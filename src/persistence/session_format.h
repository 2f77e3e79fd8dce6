#pragma once
/// \file
/// The fixed texts of session files.

#include <cstdint>
#include <string>
#include <string_view>

#include "core/files/former_file.h"

namespace marvolin {

inline constexpr std::string_view kHeaderText = "Marvolin File Format (C) K. Venner, 2000 v0.5f";
inline constexpr std::int16_t kHeaderNumber = 12;

inline constexpr std::string_view kSettingsTag = "Settings";
inline constexpr std::string_view kBandsTag = "Bands";
inline constexpr std::string_view kThreeDTag = "ThreeD";
inline constexpr std::string_view kPickListsTag = "PickLists";
inline constexpr std::string_view kLoopsTag = "LoopsV1";
inline constexpr std::string_view kHistoryTag = "History";
inline constexpr std::string_view kClipBoardTag = "ClipBoard";
inline constexpr std::string_view kEndTag = "END";

inline constexpr std::string_view kSessionExtension = ".mvn";
inline constexpr std::string_view kPackageExtension = ".mvp";

/// File name of the set of which `fileName` is the copy; `fileName` itself when it does not end in "~".
inline std::string_view WithoutCopyMark(std::string_view fileName) {
    return fileName.ends_with(kCopyMark) ? fileName.substr(0, fileName.size() - kCopyMark.size()) : fileName;
}

/// True for a package, a session with copies of its samples beside it, and for its copy. Only the spelling ".mvp"
/// counts.
inline bool IsPackage(std::string_view fileName) { return WithoutCopyMark(fileName).ends_with(kPackageExtension); }

}  // namespace marvolin

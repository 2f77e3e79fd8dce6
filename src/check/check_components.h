#pragma once
/// \file
/// Whether the components that the program is built on are installed, before anything else runs.

#include <array>
#include <string_view>

#include "check/type_libraries.h"
#include "core/session.h"

namespace marvolin {

/// A component that the program is built on.
struct Component {
    std::string_view File;
    std::string_view Library;  ///< identifier of its type library
    std::string_view Version;  ///< the one that is needed
};

/// The components without which the program does not start, in the order of the check. The first is the sound.
inline constexpr std::array<Component, 12> kRequiredComponents{{
    {"DX7VB.DLL", "{E1211242-8E94-11D1-8808-00C04FC2C602}", "1.0"},
    {"SCRRUN.DLL", "{420B2830-E718-11CF-893D-00A0C9054228}", "1.0"},
    {"CCRPTMR6.DLL", "{42F1591E-830C-11D2-BBDE-0055003B26DE}", "1.0"},
    {"TABCTL32.OCX", "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}", "1.1"},
    {"PICCLP32.OCX", "{27395F88-0C0C-101B-A3C9-08002B2F49FB}", "1.1"},
    {"MSCOMCTL.OCX", "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}", "2.0"},
    {"MSCOMCT2.OCX", "{86CF1D34-0C5F-11D2-A9FC-0000F8754DA1}", "2.0"},
    {"CCRPFTV6.OCX", "{19B7F2A2-1610-11D3-BF30-1AF820524153}", "1.2"},
    {"SHELLLINK.OCX", "{3F5E1A26-01BF-11D4-B3E7-7C1807C10000}", "1.0"},
    {"COMCT332.OCX", "{38911DA0-E448-11D0-84A3-00DD01104159}", "1.1"},
    {"LGAUGE.OCX", "{A1158760-D290-11CF-BC8C-207402C10627}", "1.0"},
    {"CCRPFD6.OCX", "{446BA877-5DA1-11D3-BD95-9497CA1D1132}", "2.0"},
}};
/// The script engine, which the program can do without.
inline constexpr Component kScriptComponent{"MSSCRIPT.OCX", "{0E59F1D2-1FBE-11D0-8FF2-00A0D10038BC}", "1.0"};

/// Checks every component and sets `ScriptAvailable`. True when the program may start. What is missing is shown in up
/// to two boxes: "DirectX 7.0a missing" for the first component, "Missing Files" with a list of the others.
bool CheckComponents(Session& s, TypeLibraries& system);

}  // namespace marvolin

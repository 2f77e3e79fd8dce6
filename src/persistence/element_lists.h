#pragma once
/// \file
/// The elements of a session as the Save/Open dialogue lists them.

#include <array>
#include <string_view>

#include "core/switch_record.h"

namespace marvolin {

/// A row of the lists `Elements`.
struct ElementRow {
    Element Switch;
    std::string_view Text;
};
/// The rows, in the order of the lists.
inline constexpr std::array<ElementRow, kElements> kElementRows{{
    {Element::LoopTrack, "Sample, Play Mode, Thinnable"},
    {Element::PlayState, "Play State"},
    {Element::Freq, "Pitch"},
    {Element::FreqPattern, "Pitch Pattern"},
    {Element::Vol, "Volume"},
    {Element::VolPattern, "Volume Pattern"},
    {Element::Pan, "Pan"},
    {Element::PanPattern, "Pan Pattern"},
    {Element::Position, "3d Position"},
    {Element::CrossFader, "Wiring"},
    {Element::Bands, "Bands"},
    {Element::PickLists, "Browse Folders & Destinations"},
    {Element::ClipBoard, "ClipBoard"},
    {Element::HistoryLists, "History Lists"},
    {Element::General, "General settings"},
    {Element::ThreeD, "3d Enabled"},
}};

/// A preset of the lists `Selector`: whether it selects row `row` of `Elements`.
struct ElementPreset {
    std::string_view Text;
    bool (*Selects)(int row);
};
inline constexpr std::array<ElementPreset, 5> kElementPresets{{
    {"All", [](int) { return true; }},
    {"None", [](int) { return false; }},
    {"Loop", [](int row) { return row < 9; }},
    {"Jamming", [](int row) { return row >= 9; }},
    {"3d", [](int row) { return row == 8 || row == 15; }},
}};

/// Labels above the two lists, by `SwitchRow`.
inline constexpr std::array<std::string_view, 2> kElementLabels{"Elements to save:", "Elements to open:"};

}  // namespace marvolin

#pragma once
/// \file
/// The lists of elements in the Save/Open dialogue.

#include <array>
#include <string>
#include <string_view>

#include "core/session.h"

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

/// Labels over the two lists.
inline constexpr std::array<std::string_view, 2> kElementLabels{"Elements to save:", "Elements to open:"};
/// What the player has set in the dialogue and not yet taken over.
struct SaveOpenChoices {
    std::array<std::array<bool, kElements>, 2> Elements{};  ///< selected rows of the lists, 0 save, 1 open
    bool SelectionsOnly = false;
    bool EmptyBlank = false;
    std::string Session;
};

/// Opens the dialogue on `fileName`, a name in the current folder or "".
void OpenSaveOpen(Session& s, const std::string& fileName);
/// What the dialogue shows when it opens.
SaveOpenChoices CurrentChoices(const Session& s);
/// "Save/Open-" and the file of the dialogue, or "Save/Open".
std::string SaveOpenTitle(const Session& s);
/// Selects the rows of list `list` (0 save, 1 open) by a preset.
void ChoosePreset(SaveOpenChoices& choices, int list, const ElementPreset& preset);
/// Takes the choices over into the session.
void TakeBack(Session& s, const SaveOpenChoices& choices);

}  // namespace marvolin

#pragma once
/// \file
/// What a step can change beside the rows: bands, histories, and all that a set replaces.

#include <cstdint>
#include <string>
#include <vector>

#include "core/files/keyed_table.h"
#include "core/session.h"

namespace marvolin {

/// The parts of an instrument that a step changes each for itself, as bits.
using InstrumentParts = std::uint32_t;
enum InstrumentPart : InstrumentParts {
    kBandsPart = 1U << 0,       ///< the bands and the seven selectors
    kHistoryPart = 1U << 1,     ///< the palettes
    kThinListPart = 1U << 2,    ///< the order of thinning
    kMacroPart = 1U << 3,       ///< the choice in `PosMacros`
    kWireChoicePart = 1U << 4,  ///< the choice in `SetChannel`
    kPadPart = 1U << 5,         ///< the balls of the pad, its type, the channels
    k3dPart = 1U << 6,
    kRollOffPart = 1U << 7,
    kMapSizePart = 1U << 8,
    kNamesPart = 1U << 9,      ///< folder, file and switches of the current set
    kSettingsPart = 1U << 10,  ///< the options, each for itself
    kFirstBinPart = 1U << 11,  ///< folder and destination of a bin; the other bins follow
    kBinsPart = kFirstBinPart * ((1U << kBins) - 1),
};

/// What comes back of a bin.
struct BinState {
    std::string Folder;
    std::int16_t Destination = 0;
    std::int16_t ClickPlay = 0;
    friend bool operator==(const BinState&, const BinState&) = default;
};

/// The instrument beside its rows as it was at one moment.
struct InstrumentState {
    InstrumentParts Captured = 0;  ///< the parts that follow

    Table<Band, kBands> Bands;
    bool SelectionControlled = true;
    Table<std::vector<std::string>, 5> History;
    std::string ThinList;
    std::int16_t PosMacro = 0;
    std::int16_t WireChoice = -1;

    Table<PadRecord, 5> Pad;
    std::int16_t PadType = 0;
    std::int16_t Twist = 0;
    Table<std::int16_t, kChannels + 1> ChannelVol, ChannelPan, ChannelHz;
    bool Use3D = false;
    float RollOff = 0;
    std::int16_t MapSize = 0;
    std::string Folder, File, DialogueFile, Title;
    bool SaveItEnabled = false;
    clsSwitchRecord SavingSwitches;
    KeyedTable Settings;   ///< all of them, in a step those that it has changed
    bool JoyOpen = false;  ///< belongs to the settings: nothing was assigned to any joystick, and none had come
    Table<BinState, kBins> Bins;
};

/// Captures those parts that have not been captured yet.
void CaptureParts(const Session& s, InstrumentState& state, InstrumentParts parts);
/// The captured parts in which the two differ.
InstrumentParts DifferentParts(const InstrumentState& before, const InstrumentState& after);
/// Copies some parts.
void CopyParts(InstrumentState& to, const InstrumentState& from, InstrumentParts parts);
/// Those of `values` that have a key in `keys`.
KeyedTable SettingsWithKeysOf(const KeyedTable& values, const KeyedTable& keys);
/// The settings in which the two differ, with the values of `wanted`.
KeyedTable DifferentSettings(const KeyedTable& wanted, const KeyedTable& other);

}  // namespace marvolin

#include "persistence/undo/instrument_state.h"

#include <array>

#include "performance/joystick/joystick_waiting.h"
#include "persistence/settings_section.h"

namespace marvolin {

namespace {

struct PartOf {
    InstrumentParts Part;
    void (*Take)(InstrumentState& state, const Session& s);
    bool (*Same)(const InstrumentState& a, const InstrumentState& b);
    void (*Copy)(InstrumentState& to, const InstrumentState& from);
};

template <auto Field>
bool SameValue(const InstrumentState& a, const InstrumentState& b) {
    return a.*Field == b.*Field;
}
template <auto Field>
void CopyValue(InstrumentState& to, const InstrumentState& from) {
    to.*Field = from.*Field;
}

void TakeBands(InstrumentState& state, const Session& s) {
    state.Bands = s.BandTable;
    state.SelectionControlled = s.SelectionControlled;
}
bool SameBands(const InstrumentState& a, const InstrumentState& b) {
    return a.Bands == b.Bands && a.SelectionControlled == b.SelectionControlled;
}
void CopyBands(InstrumentState& to, const InstrumentState& from) {
    to.Bands = from.Bands;
    to.SelectionControlled = from.SelectionControlled;
}

void TakePad(InstrumentState& state, const Session& s) {
    state.Pad = s.PadTable;
    state.PadType = s.PadTypeIndex;
    state.Twist = s.TwistPosition;
    state.ChannelVol = s.ChannelVol;
    state.ChannelPan = s.ChannelPan;
    state.ChannelHz = s.ChannelHz;
}
bool SamePad(const InstrumentState& a, const InstrumentState& b) {
    for (int type = 0; type < static_cast<int>(a.Pad.size()); ++type) {
        if (a.Pad[type].X != b.Pad[type].X || a.Pad[type].Y != b.Pad[type].Y) return false;
    }
    return a.PadType == b.PadType && a.Twist == b.Twist && a.ChannelVol == b.ChannelVol &&
           a.ChannelPan == b.ChannelPan && a.ChannelHz == b.ChannelHz;
}
void CopyPad(InstrumentState& to, const InstrumentState& from) {
    to.Pad = from.Pad;
    to.PadType = from.PadType;
    to.Twist = from.Twist;
    to.ChannelVol = from.ChannelVol;
    to.ChannelPan = from.ChannelPan;
    to.ChannelHz = from.ChannelHz;
}

void TakeNames(InstrumentState& state, const Session& s) {
    state.Folder = s.CurrentFolder;
    state.File = s.CurrentFile;
    state.DialogueFile = s.DialogueFile;
    state.Title = s.Title;
    state.SaveItEnabled = s.SaveItEnabled;
    state.SavingSwitches = s.SaveOpenSwitches[kWhenSaving];
}
bool SameNames(const InstrumentState& a, const InstrumentState& b) {
    return a.Folder == b.Folder && a.File == b.File && a.DialogueFile == b.DialogueFile && a.Title == b.Title &&
           a.SaveItEnabled == b.SaveItEnabled && a.SavingSwitches == b.SavingSwitches;
}
void CopyNames(InstrumentState& to, const InstrumentState& from) {
    to.Folder = from.Folder;
    to.File = from.File;
    to.DialogueFile = from.DialogueFile;
    to.Title = from.Title;
    to.SaveItEnabled = from.SaveItEnabled;
    to.SavingSwitches = from.SavingSwitches;
}

void TakeSettings(InstrumentState& state, const Session& s) {
    state.Settings = CollectSettings(s);
    state.JoyOpen = JoyIsOpen(s);
}
bool SameSettings(const InstrumentState& a, const InstrumentState& b) {
    return a.Settings.Pairs() == b.Settings.Pairs();
}
// Settings that `from` does not have stay.
void CopySettings(InstrumentState& to, const InstrumentState& from) {
    for (const auto& [key, value] : from.Settings.Pairs()) to.Settings.Put(key, value);
    to.JoyOpen = from.JoyOpen;
}

template <int Bin>
constexpr PartOf kPartOfBin{
    kFirstBinPart << Bin,
    [](InstrumentState& state, const Session& s) {
        state.Bins[Bin] = {s.Bins[Bin].Folder, s.Bins[Bin].Destination, s.Bins[Bin].ClickPlay};
    },
    [](const InstrumentState& a, const InstrumentState& b) { return a.Bins[Bin] == b.Bins[Bin]; },
    [](InstrumentState& to, const InstrumentState& from) { to.Bins[Bin] = from.Bins[Bin]; }};

constexpr std::array<PartOf, 11 + kBins> kPartsOfInstrument{{
    {kBandsPart, TakeBands, SameBands, CopyBands},
    {kHistoryPart, [](InstrumentState& state, const Session& s) { state.History = s.History; },
     SameValue<&InstrumentState::History>, CopyValue<&InstrumentState::History>},
    {kThinListPart, [](InstrumentState& state, const Session& s) { state.ThinList = s.ThinList; },
     SameValue<&InstrumentState::ThinList>, CopyValue<&InstrumentState::ThinList>},
    {kMacroPart, [](InstrumentState& state, const Session& s) { state.PosMacro = s.PosMacro; },
     SameValue<&InstrumentState::PosMacro>, CopyValue<&InstrumentState::PosMacro>},
    {kWireChoicePart, [](InstrumentState& state, const Session& s) { state.WireChoice = s.SetChannelChoice; },
     SameValue<&InstrumentState::WireChoice>, CopyValue<&InstrumentState::WireChoice>},
    {kPadPart, TakePad, SamePad, CopyPad},
    {k3dPart, [](InstrumentState& state, const Session& s) { state.Use3D = s.Use3D; },
     SameValue<&InstrumentState::Use3D>, CopyValue<&InstrumentState::Use3D>},
    {kRollOffPart, [](InstrumentState& state, const Session& s) { state.RollOff = s.RollOffValue; },
     SameValue<&InstrumentState::RollOff>, CopyValue<&InstrumentState::RollOff>},
    {kMapSizePart, [](InstrumentState& state, const Session& s) { state.MapSize = s.MapSize; },
     SameValue<&InstrumentState::MapSize>, CopyValue<&InstrumentState::MapSize>},
    {kNamesPart, TakeNames, SameNames, CopyNames},
    {kSettingsPart, TakeSettings, SameSettings, CopySettings},
    kPartOfBin<0>,
    kPartOfBin<1>,
    kPartOfBin<2>,
}};

}  // namespace

void CaptureParts(const Session& s, InstrumentState& state, InstrumentParts parts) {
    for (const PartOf& part : kPartsOfInstrument) {
        if ((parts & part.Part & ~state.Captured) != 0) part.Take(state, s);
    }
    state.Captured |= parts;
}

InstrumentParts DifferentParts(const InstrumentState& before, const InstrumentState& after) {
    InstrumentParts parts = 0;
    for (const PartOf& part : kPartsOfInstrument) {
        const bool captured = (before.Captured & after.Captured & part.Part) != 0;
        if (captured && !part.Same(before, after)) parts |= part.Part;
    }
    const InstrumentParts both = before.Captured & after.Captured;
    // Switching 3D sound sets the roll-off anew, and options that are applied centre the ball of the pad.
    if ((parts & k3dPart) != 0) parts |= kRollOffPart & both;
    if ((parts & kSettingsPart) != 0) parts |= kPadPart & both;
    return parts;
}

void CopyParts(InstrumentState& to, const InstrumentState& from, InstrumentParts parts) {
    for (const PartOf& part : kPartsOfInstrument) {
        if ((parts & part.Part) != 0) part.Copy(to, from);
    }
    to.Captured |= parts;
}

KeyedTable DifferentSettings(const KeyedTable& wanted, const KeyedTable& other) {
    KeyedTable different;
    for (const auto& [key, value] : wanted.Pairs()) {
        const TaggedValue* present = other.Find(key);
        if (present == nullptr || *present != value) different.Put(key, value);
    }
    return different;
}

KeyedTable SettingsWithKeysOf(const KeyedTable& values, const KeyedTable& keys) {
    KeyedTable chosen;
    for (const auto& [key, value] : values.Pairs()) {
        if (keys.Find(key) != nullptr) chosen.Put(key, value);
    }
    return chosen;
}

}  // namespace marvolin

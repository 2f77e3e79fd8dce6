#include "persistence/undo/instrument_state.h"

#include <array>

#include "persistence/settings_section.h"

namespace marvolin {

namespace {

struct PartOf {
    InstrumentPart Part;
    bool (*Same)(const InstrumentState& a, const InstrumentState& b);
    void (*Copy)(InstrumentState& to, const InstrumentState& from);
};

bool SameBands(const InstrumentState& a, const InstrumentState& b) {
    return a.Bands == b.Bands && a.SelectionControlled == b.SelectionControlled;
}
void CopyBands(InstrumentState& to, const InstrumentState& from) {
    to.Bands = from.Bands;
    to.SelectionControlled = from.SelectionControlled;
}

template <auto Field>
bool SameValue(const InstrumentState& a, const InstrumentState& b) {
    return a.*Field == b.*Field;
}
template <auto Field>
void CopyValue(InstrumentState& to, const InstrumentState& from) {
    to.*Field = from.*Field;
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

bool SameSpace(const InstrumentState& a, const InstrumentState& b) {
    return a.Use3D == b.Use3D && a.RollOff == b.RollOff && a.MapSize == b.MapSize;
}
void CopySpace(InstrumentState& to, const InstrumentState& from) {
    to.Use3D = from.Use3D;
    to.RollOff = from.RollOff;
    to.MapSize = from.MapSize;
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

bool SameSettings(const InstrumentState& a, const InstrumentState& b) {
    return a.Settings.Pairs() == b.Settings.Pairs();
}

constexpr InstrumentParts kOfWhole = kPadPart | kSpacePart | kNamesPart | kSettingsPart | kBinsPart;

constexpr std::array<PartOf, 10> kPartsOfInstrument{{
    {kBandsPart, SameBands, CopyBands},
    {kHistoryPart, SameValue<&InstrumentState::History>, CopyValue<&InstrumentState::History>},
    {kThinListPart, SameValue<&InstrumentState::ThinList>, CopyValue<&InstrumentState::ThinList>},
    {kMacroPart, SameValue<&InstrumentState::PosMacro>, CopyValue<&InstrumentState::PosMacro>},
    {kWireChoicePart, SameValue<&InstrumentState::WireChoice>, CopyValue<&InstrumentState::WireChoice>},
    {kPadPart, SamePad, CopyPad},
    {kSpacePart, SameSpace, CopySpace},
    {kNamesPart, SameNames, CopyNames},
    {kSettingsPart, SameSettings, CopyValue<&InstrumentState::Settings>},
    {kBinsPart, SameValue<&InstrumentState::Bins>, CopyValue<&InstrumentState::Bins>},
}};

void CaptureWhole(const Session& s, InstrumentState& state) {
    state.Whole = true;
    state.Pad = s.PadTable;
    state.PadType = s.PadTypeIndex;
    state.Twist = s.TwistPosition;
    state.ChannelVol = s.ChannelVol;
    state.ChannelPan = s.ChannelPan;
    state.ChannelHz = s.ChannelHz;
    state.Use3D = s.Use3D;
    state.RollOff = s.RollOffValue;
    state.MapSize = s.MapSize;
    state.Folder = s.CurrentFolder;
    state.File = s.CurrentFile;
    state.DialogueFile = s.DialogueFile;
    state.Title = s.Title;
    state.SaveItEnabled = s.SaveItEnabled;
    state.SavingSwitches = s.SaveOpenSwitches[kWhenSaving];
    state.Settings = CollectSettings(s);
    for (int bin = 0; bin < kBins; ++bin) {
        state.Bins[bin] = {s.Bins[bin].Folder, s.Bins[bin].Destination, s.Bins[bin].ClickPlay};
    }
}

}  // namespace

InstrumentState CaptureInstrument(const Session& s, UndoScope scope) {
    InstrumentState state;
    state.Bands = s.BandTable;
    state.SelectionControlled = s.SelectionControlled;
    state.History = s.History;
    state.ThinList = s.ThinList;
    state.PosMacro = s.PosMacro;
    state.WireChoice = s.SetChannelChoice;
    if (scope == UndoScope::Everything) CaptureWhole(s, state);
    return state;
}

InstrumentParts DifferentParts(const InstrumentState& before, const InstrumentState& after) {
    const bool whole = before.Whole && after.Whole;
    InstrumentParts parts = 0;
    for (const PartOf& part : kPartsOfInstrument) {
        if (!whole && (part.Part & kOfWhole) != 0) continue;
        if (!part.Same(before, after)) parts |= part.Part;
    }
    return parts;
}

void CopyParts(InstrumentState& to, const InstrumentState& from, InstrumentParts parts) {
    for (const PartOf& part : kPartsOfInstrument) {
        if ((parts & part.Part) != 0) part.Copy(to, from);
    }
}

KeyedTable DifferentSettings(const KeyedTable& wanted, const KeyedTable& other) {
    KeyedTable different;
    for (const auto& [key, value] : wanted.Pairs()) {
        const TaggedValue* present = other.Find(key);
        if (present == nullptr || *present != value) different.Put(key, value);
    }
    return different;
}

}  // namespace marvolin

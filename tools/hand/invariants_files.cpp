#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "audio/thinning.h"
#include "core/files/paths.h"
#include "fakes/fake_display.h"
#include "fakes/fake_services.h"
#include "instrument/init_main_form.h"
#include "invariants.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/pad/mix_pad.h"
#include "persistence/session_file_store.h"
#include "persistence/session_reader.h"
#include "persistence/session_writer.h"
#include "persistence/undo/row_state.h"
#include "persistence/undo/undo_commands.h"
#include "sequencing/patterns.h"
#include "window/hand_state.h"
#include "window/tabs/tab_mix_pad.h"

namespace marvolin::hand {

namespace {

constexpr std::size_t kMostWords = 600;

/// An instrument without a window, that opens a set on the same devices.
struct Reader : test::FakeServices {
    explicit Reader(const World& world) {
        Desk.Folder = Desk.TempFile = world.Folder.Path();
        Desk.TempFile += "/reader.tmp";
        Sound.Drivers = world.Sound.Drivers;
        // Without a stick the assignments of a set are left out, and so are those of axes that it has not.
        Stick.Axes = {0, 4, 8, 12, 16, 20, 24, 28};
        s.DX = s.World.CreateDirectX7();
        s.Drivers = world.s.Drivers;
        s.DSEnum = s.DX->GetDSEnum();
        s.Driver = s.OpenDriver = 0;
        s.DS = s.DX->DirectSoundCreate("guid1");
        s.DSReady = s.DeviceSwapArmed = true;
        InitMainForm(s,
                     [](Session& made) { PadGeometryInit(made, TabMixPad::InnerWidth(), TabMixPad::InnerHeight()); });
        InitPatternTables(s);
        InitDirectInput(s);
    }
    test::FakeDisplay Screen;
    SessionFileStore Files;
    Session s{For(Screen, Files)};
};

std::string BytesOf(Session& s) {
    RecordWriter records;
    WriteSet(s, records, LoopsSaved::All, AllSwitches());
    return std::string(records.Bytes());
}

/// The settings in which the two differ, with both values.
std::string Differences(const test::Facts& before, const test::Facts& after) {
    std::string names;
    for (const auto& [name, value] : before) {
        const auto other = after.find(name);
        if (other == after.end() || other->second == value || names.size() > kMostWords) continue;
        names += "\n  " + name + " was " + value + " and is " + other->second;
    }
    return names;
}

/// What a set brings back of the rows that hold a sample in `world`, and beside them. Without `sound` the rows wait: a
/// set may choose "No Sound", which counts as soon as it opens the output again for its 3D state.
test::Facts KeptFacts(const Session& s, const World& world, bool sound) {
    static constexpr const char* kOfRows[] = {
        "FileName", "Vol",      "Hz",       "Thinnable", "StepDuration", "Swing",     "PlayMode",  "NSteps", "Channel",
        "Pattern0", "Pattern1", "Pattern2", "Loaded",    "BeatStart",    "PositionX", "PositionY", "Pan",    "Playing"};
    static constexpr const char* kOthers[] = {
        "Limit",          "FadeStep",         "TimingRes",        "DragAxis",        "Use3D",          "ActiveTab",
        "Clips",          "ResetVars",        "MapSize",          "RollOff",         "Pad0.Function",  "Pad1.Function",
        "Pad2.Function",  "Pad3.Function",    "JoyFactor0",       "JoyFactor1",      "JoyFactor2",     "JoyRelative0",
        "JoyRelative1",   "PositionUpdate0",  "PositionUpdate1",  "PositionUpdate2", "Bin0.ClickPlay", "Bin1.ClickPlay",
        "Bin2.ClickPlay", "Bin0.Destination", "Bin1.Destination", "Bin2.Destination"};
    // With 3D sound the pan is no part of a set, without it the map is none.
    static constexpr std::string_view kWithout3D[] = {"Pan", "Pattern2"};
    static constexpr std::string_view kWith3D[] = {"PositionX", "PositionY", "MapSize", "RollOff"};
    const auto isOut = [&](std::string_view field) {
        return world.s.Use3D ? std::ranges::find(kWithout3D, field) != std::end(kWithout3D)
                             : std::ranges::find(kWith3D, field) != std::end(kWith3D);
    };
    const test::Facts all = test::FactsOf(s);
    test::Facts kept;
    for (Row row = 0; row < kLoopTracks; ++row) {
        // What waits for a device or for its file comes back when that does; until then its place is kept.
        const LoopTrackRun& run = world.s.Run[row];
        if (!sound || run.Loaded == False || run.Missing || !FileExists(world.s.Set[row].FileName)) continue;
        for (const char* field : kOfRows) {
            // Not all comes to play that a limit has let play before.
            const bool limited = std::string_view(field) == "Playing" && world.s.Limit < kNoLimit;
            if (limited || isOut(field)) continue;
            const std::string name = std::string(1, RowLetter(row)) + "." + field;
            kept[name] = all.at(name);
            // A step of no length, as a file may have it, becomes the shortest one when the read-outs show it.
            if (std::string_view(field) == "StepDuration" && kept[name] == "0") kept[name] = "1";
        }
    }
    for (const char* name : kOthers) {
        if (!isOut(name)) kept[name] = all.at(name);
    }
    // The gauge stays where it is when a device refuses to open with 3D sound, whose roll-off is 0 then.
    if (world.Refused) kept.erase("RollOff");
    return kept;
}

// The gauge of the speed cuts what it gets from a file, so that some places come back one lower.
double SpeedFromAFile(double fadeStep) {
    constexpr double kPlaces = 500;  // of one `FadeStep`
    return std::floor(fadeStep * kPlaces) / kPlaces;
}

void WriteAt(const std::string& path, Session& s) {
    RecordWriter file(path);
    WriteSet(s, file, LoopsSaved::All, AllSwitches());
    file.Close();
}

std::string FirstDifference(const std::string& before, const std::string& after) {
    const auto [at, there] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    std::string around(before, static_cast<std::size_t>(std::max<std::ptrdiff_t>(at - before.begin() - 40, 0)), 48);
    std::replace_if(
        around.begin(), around.end(), [](char letter) { return letter < ' '; }, '.');
    return "from byte " + std::to_string(at - before.begin()) + " of " + std::to_string(before.size()) + " and " +
           std::to_string(after.size()) + " on, behind \"" + around + "\"";
}

// The shortest step as above, after which all must stay as it is.
bool AStepWasLimited(const test::Facts& before, const test::Facts& after) {
    return std::any_of(before.begin(), before.end(), [&](const auto& fact) {
        const auto& [name, value] = fact;
        return name.ends_with(".StepDuration") && value == "0" && after.at(name) == "1";
    });
}

// A sample that has not come into its row, though there is a device, comes in from memory with the next step that has
// it.
bool SomeSampleWaits(const Session& s) {
    return s.DSReady && std::any_of(s.Run.begin(), s.Run.end(), [](const LoopTrackRun& run) { return Waits(run); });
}

// A fade does not go on, row Z plays when a row does, the places of the balls are rounded, and the number of steps is
// shown anew when the tab of patterns opens.
test::Facts WithoutMoving(test::Facts facts) {
    std::erase_if(facts, [](const auto& fact) {
        return fact.first.ends_with(".FadeState") || fact.first.ends_with(".FadeTarget") || fact.first == "Z.Playing" ||
               fact.first == "StepsShown" || fact.first.starts_with("Ball");
    });
    return facts;
}

}  // namespace

// A set does not hold all of the instrument: the flags of the selection, for one, are in the file and do not come back.
// So what is compared is the list of what does, and the file of what was read with the one of what is read from that.
std::string WrongSet(World& world) {
    const std::string path = world.In("check.mvn");
    WriteAt(path, world.s);
    Reader first(world);
    if (!LoadSession(first.s, path, SetAsCurrent::No, AllSwitches(), AdoptSwitches::No))
        return "a saved set does not open: " + first.Desk.LastBox();
    test::Facts saved = KeptFacts(world.s, world, first.s.DSReady);
    saved["FadeStep"] = std::to_string(SpeedFromAFile(world.s.FadeStep));
    const std::string lost = Differences(saved, KeptFacts(first.s, world, first.s.DSReady));
    if (!lost.empty()) return "of a saved set something does not come back:" + lost + "\n  " + first.s.StatusText;
    WriteAt(path, first.s);
    Reader second(world);
    if (!LoadSession(second.s, path, SetAsCurrent::No, AllSwitches(), AdoptSwitches::No))
        return "a set that was opened and saved does not open again: " + second.Desk.LastBox();
    const std::string before = BytesOf(first.s);
    const std::string after = BytesOf(second.s);
    if (before == after) return "";
    return "a set is another one each time it is opened and saved, " + FirstDifference(before, after) +
           Differences(test::FactsOf(first.s), test::FactsOf(second.s));
}

std::string WrongUndo(World& world) {
    Session& s = world.s;
    if (UndoText(s).empty() || SomeSampleWaits(s)) return "";
    const std::string step = UndoText(s);
    for (bool again = false;; again = true) {
        const std::string before = BytesOf(s);
        const test::Facts facts = test::FactsOf(s);
        Undo_Click(s);
        const std::string said = s.StatusText;
        Redo_Click(s);
        const std::string after = BytesOf(s);
        const test::Facts now = test::FactsOf(s);
        if (before == after && WithoutMoving(facts) == WithoutMoving(now)) return "";
        if (!again && AStepWasLimited(facts, now)) continue;
        return "taken back and done again, \"" + step + "\" leaves another set, " + FirstDifference(before, after) +
               Differences(facts, now) + "\n  " + said + "\n  " + s.StatusText;
    }
}

}  // namespace marvolin::hand

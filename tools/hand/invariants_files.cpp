#include <algorithm>
#include <string>

#include "audio/device.h"
#include "fakes/fake_display.h"
#include "fakes/fake_services.h"
#include "instrument/init_main_form.h"
#include "invariants.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/pad/mix_pad.h"
#include "persistence/session_file_store.h"
#include "persistence/session_reader.h"
#include "persistence/session_writer.h"
#include "persistence/undo/undo_commands.h"
#include "sequencing/patterns.h"
#include "window/tabs/tab_mix_pad.h"

namespace marvolin::hand {

namespace {

/// An instrument without a window, that opens a set on the same devices.
struct Reader : test::FakeServices {
    explicit Reader(const World& world) {
        Desk.Folder = Desk.TempFile = world.Folder.Path();
        Desk.TempFile += "/reader.tmp";
        Sound.Drivers = world.Sound.Drivers;
        Stick = world.Stick;
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

std::string FirstDifference(const std::string& before, const std::string& after) {
    const auto [at, there] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    std::string around(before, static_cast<std::size_t>(std::max<std::ptrdiff_t>(at - before.begin() - 40, 0)), 48);
    std::replace_if(
        around.begin(), around.end(), [](char letter) { return letter < ' '; }, '.');
    return "from byte " + std::to_string(at - before.begin()) + " of " + std::to_string(before.size()) + " and " +
           std::to_string(after.size()) + " on, behind \"" + around + "\"";
}

}  // namespace

std::string WrongSet(World& world) {
    const std::string path = world.In("check.mvn");
    const std::string before = BytesOf(world.s);
    {
        RecordWriter file(path);
        WriteSet(world.s, file, LoopsSaved::All, AllSwitches());
        file.Close();
    }
    Reader reader(world);
    const bool read = LoadSession(reader.s, path, SetAsCurrent::No, AllSwitches(), AdoptSwitches::No);
    if (!read) return "a saved set does not open: " + reader.Desk.LastBox();
    const std::string after = BytesOf(reader.s);
    return before == after ? "" : "a saved set is another one when it is opened, " + FirstDifference(before, after);
}

std::string WrongUndo(World& world) {
    Session& s = world.s;
    if (UndoText(s).empty()) return "";
    const std::string step = UndoText(s);
    const std::string before = BytesOf(s);
    Undo_Click(s);
    Redo_Click(s);
    const std::string after = BytesOf(s);
    return before == after
               ? ""
               : "taken back and done again, \"" + step + "\" leaves another set, " + FirstDifference(before, after);
}

}  // namespace marvolin::hand

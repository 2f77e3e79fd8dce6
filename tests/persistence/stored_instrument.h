#pragma once
/// \file
/// An instrument on the first of the fake outputs, with real files: its folder is the program's and that of its sets.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "audio/sample_loading.h"
#include "browser/sample_bins.h"
#include "core/session.h"
#include "fakes/fake_display.h"
#include "fakes/fake_services.h"
#include "fakes/temp_folder.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/save_open.h"
#include "persistence/session_file_store.h"

namespace marvolin::test {

struct StoredInstrument : FakeServices {
    TempFolder Folder;
    FakeDisplay Screen;
    SessionFileStore Files;
    Session s{For(Screen, Files)};

    explicit StoredInstrument(std::vector<std::string> drivers) {
        Desk.Folder = Folder.Path();
        s.DX = std::make_unique<FakeDirectX>(Sound);
        s.DSEnum = s.DX->GetDSEnum();
        s.Drivers = std::move(drivers);
        s.Driver = s.OpenDriver = 0;
        s.DS = s.DX->DirectSoundCreate("guid1");
        s.DSReady = s.DeviceSwapArmed = s.GangReady = true;
        s.CurrentFolder = Folder.Path() + "/";
        for (clsSwitchRecord& switches : s.SaveOpenSwitches) switches.SetSwitch(true);
        PadGeometryInit(s, 4500, 4500);
        PadTablesInit(s);
        InitPicks(s);
    }

    void Load(Row row, const std::string& name, bool play = false) {
        LoadSample(s, {.Path = Folder / name, .Target = row, .Play = play});
    }
    bool Open(const std::string& name) { return OpenBesideDialogue(s, Folder / name); }
};

}  // namespace marvolin::test

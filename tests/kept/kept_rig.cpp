#include "kept/kept_rig.h"

#include "audio/sample_loading.h"
#include "browser/sample_bins.h"
#include "core/files/paths.h"
#include "fakes/file_bytes.h"
#include "fakes/instrument.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/quick_load.h"
#include "persistence/save_open.h"
#include "persistence/session_reader.h"

namespace marvolin::test {

KeptRig::KeptRig() {
    for (const char* name : {"a.wav", "b.wav", "c.wav", "d.wav"}) WriteBytes(Folder / name, name);
    Desk.Folder = Folder.Path();
    s.DX = std::make_unique<FakeDirectX>(Sound);
    s.DSEnum = s.DX->GetDSEnum();
    s.Drivers = {"Primary Sound Driver", "No Sound"};
    s.Driver = s.OpenDriver = 0;
    s.DS = s.DX->DirectSoundCreate("guid1");
    s.DSReady = s.DeviceSwapArmed = s.GangReady = true;
    s.CurrentFolder = Folder.Path() + "/";
    for (clsSwitchRecord& switches : s.SaveOpenSwitches) switches.SetSwitch(true);
    PadGeometryInit(s, 4500, 4500);
    PadTablesInit(s);
    InitPicks(s);
    UpdateQuickLoad(s);
    StartKeeping(s);
    s.StatusText.clear();
    Screen.Log.clear();
}

void KeptRig::Load(Row row, const std::string& name) { LoadSample(s, {.Path = Folder / name, .Target = row}); }

bool KeptRig::Open(const std::string& name) { return OpenBesideDialogue(s, Folder / name); }

bool KeptRig::Save(const std::string& name) {
    SaveItAs_Chosen(s, CurrentChoices(s), Folder / name);
    return FileExists(Folder / name);
}

void KeptRig::Pass(int seconds) {
    for (int second = 0; second < seconds; ++second) {
        WaitForLastState(s);
        for (FakeTimers::Timer* timer : Timers.Live) {
            if (timer->Interval == kLookPeriod) timer->OnTick(kLookPeriod);
        }
    }
    WaitForLastState(s);
}

std::optional<std::int16_t> KeptRig::VolumeIn(const std::string& path) {
    Instrument reader;
    PadGeometryInit(reader.s, 4500, 4500);
    PadTablesInit(reader.s);
    reader.s.DSEnum = reader.s.DX->GetDSEnum();
    reader.s.Drivers = {"Primary Sound Driver", "No Sound"};
    if (!LoadSession(reader.s, path, SetAsCurrent::No, AllSwitches(), AdoptSwitches::No)) return {};
    return reader.s.Set[0].Vol;
}

}  // namespace marvolin::test

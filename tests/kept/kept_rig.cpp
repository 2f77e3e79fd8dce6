#include "kept/kept_rig.h"

#include "core/files/paths.h"
#include "fakes/file_bytes.h"
#include "fakes/instrument.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/quick_load.h"
#include "persistence/save_open.h"
#include "persistence/session_reader.h"

namespace marvolin::test {

KeptRig::KeptRig() : StoredInstrument({"Primary Sound Driver", "No Sound"}) {
    for (const char* name : {"a.wav", "b.wav", "c.wav", "d.wav"}) WriteBytes(Folder / name, name);
    UpdateQuickLoad(s);
    StartKeeping(s);
    s.StatusText.clear();
    Screen.Log.clear();
}

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

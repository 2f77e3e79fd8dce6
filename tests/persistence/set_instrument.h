#pragma once
/// \file
/// An instrument whose sessions are real files, in a folder with samples.

#include "audio/transport.h"
#include "core/routines.h"
#include "fakes/file_bytes.h"
#include "fakes/instrument.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/session_reader.h"
#include "persistence/session_writer.h"

namespace marvolin::test {

inline clsSwitchRecord All() { return AllSwitches(); }
inline clsSwitchRecord Only(Element element) {
    clsSwitchRecord switches;
    switches.Put(element, true);
    return switches;
}
inline clsSwitchRecord AllBut(Element element) {
    clsSwitchRecord switches = All();
    switches.Put(element, false);
    return switches;
}

struct SetInstrument : Instrument {
    TempFolder Folder;

    SetInstrument() {
        for (const char* name : {"a.wav", "b.wav", "c.wav", "d.wav", "clip.wav"}) WriteBytes(Folder / name, name);
        Desk.Folder = Folder.Path();
        s.CurrentFolder = Folder.Path() + "/";
        s.Drivers = {"Primary Sound Driver", "Second Device", "No Sound"};
        s.Driver = 0;
        s.DSEnum = s.DX->GetDSEnum();
        PadGeometryInit(s, 4500, 4500);
        PadTablesInit(s);
        s.StatusText.clear();
        Screen.Log.clear();
    }
    bool Save(const std::string& name, const clsSwitchRecord& switches = All(), LoopsSaved loops = LoopsSaved::All) {
        return SaveSession(s, Folder / name, loops, switches);
    }
    bool Load(const std::string& name, const clsSwitchRecord& switches = All()) {
        return LoadSession(s, Folder / name, SetAsCurrent::No, switches, AdoptSwitches::No);
    }
    bool LoadBytes(const std::string& bytes, const clsSwitchRecord& switches = All()) {
        WriteBytes(Folder / "given.mvn", bytes);
        return Load("given.mvn", switches);
    }
};

}  // namespace marvolin::test

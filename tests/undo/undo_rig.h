#pragma once
/// \file
/// An instrument whose steps can be taken back, with sets and samples in a folder, and a portrait of all that a step
/// can change.

#include <string>

#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "core/session.h"
#include "core/undo/undo_step.h"
#include "fakes/fake_display.h"
#include "fakes/fake_services.h"
#include "fakes/temp_folder.h"
#include "persistence/session_file_store.h"
#include "persistence/undo/undo_commands.h"

namespace marvolin::test {

struct UndoRig : FakeServices {
    TempFolder Folder;
    FakeDisplay Screen;
    SessionFileStore Files;
    Session s{For(Screen, Files)};

    UndoRig();

    std::string Sample(const std::string& name) const { return Folder / name; }
    void Load(Row row, const std::string& name, bool play = false);
    FakeSound::Buffer& Buffer(Row row) { return dynamic_cast<FakeSound::Buffer&>(*s.Run[row].Buffer); }
    bool Sounds(Row row) { return s.Run[row].Buffer && s.Run[row].Buffer->GetStatus() != 0; }
    bool Save(const std::string& name);
    bool Open(const std::string& name);
    std::string LastText() const { return UndoText(s); }

    /// All that a step can change, as a text of one line for each part.
    std::string Portrait();
};

}  // namespace marvolin::test

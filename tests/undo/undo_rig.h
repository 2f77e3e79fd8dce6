#pragma once
/// \file
/// An instrument whose steps can be taken back, with sets and samples in a folder, and a portrait of all that a step
/// can change.

#include <string>

#include "audio/transport.h"
#include "core/undo/undo_step.h"
#include "persistence/stored_instrument.h"
#include "persistence/undo/undo_commands.h"

namespace marvolin::test {

/// Whether volume, pan and pitch of the rows are in a portrait.
enum class Knobs : std::uint8_t { Told, LeftOut };

struct UndoRig : StoredInstrument {
    UndoRig();

    std::string Sample(const std::string& name) const { return Folder / name; }
    FakeSound::Buffer& Buffer(Row row) { return dynamic_cast<FakeSound::Buffer&>(*s.Run[row].Buffer); }
    bool Sounds(Row row) { return s.Run[row].Buffer && s.Run[row].Buffer->GetStatus() != 0; }
    bool Save(const std::string& name);
    std::string LastText() const { return UndoText(s); }

    /// All that a step can change, as a text of one line for each part.
    std::string Portrait(Knobs knobs = Knobs::Told);
};

}  // namespace marvolin::test

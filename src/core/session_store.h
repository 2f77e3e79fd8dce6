#pragma once
/// \file
/// Session files, as the folders below `persistence/` reach them: a change of device or of 3D sound keeps the whole
/// session in a file. Behind it stands `SessionFileStore` (persistence/session_file_store.h).

#include <cstdint>
#include <string>

#include "core/switch_record.h"

namespace marvolin {

struct Session;

/// Which LoopTracks a file receives.
enum class LoopsSaved : std::uint8_t { All, SelectionsOnly };
/// Whether a loaded file becomes the current session of the window title.
enum class SetAsCurrent : std::uint8_t { No, Yes };
/// Whether the switches found in a loaded file become those of the next save.
enum class AdoptSwitches : std::uint8_t { No, Yes };

/// Saves a session to a file and loads it back.
class SessionStore {
public:
    virtual ~SessionStore() = default;
    /// Writes the sections that `switches` select. True when the file was written to its end. Shows its own messages.
    virtual bool SaveSession(Session& s, const std::string& fileName, LoopsSaved loops,
                             const clsSwitchRecord& switches) = 0;
    /// Reads the file and applies what `switches` select. True when the file was read to its end. Shows its own
    /// messages.
    virtual bool LoadSession(Session& s, const std::string& fileName, SetAsCurrent current,
                             const clsSwitchRecord& switches, AdoptSwitches adopt) = 0;
};

}  // namespace marvolin

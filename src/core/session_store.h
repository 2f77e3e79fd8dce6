#pragma once

#include <string>

#include "core/switch_record.h"

namespace marvolin {

struct Session;

/// Saves a session to a file and loads it back. The floors below the session files reach them through this.
class SessionStore {
public:
    virtual ~SessionStore() = default;
    /// True when the file was written to its end. Failures show their own message.
    virtual bool SaveSession(Session& s, const std::string& fileName, bool selectionsOnly,
                             const clsSwitchRecord& switches) = 0;
    /// True when the file was read to its end. Failures show their own message.
    virtual bool LoadSession(Session& s, const std::string& fileName, bool setAsCurrent,
                             const clsSwitchRecord& switches, bool adoptSwitches) = 0;
};

}  // namespace marvolin

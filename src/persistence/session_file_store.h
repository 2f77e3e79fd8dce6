#pragma once

#include "core/session_store.h"

namespace marvolin {

/// The session files, for the floors below them.
class SessionFileStore : public SessionStore {
public:
    bool SaveSession(Session& s, const std::string& fileName, bool selectionsOnly,
                     const clsSwitchRecord& switches) override;
    bool LoadSession(Session& s, const std::string& fileName, bool setAsCurrent, const clsSwitchRecord& switches,
                     bool adoptSwitches) override;
};

}  // namespace marvolin

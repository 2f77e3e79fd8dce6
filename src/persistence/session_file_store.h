#pragma once

#include "core/session_store.h"

namespace marvolin {

/// The session files, for the folders below this one.
class SessionFileStore : public SessionStore {
public:
    bool SaveSession(Session& s, const std::string& fileName, LoopsSaved loops,
                     const clsSwitchRecord& switches) override;
    bool LoadSession(Session& s, const std::string& fileName, SetAsCurrent current, const clsSwitchRecord& switches,
                     AdoptSwitches adopt) override;
};

}  // namespace marvolin

#include "persistence/session_file_store.h"

#include "persistence/session_reader.h"
#include "persistence/session_writer.h"

namespace marvolin {

bool SessionFileStore::SaveSession(Session& s, const std::string& fileName, bool selectionsOnly,
                                   const clsSwitchRecord& switches) {
    return marvolin::SaveSession(s, fileName, selectionsOnly, switches);
}

bool SessionFileStore::LoadSession(Session& s, const std::string& fileName, bool setAsCurrent,
                                   const clsSwitchRecord& switches, bool adoptSwitches) {
    return marvolin::LoadSession(s, fileName, setAsCurrent, switches, adoptSwitches);
}

}  // namespace marvolin

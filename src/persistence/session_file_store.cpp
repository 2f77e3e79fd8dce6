#include "persistence/session_file_store.h"

#include "persistence/session_reader.h"
#include "persistence/session_writer.h"

namespace marvolin {

bool SessionFileStore::SaveSession(Session& s, const std::string& fileName, LoopsSaved loops,
                                   const clsSwitchRecord& switches) {
    return marvolin::SaveSession(s, fileName, loops, switches);
}

bool SessionFileStore::LoadSession(Session& s, const std::string& fileName, SetAsCurrent current,
                                   const clsSwitchRecord& switches, AdoptSwitches adopt) {
    return marvolin::LoadSession(s, fileName, current, switches, adopt);
}

}  // namespace marvolin

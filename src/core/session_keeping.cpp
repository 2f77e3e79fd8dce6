#include "core/session_keeping.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "core/routines.h"

namespace marvolin {

bool KeepSessionAcross(Session& s, const clsSwitchRecord& taken, const std::function<void()>& change) {
    const std::string file = TempFileName(s);
    if (file.empty()) {
        change();
        return false;
    }
    s.World.Store.SaveSession(s, file, LoopsSaved::All, AllSwitches());
    change();
    // The clips are still there; the load would add those of the file to them.
    ClipBoardState clips = std::exchange(s.Clips, {});
    s.World.Store.LoadSession(s, file, SetAsCurrent::No, taken, AdoptSwitches::No);
    s.Clips = std::move(clips);
    s.World.Screen.ShowClips();
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    return true;
}

}  // namespace marvolin

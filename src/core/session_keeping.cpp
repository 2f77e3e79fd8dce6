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
    clsSwitchRecord everything;
    everything.SetSwitch(true);
    s.World.Store.SaveSession(s, file, false, everything);
    change();
    // The clips never went away, and those of the file would stand behind them once more.
    ClipBoardState clips = std::exchange(s.Clips, {});
    s.World.Store.LoadSession(s, file, false, taken, false);
    s.Clips = std::move(clips);
    s.World.Screen.ShowClips();
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    return true;
}

}  // namespace marvolin

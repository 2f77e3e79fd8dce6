#include "persistence/quick_load.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "core/files/name_order.h"
#include "core/files/paths.h"
#include "persistence/save_open.h"
#include "persistence/session_format.h"

namespace marvolin {

namespace fs = std::filesystem;

void UpdateQuickLoad(Session& s) {
    s.QuickLoadRows.assign(1, std::string(kQuickLoadClose));
    s.QuickLoadEnabled = DirExists(s.CurrentFolder);
    if (s.QuickLoadEnabled) {
        std::error_code error;
        for (fs::directory_iterator entry(s.CurrentFolder, error), end; !error && entry != end;
             entry.increment(error)) {
            const std::string name = entry->path().filename().string();
            std::error_code ignored;
            if (!EndsInIgnoringCase(name, kSessionExtension) || entry->is_directory(ignored)) continue;
            s.QuickLoadRows.push_back(name.substr(0, name.size() - kSessionExtension.size()));
        }
    }
    s.World.Screen.ShowQuickLoad();
}

void QuickLoadPop_MouseUp(Session& s, std::int16_t button) {
    s.QuickLoadTag = button;
    s.World.Screen.ShowQuickLoadList(true);
}

void QuickLoad_Click(Session& s, std::string_view text) {
    const std::string name(text);
    // Before the load, as an open list would cover its messages and keep the mouse from them.
    s.World.Screen.ShowQuickLoadList(false);
    if (name == kQuickLoadClose) return;
    const std::string file = name + std::string(kSessionExtension);
    if (s.QuickLoadTag == kLeftButton) {
        OpenAsChosen(s, JoinPath(s.CurrentFolder, file));
    } else {
        OpenSaveOpen(s, file);
    }
}

void QuickLoad_LostFocus(Session& s) { s.World.Screen.ShowQuickLoadList(false); }

}  // namespace marvolin

#include "persistence/quick_load.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "core/files/name_order.h"
#include "core/files/paths.h"
#include "persistence/kept/last_state.h"
#include "persistence/save_open.h"
#include "persistence/session_format.h"

namespace marvolin {

namespace fs = std::filesystem;

namespace {

std::vector<std::string> SessionsIn(const std::string& folder) {
    std::vector<std::string> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        std::error_code ignored;
        if (EndsInIgnoringCase(name, kSessionExtension) && !entry->is_directory(ignored)) files.push_back(name);
    }
    std::sort(files.begin(), files.end(), NameBefore);
    return files;
}

}  // namespace

void UpdateQuickLoad(Session& s) {
    s.QuickLoadRows.assign(1, std::string(kQuickLoadClose));
    s.QuickLoadFiles.assign(1, "");
    s.QuickLoadEnabled = DirExists(s.CurrentFolder);
    if (s.QuickLoadEnabled) {
        for (const std::string& file : SessionsIn(s.CurrentFolder)) {
            s.QuickLoadRows.push_back(file.substr(0, file.size() - kSessionExtension.size()));
            s.QuickLoadFiles.push_back(file);
        }
    }
    s.World.Screen.ShowQuickLoad();
}

void QuickLoadPop_MouseUp(Session& s, std::int16_t button) {
    // Not before: a list that stands open goes by the numbers of its rows.
    if (LastStateIsNew(s)) UpdateQuickLoad(s);
    s.QuickLoadTag = button;
    s.World.Screen.ShowQuickLoadList(true);
}

void QuickLoad_Click(Session& s, std::size_t row) {
    // Before the load, as an open list would cover its messages and keep the mouse from them.
    s.World.Screen.ShowQuickLoadList(false);
    if (row == 0 || row >= s.QuickLoadFiles.size()) return;
    // By value: the load of a session can rebuild the list.
    const std::string file = s.QuickLoadFiles[row];
    if (s.QuickLoadTag == kLeftButton) {
        OpenBesideDialogue(s, JoinPath(s.CurrentFolder, file));
    } else {
        OpenSaveOpen(s, file);
    }
}

void QuickLoad_LostFocus(Session& s) { s.World.Screen.ShowQuickLoadList(false); }

}  // namespace marvolin

#include "persistence/snapshot.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "core/files/paths.h"
#include "core/routines.h"
#include "persistence/quick_load.h"
#include "persistence/save_open.h"
#include "persistence/session_format.h"

namespace marvolin {

std::string SnapshotName(const Session& s) {
    std::string stem = Trim(s.SessionName);
    if (stem.empty()) stem = "Snapshot";
    std::replace_if(
        stem.begin(), stem.end(), [](char c) { return c == '/' || c == '\\'; }, '-');
    std::string name;
    int number = 0;
    do {
        std::array<char, 16> digits{};
        std::snprintf(digits.data(), digits.size(), " %03d", ++number);
        name = stem + digits.data() + std::string(kSessionExtension);
    } while (FileExists(JoinPath(s.CurrentFolder, name)));
    return name;
}

void SnapShot_MouseUp(Session& s) {
    const std::string name = SnapshotName(s);
    const std::string path = JoinPath(s.CurrentFolder, name);
    if (!SaveAsChosen(s, path)) return;
    UpdateQuickLoad(s);
    ShowStatus(s, name);
}

}  // namespace marvolin

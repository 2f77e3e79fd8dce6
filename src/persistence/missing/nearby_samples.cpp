#include "persistence/missing/nearby_samples.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <string_view>
#include <system_error>

#include "core/files/name_order.h"
#include "core/files/paths.h"
#include "persistence/missing/missing_sample.h"
#include "persistence/missing/sample_choice.h"

namespace marvolin {

namespace fs = std::filesystem;

namespace {

/// Adds the files of `folder` whose name differs from `name` only in the case of its letters.
void AddAlike(const std::string& folder, const std::string& name, std::vector<std::string>& paths) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); entry != fs::directory_iterator(); entry.increment(error)) {
        // A folder may hold a hundred thousand files: nothing is made of the name of one that is not meant.
        const std::string_view whole = entry->path().native();
        if (!SameIgnoringCase(whole.substr(whole.rfind('/') + 1), name)) continue;
        const std::string path = JoinPath(folder, entry->path().filename().string());
        if (TargetExists(path)) paths.push_back(path);
    }
}

/// The folders in which a sample is looked for, each once: bins often show one folder.
std::vector<std::string> FoldersToLookIn(const Session& s, const std::string& setFolder) {
    std::vector<std::string> folders{setFolder};
    for (const SampleBin& bin : s.Bins) folders.push_back(bin.Folder);
    folders.erase(std::remove(folders.begin(), folders.end(), ""), folders.end());
    for (auto folder = folders.begin(); folder != folders.end(); ++folder) {
        folders.erase(std::remove(folder + 1, folders.end(), *folder), folders.end());
    }
    return folders;
}

std::vector<std::string> FilesNamed(const std::string& name, const std::vector<std::string>& folders) {
    std::vector<std::string> paths;
    for (const std::string& folder : folders) {
        if (TargetExists(JoinPath(folder, name))) paths.push_back(JoinPath(folder, name));
    }
    if (paths.empty()) {
        for (const std::string& folder : folders) AddAlike(folder, name, paths);
    }
    return paths;
}

}  // namespace

std::vector<std::string> FindNearby(const Session& s, const std::vector<std::string>& missing,
                                    const std::vector<std::string>& inPlace, const std::string& setFolder) {
    const std::vector<std::string> folders = FoldersToLookIn(s, setFolder);
    const std::set<std::string_view> own(inPlace.begin(), inPlace.end());
    std::vector<WantedFile> wanted;
    for (const std::string& stored : missing) {
        WantedFile file{stored, FilesNamed(NameOfSample(stored), folders)};
        std::erase_if(file.Paths,
                      [&](const std::string& path) { return own.contains(path) && !SameIgnoringCase(path, stored); });
        wanted.push_back(std::move(file));
    }
    return ShareOut(wanted);
}

}  // namespace marvolin

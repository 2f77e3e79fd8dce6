#include "persistence/missing/sample_choice.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string_view>

#include "core/files/name_order.h"

namespace marvolin {

namespace {

/// The folders of a path, from its end. A path that starts with "/" is one of this system, where names may hold "\\".
std::vector<std::string_view> FoldersFromEnd(std::string_view path) {
    const std::string_view separators = path.starts_with('/') ? "/" : "/\\";
    std::vector<std::string_view> folders;
    std::size_t end = path.find_last_of(separators);
    while (end != std::string_view::npos && end > 0) {
        const std::size_t before = path.find_last_of(separators, end - 1);
        const std::size_t start = before == std::string_view::npos ? 0 : before + 1;
        folders.push_back(path.substr(start, end - start));
        end = before;
    }
    return folders;
}

std::ptrdiff_t FoldersInCommon(const std::string& stored, const std::string& path) {
    const std::vector<std::string_view> a = FoldersFromEnd(stored);
    const std::vector<std::string_view> b = FoldersFromEnd(path);
    return std::distance(a.begin(), std::mismatch(a.begin(), a.end(), b.begin(), b.end(), SameIgnoringCase).first);
}

}  // namespace

std::string BestMatch(const std::string& stored, const std::vector<std::string>& paths) {
    std::string best;
    std::ptrdiff_t most = -1;
    for (const std::string& path : paths) {
        const std::ptrdiff_t common = FoldersInCommon(stored, path);
        if (common <= most) continue;
        most = common;
        best = path;
    }
    return best;
}

std::vector<std::string> ShareOut(const std::vector<WantedFile>& wanted) {
    struct Match {
        std::ptrdiff_t Common;
        std::size_t Wanted;
        const std::string* Path;
    };
    std::vector<Match> matches;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        for (const std::string& path : wanted[i].Paths) {
            matches.push_back({FoldersInCommon(wanted[i].Stored, path), i, &path});
        }
    }
    std::stable_sort(matches.begin(), matches.end(),
                     [](const Match& a, const Match& b) { return a.Common > b.Common; });
    std::vector<std::string> shares(wanted.size());
    std::map<std::string_view, std::string_view> takers;
    for (const Match& match : matches) {
        if (!shares[match.Wanted].empty()) continue;
        const std::string& stored = wanted[match.Wanted].Stored;
        const auto taker = takers.try_emplace(*match.Path, stored).first;
        if (SameIgnoringCase(taker->second, stored)) shares[match.Wanted] = *match.Path;
    }
    return shares;
}

}  // namespace marvolin

#include "house/version.h"

#include <algorithm>
#include <regex>
#include <sstream>

#include "house/pages.h"

namespace marvolin::house {
namespace {

namespace fs = std::filesystem;

/// What `.gitignore` names, as "/build/"; and the repository's own, a folder or a file.
std::set<std::string> NoTexts(const fs::path& root) {
    std::set<std::string> names{".git"};
    std::istringstream lines(ReadPage(root / ".gitignore"));
    for (std::string line; std::getline(lines, line);) {
        std::erase(line, '/');
        names.insert(line);
    }
    return names;
}

/// `version` as a pattern that matches itself.
std::string Quoted(const std::string& version) { return std::regex_replace(version, std::regex(R"(\.)"), R"(\.)"); }

}  // namespace

bool NamesVersion(const std::string& text, const std::string& version) {
    const auto isDigit = [&](std::size_t at) { return at < text.size() && text[at] >= '0' && text[at] <= '9'; };
    const auto isDot = [&](std::size_t at) { return at < text.size() && text[at] == '.'; };
    for (auto at = text.find(version); at != std::string::npos; at = text.find(version, at + 1)) {
        const std::size_t end = at + version.size();
        const bool goesOn = isDigit(end) || (isDot(end) && isDigit(end + 1));
        const bool began = at > 0 && (isDigit(at - 1) || (isDot(at - 1) && at > 1 && isDigit(at - 2)));
        if (!began && !goesOn) return true;
    }
    return false;
}

std::vector<std::string> TextsThatName(const fs::path& root, const std::string& version,
                                       const std::set<std::string>& leftOut) {
    const std::set<std::string> noTexts = NoTexts(root);
    std::vector<std::string> found;
    for (fs::recursive_directory_iterator entry(root), end; entry != end; ++entry) {
        const std::string name = entry->path().lexically_relative(root).generic_string();
        if (entry.depth() == 0 && noTexts.contains(name)) {
            entry.disable_recursion_pending();
            continue;
        }
        if (!entry->is_regular_file() || leftOut.contains(name)) continue;
        const std::string text = ReadPage(entry->path());
        if (text.find('\0') == std::string::npos && NamesVersion(text, version)) found.push_back(name);
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::string DayOfVersion(const std::string& changes, const std::string& version) {
    const std::regex heading("(?:^|\n)## " + Quoted(version) + R"( \((\d{4}-\d{2}-\d{2})\)\n)");
    std::smatch match;
    return std::regex_search(changes, match, heading) ? match[1].str() : "";
}

}  // namespace marvolin::house

#include "house/floors.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <utility>

namespace marvolin::house {
namespace {

struct Floor {
    const char* folder;
    int height;
};

constexpr Floor kFloors[] = {
    {"core", 0},        {"audio", 1},     {"parameters", 1}, {"sequencing", 2}, {"performance", 3}, {"browser", 4},
    {"persistence", 4}, {"scripting", 5}, {"check", 5},      {"instrument", 6}, {"window", 7},      {"", 8},
};

struct Library {
    const char* name;
    const char* headers;  ///< Which includes are its own.
    const char* places;   ///< Which files may include them.
};

const Library kLibraries[] = {
    {"Qt", R"([<"](Q[A-Za-z0-9_/.]*|qt[a-z0-9_/.]*)[>"])", R"(window/.*|main\.cpp)"},
    {"QScintilla", R"([<"]Qsci/.*[>"])", R"(window/editor/scintilla/.*)"},
    {"SDL", R"([<"](SDL.*)[>"])", R"(audio/openal/.*|performance/joystick/sdl_input\.(h|cpp))"},
    {"OpenAL", R"([<"](AL/.*|al\.h|alc\.h|alext\.h)[>"])", R"(audio/openal/.*)"},
    {"libsndfile", R"([<"]sndfile.*[>"])", R"(audio/(openal/wave_file|output/recording_file)\.(h|cpp))"},
    {"liblnk", R"([<"]liblnk.*[>"])", R"(browser/lnk_shortcut\.(h|cpp))"},
    {"Lua", R"([<"](lua.*|lauxlib\.h)[>"])", R"(scripting/lua_library\.(h|cpp))"},
};

std::string FolderOf(const std::string& file) {
    const std::size_t slash = file.find('/');
    return slash == std::string::npos ? "" : file.substr(0, slash);
}

const Floor* FloorOf(const std::string& file) {
    const std::string folder = FolderOf(file);
    const auto* found =
        std::find_if(std::begin(kFloors), std::end(kFloors), [&](const Floor& f) { return folder == f.folder; });
    return found == std::end(kFloors) ? nullptr : found;
}

/// Includes of files of the tree, without their quotes.
std::vector<std::string> OwnIncludes(const std::string& text) {
    std::vector<std::string> own;
    for (const std::string& include : IncludesOf(text)) {
        if (include.front() == '"') own.push_back(include.substr(1, include.size() - 2));
    }
    return own;
}

/// Walks the includes depth first and reports each path that returns to a file that is still being walked.
class RingWalk {
public:
    explicit RingWalk(const Tree& tree) : tree_(tree) {}

    std::vector<std::string> Walk() {
        for (const auto& [file, text] : tree_) Enter(file);
        return rings_;
    }

private:
    void Enter(const std::string& file) {
        const auto known = tree_.find(file);
        if (known == tree_.end()) return;
        if (const auto open = std::find(way_.begin(), way_.end(), file); open != way_.end()) {
            std::string ring;
            for (auto at = open; at != way_.end(); ++at) ring += *at + " -> ";
            rings_.push_back(ring + file);
            return;
        }
        if (!done_.insert(file).second) return;
        way_.push_back(file);
        for (const std::string& include : OwnIncludes(known->second)) Enter(include);
        way_.pop_back();
    }

    const Tree& tree_;
    std::vector<std::string> way_;
    std::set<std::string> done_;
    std::vector<std::string> rings_;
};

}  // namespace

Tree ReadTree(const std::filesystem::path& root) {
    Tree tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension().string();
        if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp")) continue;
        std::ifstream in(entry.path(), std::ios::binary);
        tree[std::filesystem::relative(entry.path(), root).generic_string()] = {std::istreambuf_iterator<char>(in), {}};
    }
    return tree;
}

const Tree& Sources() {
    static const Tree sources = ReadTree(MARVOLIN_SOURCES);
    return sources;
}

std::vector<std::string> IncludesOf(const std::string& text) {
    static const std::regex kInclude(R"(^\s*#\s*include\s*([<"][^>"]+[>"]).*$)");
    std::vector<std::string> includes;
    std::istringstream lines(text);
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
        if (std::regex_match(line, match, kInclude)) includes.push_back(match[1]);
    }
    return includes;
}

std::vector<std::string> LibrariesOutOfPlace(const Tree& tree) {
    std::vector<std::string> wrong;
    for (const Library& library : kLibraries) {
        const std::regex headers(library.headers);
        const std::regex places(library.places);
        for (const auto& [file, text] : tree) {
            if (std::regex_match(file, places)) continue;
            for (const std::string& include : IncludesOf(text)) {
                if (std::regex_match(include, headers)) wrong.push_back(file + ": " + library.name + " by " + include);
            }
        }
    }
    return wrong;
}

std::vector<std::string> FloorsBroken(const Tree& tree) {
    std::vector<std::string> wrong;
    for (const auto& [file, text] : tree) {
        const Floor* own = FloorOf(file);
        if (own == nullptr) {
            wrong.push_back(file + ": its folder has no floor");
            continue;
        }
        for (const std::string& include : OwnIncludes(text)) {
            const Floor* other = FloorOf(include);
            if (other != nullptr && other->height > own->height)
                wrong.push_back(file + ": " + include + " stands above it");
        }
    }
    return wrong;
}

std::vector<std::string> FoldersInACircle(const Tree& tree) {
    std::set<std::pair<std::string, std::string>> ways;
    for (const auto& [file, text] : tree) {
        for (const std::string& include : OwnIncludes(text)) ways.emplace(FolderOf(file), FolderOf(include));
    }
    std::vector<std::string> wrong;
    for (const auto& [from, to] : ways) {
        // A change of a setting is sent to a buffer, and a change at a buffer sends its settings: these two belong
        // together.
        if (from == "audio" && to == "parameters") continue;
        if (from < to && ways.contains({to, from})) wrong.push_back(from + " and " + to + " include each other");
    }
    return wrong;
}

std::vector<std::string> IncludesThatLeadNowhere(const Tree& tree) {
    std::vector<std::string> wrong;
    for (const auto& [file, text] : tree) {
        for (const std::string& include : OwnIncludes(text)) {
            if (!tree.contains(include)) wrong.push_back(file + ": " + include + " is no file of the sources");
        }
    }
    return wrong;
}

std::vector<std::string> Rings(const Tree& tree) { return RingWalk(tree).Walk(); }

}  // namespace marvolin::house

#include "house/pages.h"

#include <cctype>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

namespace marvolin::house {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

/// Every match of `pattern` in `text`, as its group `group`.
std::vector<std::string> Matches(const std::string& text, const std::regex& pattern, int group) {
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match) {
        found.push_back((*match)[static_cast<std::size_t>(group)]);
    }
    return found;
}

std::set<std::string> TestsIn(const std::string& source) {
    static const std::regex kTest(R"(\bTEST(?:_F|_P)?\(\s*(\w+)\s*,\s*(\w+)\s*\))");
    std::set<std::string> tests;
    for (std::sregex_iterator match(source.begin(), source.end(), kTest), end; match != end; ++match) {
        tests.insert((*match)[1].str() + "." + (*match)[2].str());
    }
    return tests;
}

void ReadFolder(const fs::path& folder, TestPrograms& programs) {
    static const std::regex kProgram(R"(marvolin_(?:window_)?test\(\s*(\w+)([^)]*)\))");
    static const std::regex kSource(R"([\w/]+\.cpp)");
    const std::string lists = ReadPage(folder / "CMakeLists.txt");
    for (std::sregex_iterator call(lists.begin(), lists.end(), kProgram), end; call != end; ++call) {
        std::set<std::string>& tests = programs[(*call)[1].str() + "_test"];
        for (const std::string& source : Matches((*call)[2], kSource, 0))
            tests.merge(TestsIn(ReadPage(folder / source)));
    }
}

/// Rows of all tables but their heads.
std::vector<std::string> TableRows(const std::string& page) {
    std::vector<std::string> rows;
    int inTable = 0;
    for (const std::string& line : LinesOf(page)) {
        inTable = line.starts_with('|') ? inTable + 1 : 0;
        if (inTable > 2) rows.push_back(line);
    }
    return rows;
}

std::string SmallLetters(std::string word) {
    for (char& c : word) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return word;
}

const std::regex& TestSpan() {
    static const std::regex kSpan(R"((\w+_test) (\w+\.\w+))");
    return kSpan;
}

bool NamesAFile(const std::string& span) {
    static const std::regex kPath(R"([\w.*-]+(/[\w.*-]+)*/?)");
    static const std::regex kEnding(R"(.*\.(h|cpp|md|sh|txt|\*))");
    if (!std::regex_match(span, kPath)) return false;
    return span.find('/') != std::string::npos || std::regex_match(span, kEnding);
}

bool Exists(std::string name, const std::vector<fs::path>& roots) {
    if (name.ends_with(".*")) name.replace(name.size() - 1, 1, "h");
    for (const fs::path& root : roots) {
        if (fs::exists(root / name)) return true;
    }
    return false;
}

}  // namespace

std::string ReadPage(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TestPrograms ReadTestPrograms(const fs::path& tests) {
    TestPrograms programs;
    for (const auto& entry : fs::directory_iterator(tests)) {
        if (entry.is_directory()) ReadFolder(entry.path(), programs);
    }
    return programs;
}

std::vector<std::string> SpansOf(const std::string& page) {
    static const std::regex kSpan("`([^`]+)`");
    std::vector<std::string> spans;
    bool inBlock = false;
    for (const std::string& line : LinesOf(page)) {
        if (line.starts_with("```")) {
            inBlock = !inBlock;
        } else if (!inBlock && !line.starts_with("    ")) {
            for (const std::string& span : Matches(line, kSpan, 1)) spans.push_back(span);
        }
    }
    return spans;
}

std::vector<std::string> TestsThatAreNot(const std::string& page, const TestPrograms& programs) {
    std::vector<std::string> wrong;
    std::smatch match;
    for (const std::string& span : SpansOf(page)) {
        if (!std::regex_match(span, match, TestSpan())) continue;
        const auto program = programs.find(match[1]);
        if (program == programs.end() || !program->second.contains(match[2])) wrong.push_back(span + ": no such test");
    }
    return wrong;
}

std::vector<std::string> RowsWithoutATest(const std::string& page) {
    std::vector<std::string> wrong;
    for (const std::string& row : TableRows(page)) {
        bool named = false;
        for (const std::string& span : SpansOf(row)) named = named || std::regex_match(span, TestSpan());
        if (!named) wrong.push_back(row + ": names no test");
    }
    return wrong;
}

std::vector<std::string> FilesThatAreNot(const std::string& page, const std::vector<fs::path>& roots) {
    std::vector<std::string> wrong;
    for (const std::string& span : SpansOf(page)) {
        if (NamesAFile(span) && !Exists(span, roots)) wrong.push_back(span + ": no such file");
    }
    return wrong;
}

std::vector<std::string> NamesThatAreNot(const std::string& page, const std::map<std::string, std::string>& sources) {
    static const std::regex kWord(R"(\w+)");
    std::set<std::string> words;
    for (const auto& [file, text] : sources) {
        for (const std::string& word : Matches(text, kWord, 0)) {
            words.insert(SmallLetters(word));
            if (word.front() == 'k') words.insert(SmallLetters(word.substr(1)));
        }
    }
    std::vector<std::string> wrong;
    for (const std::string& row : TableRows(page)) {
        const std::string first = row.substr(0, row.find('|', 1));
        for (const std::string& name : SpansOf(first)) {
            if (std::regex_match(name, kWord) && !words.contains(SmallLetters(name)))
                wrong.push_back(name + ": no word of the sources");
        }
    }
    return wrong;
}

}  // namespace marvolin::house

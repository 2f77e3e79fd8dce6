#include "page_text.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <stdexcept>

namespace marvolin::help {

namespace {

namespace fs = std::filesystem;

bool Begins(const std::string& line, const char* mark) { return line.rfind(mark, 0) == 0; }

PageText NewPage(const std::string& line, const std::string& chapter) {
    PageText page;
    const char* end = line.data() + line.size();
    const auto number = std::from_chars(line.data() + 2, end, page.Topic);
    if (number.ec == std::errc() && number.ptr != end) page.Title = std::string(number.ptr + 1, end);
    page.Chapter = chapter;
    if (page.Topic == 0 || page.Title.empty() || chapter.empty()) throw std::runtime_error("no page: " + line);
    return page;
}

void ReadFile(const fs::path& path, std::vector<PageText>& pages) {
    std::ifstream file(path);
    std::string chapter;
    const std::size_t before = pages.size();
    for (std::string line; std::getline(file, line);) {
        if (Begins(line, "# ")) {
            chapter = line.substr(2);
        } else if (Begins(line, "= ")) {
            pages.push_back(NewPage(line, chapter));
        } else if (pages.size() > before) {
            pages.back().Lines.push_back(line);
        }
    }
}

}  // namespace

std::vector<PageText> ReadTexts(const std::string& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".txt") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    std::vector<PageText> pages;
    for (const fs::path& file : files) ReadFile(file, pages);
    std::set<std::int32_t> topics;
    for (const PageText& page : pages) {
        if (!topics.insert(page.Topic).second) throw std::runtime_error("two pages " + std::to_string(page.Topic));
    }
    return pages;
}

std::string Escaped(const std::string& text) {
    std::string html;
    for (const char c : text) {
        switch (c) {
            case '&':
                html += "&amp;";
                break;
            case '<':
                html += "&lt;";
                break;
            case '>':
                html += "&gt;";
                break;
            default:
                html += c;
        }
    }
    return html;
}

std::string Inline(const std::string& text) {
    static const std::regex link(R"(\[([^\]]+)\]\((\d+)\))");
    static const std::regex strong(R"(\*([^*]+)\*)");
    static const std::regex code("`([^`]+)`");
    std::string html = std::regex_replace(Escaped(text), link, "<a href=\"$2.html\">$1</a>");
    html = std::regex_replace(html, strong, "<b>$1</b>");
    return std::regex_replace(html, code, "<code>$1</code>");
}

}  // namespace marvolin::help

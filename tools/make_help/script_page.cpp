#include "script_page.h"

#include <regex>
#include <sstream>
#include <utility>

#include "page_text.h"

namespace marvolin::help {

namespace {

/// Code and nothing else is marked in a line of that page.
std::string Marked(const std::string& text) {
    static const std::regex code("`([^`]+)`");
    return std::regex_replace(Escaped(text), code, "<code>$1</code>");
}

class Converter {
public:
    std::string Convert(const std::string& markdown) {
        std::istringstream lines(markdown);
        std::string line;
        std::getline(lines, line);  // the title
        while (std::getline(lines, line)) Line(line);
        Change(Block::None);
        return html_;
    }

private:
    enum class Block { None, Text, List, Table, Code };

    static const char* Opening(Block block) {
        constexpr const char* kTags[] = {"", "<p>", "<ul>\n", "<table>\n", "<pre>"};
        return kTags[static_cast<int>(block)];
    }
    static const char* Closing(Block block) {
        constexpr const char* kTags[] = {"", "</p>\n", "</ul>\n", "</table>\n", "</pre>\n"};
        return kTags[static_cast<int>(block)];
    }

    void Change(Block block) {
        if (block == block_) return;
        html_ += Closing(std::exchange(block_, block));
        html_ += Opening(block);
    }

    void Heading(const std::string& line) {
        const std::size_t level = line.find(' ');
        Change(Block::None);
        const std::string tag = level == 2 ? "h2" : "h3";
        html_ += "<" + tag + ">" + Marked(line.substr(level + 1)) + "</" + tag + ">\n";
    }

    void TableRow(const std::string& line) {
        if (line.rfind("|---", 0) == 0) return;
        Change(Block::Table);
        html_ += "<tr>";
        std::istringstream cells(line.substr(1));
        for (std::string cell; std::getline(cells, cell, '|');) html_ += "<td>" + Marked(cell) + "</td>";
        html_ += "</tr>\n";
    }

    void Line(const std::string& line) {
        if (block_ == Block::List && line.rfind("  ", 0) == 0) {
            html_ += Marked(line.substr(1)) + "\n";
        } else if (line.rfind("    ", 0) == 0) {
            Change(Block::Code);
            html_ += Escaped(line.substr(4)) + "\n";
        } else if (line.empty()) {
            if (block_ != Block::Code) Change(Block::None);
        } else if (line[0] == '#') {
            Heading(line);
        } else if (line[0] == '|') {
            TableRow(line);
        } else if (line.rfind("- ", 0) == 0) {
            Change(Block::List);
            html_ += "<li>" + Marked(line.substr(2)) + "\n";
        } else {
            Change(Block::Text);
            html_ += Marked(line) + "\n";
        }
    }

    std::string html_;
    Block block_ = Block::None;
};

}  // namespace

std::string ScriptPage(const std::string& markdown) { return Converter().Convert(markdown); }

}  // namespace marvolin::help

#include "window/editor/scintilla/call_text.h"

#include <algorithm>
#include <vector>

namespace marvolin {

namespace {

bool IsOfWord(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '.';
}

std::string WithoutBlanksAtEnd(std::string text) {
    while (text.ends_with(' ') || text.ends_with('\t')) text.pop_back();
    return text;
}

struct Bracket {
    char Sign = 0;
    std::size_t At = 0;
    int Argument = 0;
};

/// Place behind the text whose opening quote is at `open`; the end of the line when it is not closed.
std::size_t BehindText(const std::string& line, std::size_t open) {
    for (std::size_t at = open + 1; at < line.size(); ++at) {
        if (line[at] == '\\') {
            ++at;
        } else if (line[at] == line[open]) {
            return at + 1;
        }
    }
    return std::string::npos;
}

void Count(std::vector<Bracket>& open, char c, std::size_t at) {
    if (c == '(' || c == '{' || c == '[') open.push_back({c, at});
    if ((c == ')' || c == '}' || c == ']') && !open.empty()) open.pop_back();
    if (c == ',' && !open.empty()) ++open.back().Argument;
}

}  // namespace

std::string WordAtEnd(const std::string& line) {
    std::size_t begin = line.size();
    while (begin > 0 && IsOfWord(line[begin - 1])) --begin;
    return line.substr(begin);
}

bool EndsInDefinition(const std::string& line) {
    const std::string before = line.substr(0, line.size() - WordAtEnd(line).size());
    const std::string head = WithoutBlanksAtEnd(before);
    return head.size() < before.size() && WordAtEnd(head) == "function";
}

LineEnd ReadLine(const std::string& line) {
    LineEnd end;
    std::vector<Bracket> open;
    for (std::size_t at = 0; at < line.size();) {
        if (line[at] == '"' || line[at] == '\'') {
            at = BehindText(line, at);
            end.InText = at == std::string::npos;
            if (end.InText) break;
            continue;
        }
        if (line.compare(at, 2, "--") == 0) {
            end.InComment = true;
            return end;
        }
        Count(open, line[at], at);
        ++at;
    }
    // A table or an index is part of an argument of the call around it.
    while (!open.empty() && open.back().Sign != '(') open.pop_back();
    if (open.empty()) return end;
    const std::string head = WithoutBlanksAtEnd(line.substr(0, open.back().At));
    end.Name = WordAtEnd(head);
    end.NameAt = head.size() - end.Name.size();
    end.Defined = EndsInDefinition(head);
    end.Argument = open.back().Argument;
    return end;
}

std::pair<int, int> ArgumentPlace(const std::string& signature, int argument) {
    std::size_t begin = signature.find('(');
    if (begin == std::string::npos) return {0, 0};
    for (++begin; argument > 0; --argument) {
        begin = signature.find(',', begin);
        if (begin == std::string::npos) return {0, 0};
        ++begin;
    }
    begin = std::min(signature.find_first_not_of(' ', begin), signature.size());
    // "path [, play])": the brackets belong to no argument.
    const std::size_t end = std::min(signature.find_first_of(",)]", begin), signature.size());
    const std::string name = WithoutBlanksAtEnd(signature.substr(begin, end - begin));
    const std::size_t length =
        name.ends_with('[') ? WithoutBlanksAtEnd(name.substr(0, name.size() - 1)).size() : name.size();
    return {static_cast<int>(begin), static_cast<int>(begin + length)};
}

std::string Broken(const std::string& text, std::size_t width) {
    std::string broken;
    std::size_t line = 0;  // where the line begins in `broken`
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of(" \n", at), text.size());
        if (broken.size() > line && broken.size() - line + 1 + (end - at) > width) {
            broken += '\n';
            line = broken.size();
        } else if (broken.size() > line) {
            broken += ' ';
        }
        broken.append(text, at, end - at);
        if (end < text.size() && text[end] == '\n') {
            broken += '\n';
            line = broken.size();
        }
        at = end + 1;
    }
    return broken;
}

}  // namespace marvolin

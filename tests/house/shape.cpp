#include "house/shape.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

#include "house/code_scan.h"

namespace marvolin::house {
namespace {

bool Ends(const std::string& file, const char* ending) { return file.ends_with(ending); }

std::string Stem(const std::string& file) { return file.substr(0, file.rfind('.')); }

int LineCount(const std::string& text) { return static_cast<int>(std::count(text.begin(), text.end(), '\n')); }

/// Whether `word` stands alone in `text`, behind `before` and in front of `after`, blanks apart; "" is anything.
bool HasWord(const std::string& text, const std::string& word, const std::string& before, const std::string& after) {
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at > 0 && IsWord(text[at - 1])) || (end < text.size() && IsWord(text[end]))) continue;
        const std::size_t last = text.find_last_not_of(" \n", at == 0 ? 0 : at - 1);
        const std::size_t next = std::min(text.find_first_not_of(" \n", end), text.size());
        const bool follows = last != std::string::npos && text.substr(0, last + 1).ends_with(before);
        if ((before.empty() || follows) && text.compare(next, after.size(), after) == 0) return true;
    }
    return false;
}

bool DeclaresClass(const std::string& text, const std::string& name) {
    return HasWord(text, name, "class", "") || HasWord(text, name, "struct", "");
}

/// Whether a header, or the source itself, declares what `function` is.
bool Declared(const Function& function, const std::string& header, const std::string& source) {
    const std::size_t colons = function.Name.find("::");
    if (colons == std::string::npos) return HasWord(header, function.Name, "", "(");
    const std::string type = function.Name.substr(0, colons);
    return DeclaresClass(header, type) || DeclaresClass(source, type);
}

void CheckHeader(const Tree& tree, const std::string& file, const std::string& text, std::vector<std::string>& wrong) {
    if (tree.contains(Stem(file) + ".cpp")) return;
    const std::vector<Function> functions = FunctionsOf(text);
    for (const Function& declared : functions) {
        if (declared.Lines != 0 || declared.Hidden) continue;
        const bool defined = std::any_of(functions.begin(), functions.end(), [&](const Function& other) {
            return other.Lines != 0 && other.Name.ends_with(declared.Name);
        });
        if (defined) continue;
        wrong.push_back(file + ": declares " + declared.Name + " and has no source");
        return;
    }
}

void CheckSource(const Tree& tree, const std::string& file, const std::string& text, std::vector<std::string>& wrong) {
    const std::string header = Stem(file) + ".h";
    if (!tree.contains(header)) {
        wrong.push_back(file + ": has no header of its name");
        return;
    }
    const std::vector<std::string> includes = IncludesOf(text);
    if (includes.empty() || includes.front() != '"' + header + '"') {
        wrong.push_back(file + ": does not include its own header first");
    }
    const std::string declarations = WithoutWords(tree.at(header));
    const std::string own = WithoutWords(text);
    for (const Function& function : FunctionsOf(text)) {
        if (function.Lines == 0 || function.InClass || function.Hidden) continue;
        if (!Declared(function, declarations, own)) {
            wrong.push_back(file + ": defines " + function.Name + ", which its header does not declare");
        }
    }
}

}  // namespace

std::vector<std::string> FoldersTooFull(const Tree& tree, std::size_t most) {
    std::map<std::string, std::set<std::string>> folders;
    for (const auto& [file, text] : tree) {
        const std::size_t slash = file.rfind('/');
        folders[slash == std::string::npos ? "." : file.substr(0, slash)].insert(Stem(file));
    }
    std::vector<std::string> wrong;
    for (const auto& [folder, subjects] : folders) {
        if (subjects.size() > most) wrong.push_back(folder + ": " + std::to_string(subjects.size()) + " subjects");
    }
    return wrong;
}

std::vector<std::string> FilesTooLong(const Tree& tree, int most) {
    std::vector<std::string> wrong;
    for (const auto& [file, text] : tree) {
        if (LineCount(text) > most) wrong.push_back(file + ": " + std::to_string(LineCount(text)) + " lines");
    }
    return wrong;
}

int MedianLines(const Tree& tree) {
    if (tree.empty()) return 0;
    std::vector<int> lines;
    for (const auto& [file, text] : tree) lines.push_back(LineCount(text));
    const auto middle = lines.begin() + static_cast<std::ptrdiff_t>(lines.size() / 2);
    std::nth_element(lines.begin(), middle, lines.end());
    return *middle;
}

std::vector<std::string> FunctionsTooLong(const Tree& tree, int most) {
    std::vector<std::string> wrong;
    for (const auto& [file, text] : tree) {
        for (const Function& function : FunctionsOf(text)) {
            if (function.Lines <= most) continue;
            wrong.push_back(file + ": " + function.Name + " has " + std::to_string(function.Lines) + " lines");
        }
    }
    return wrong;
}

std::vector<std::string> HeadersImplementedElsewhere(const Tree& tree) {
    std::vector<std::string> wrong;
    for (const auto& [file, text] : tree) {
        if (Ends(file, ".h")) CheckHeader(tree, file, text, wrong);
        if (Ends(file, ".cpp") && file != "main.cpp") CheckSource(tree, file, text, wrong);
    }
    return wrong;
}

}  // namespace marvolin::house

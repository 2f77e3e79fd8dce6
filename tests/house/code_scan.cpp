#include "house/code_scan.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <regex>

namespace marvolin::house {
namespace {

/// Blanks one text after the other; each member function handles what starts at `at` and goes behind it.
class Blanking {
public:
    explicit Blanking(std::string text) : text_(std::move(text)) {}

    std::string Run() {
        while (at_ < text_.size()) {
            if (At("//")) {
                BlankTo(LineEnd());
            } else if (At("/*")) {
                BlankTo(Behind(text_.find("*/", at_), 2));
            } else if (At("R\"(")) {
                BlankTo(Behind(text_.find(")\"", at_), 2));
            } else if (text_[at_] == '#' && LineStartsHere()) {
                BlankTo(LineEnd());
            } else if (text_[at_] == '"' || (text_[at_] == '\'' && (at_ == 0 || !IsWord(text_[at_ - 1])))) {
                BlankLiteral();
            } else {
                ++at_;
            }
        }
        return text_;
    }

private:
    bool At(const char* token) const { return text_.compare(at_, std::char_traits<char>::length(token), token) == 0; }
    std::size_t Behind(std::size_t found, std::size_t length) const {
        return found == std::string::npos ? text_.size() : found + length;
    }
    /// End of the line, or of the last line when lines are continued.
    std::size_t LineEnd() const {
        std::size_t end = text_.find('\n', at_);
        while (end != std::string::npos && end > 0 && text_[end - 1] == '\\') end = text_.find('\n', end + 1);
        return Behind(end, 0);
    }
    bool LineStartsHere() const {
        const std::size_t line = at_ == 0 ? 0 : text_.rfind('\n', at_ - 1) + 1;
        return text_.find_first_not_of(" \t", line) == at_;
    }
    void BlankTo(std::size_t end) {
        for (; at_ < end; ++at_) {
            if (text_[at_] != '\n') text_[at_] = ' ';
        }
    }
    void BlankLiteral() {
        const char quote = text_[at_];
        std::size_t end = at_ + 1;
        while (end < text_.size() && text_[end] != quote) end += text_[end] == '\\' ? 2 : 1;
        ++at_;
        BlankTo(std::min(end, text_.size()));
        ++at_;
    }

    std::string text_;
    std::size_t at_ = 0;
};

/// `text` with each pair of brackets and what is in it made a blank. A bracket that one of `stops` follows before it is
/// closed is no bracket.
std::string WithoutPairs(const std::string& text, char open, char close, const char* stops) {
    std::string kept;
    std::vector<std::size_t> opened;  // places in `kept`
    for (const char c : text) {
        if (c == close && !opened.empty() && (kept.empty() || kept.back() != '-')) {
            kept.resize(opened.back());
            opened.pop_back();
            kept += ' ';
            continue;
        }
        if (c == open) opened.push_back(kept.size());
        if (std::strchr(stops, c) != nullptr) opened.clear();
        kept += c;
    }
    return kept;
}

/// What stands before a brace or a semicolon, without attributes and template brackets.
std::string Head(std::string text) {
    for (std::size_t at = text.find("operator"); at != std::string::npos; at = text.find("operator", at + 1)) {
        for (std::size_t c = at + 8; c < text.size() && (text[c] == '<' || text[c] == '>'); ++c) text[c] = '~';
    }
    const std::string head = WithoutPairs(WithoutPairs(text, '[', ']', ";{}"), '<', '>', ";{}=");
    const std::size_t first = head.find_first_not_of(" \n\t");
    return first == std::string::npos ? "" : head.substr(first);
}

bool BeginsWith(const std::string& head, const std::string& word) {
    return head.starts_with(word) && (head.size() == word.size() || !IsWord(head[word.size()]));
}

/// The word at the end of `text`; "" when none stands there.
std::string LastWord(const std::string& text) {
    std::size_t end = text.size();
    while (end > 0 && std::isspace(static_cast<unsigned char>(text[end - 1])) != 0) --end;
    std::size_t start = end;
    while (start > 0 && IsWord(text[start - 1])) --start;
    return text.substr(start, end - start);
}

bool IsAccessLabel(const std::string& text) {
    const std::string word = LastWord(text);
    return word == "public" || word == "protected" || word == "private";
}
bool IsNamespace(const std::string& head) {
    return BeginsWith(head, "namespace") || BeginsWith(head, "inline namespace") || head.starts_with("extern \"");
}
bool IsUnnamed(const std::string& head) { return BeginsWith(head, "namespace") && LastWord(head) == "namespace"; }
bool IsClass(const std::string& head) {
    if (head.find('(') != std::string::npos) return false;
    std::string rest = BeginsWith(head, "template") ? head.substr(8) : head;
    rest.erase(0, rest.find_first_not_of(" \n\t"));
    return BeginsWith(rest, "class") || BeginsWith(rest, "struct") || BeginsWith(rest, "union");
}

/// Whether the head is that of a function, and not of a variable with an initialiser.
bool IsFunction(const std::string& head) {
    const std::size_t open = head.find('(');
    if (open == std::string::npos || head.compare(open, 2, "(*") == 0) return false;  // "(*": a pointer to a function
    for (const char* word : {"using", "typedef", "static_assert", "friend", "enum", "return"}) {
        if (BeginsWith(head, word)) return false;
    }
    const std::string signature = WithoutPairs(head, '(', ')', "");
    const std::size_t name = signature.find("operator");
    const std::size_t symbol = signature.find_first_of(" \n", name == std::string::npos ? 0 : name);
    return signature.find('=', name == std::string::npos ? 0 : symbol) == std::string::npos;
}

std::string NameOf(const std::string& head) {
    static const std::regex kName(R"((operator\s*\(\s*\)|operator\s*[^\s\w(]+|[\w~:]*\w)\s*\()");
    std::smatch match;
    return std::regex_search(head, match, kName) ? match[1].str() : "";
}

class Scan {
public:
    explicit Scan(const std::string& text) : text_(WithoutWords(text)) {}

    std::vector<Function> Run() {
        Scope(false, false);
        return found_;
    }

private:
    /// Reads to the brace that closes the namespace or class, or to the end of the text.
    void Scope(bool inClass, bool hidden) {
        std::size_t start = at_;
        for (; at_ < text_.size(); ++at_) {
            const char c = text_[at_];
            if (c == '}') return;
            if (c == '(') at_ = Closing(at_);
            if (c == ';') {
                const std::string head = Head(text_.substr(start, at_ - start));
                if (IsFunction(head)) Add(head, start, 0, inClass, hidden);
                start = at_ + 1;
            }
            if (c == ':' && IsAccessLabel(text_.substr(start, at_ - start))) start = at_ + 1;
            if (c == '{' && Block(start, inClass, hidden)) start = at_ + 1;
        }
    }

    /// Reads a block whose brace is at `at_`, and stops on its closing brace. False when the statement goes on behind
    /// it.
    bool Block(std::size_t start, bool inClass, bool hidden) {
        const std::string head = Head(text_.substr(start, at_ - start));
        if (IsNamespace(head) || IsClass(head)) {
            ++at_;
            Scope(IsClass(head), hidden || IsUnnamed(head));
            return true;
        }
        at_ = Closing(at_);
        if (!IsFunction(head)) return false;
        // Members are initialised with braces before the body.
        const std::size_t next = text_.find_first_not_of(" \n\t", at_ + 1);
        if (next != std::string::npos && (text_[next] == ',' || text_[next] == '{')) return false;
        Add(head, start, at_, inClass, hidden);
        return true;
    }

    /// Place of the bracket that closes the one at `open`.
    std::size_t Closing(std::size_t open) const {
        int depth = 0;
        for (std::size_t at = open; at < text_.size(); ++at) {
            if (text_[at] == '(' || text_[at] == '{') ++depth;
            if ((text_[at] == ')' || text_[at] == '}') && --depth == 0) return at;
        }
        return text_.size() - 1;
    }

    int LineAt(std::size_t at) const {
        return 1 + static_cast<int>(std::count(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
    }

    void Add(const std::string& head, std::size_t start, std::size_t end, bool inClass, bool hidden) {
        const int line = LineAt(text_.find_first_not_of(" \n\t", start));
        const bool isStatic = !inClass && BeginsWith(head, "static");
        found_.push_back({NameOf(head), line, end == 0 ? 0 : LineAt(end) - line + 1, inClass, hidden || isStatic});
    }

    std::string text_;
    std::size_t at_ = 0;
    std::vector<Function> found_;
};

}  // namespace

bool IsWord(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

std::string WithoutWords(const std::string& text) { return Blanking(text).Run(); }

std::vector<Function> FunctionsOf(const std::string& text) { return Scan(text).Run(); }

}  // namespace marvolin::house

#include "scripting/lua_pattern.h"

#include <cctype>

namespace marvolin {

namespace {

constexpr int kDeepest = 200;
constexpr int kStepsAQuestion = 1000;

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

/// Whether `c` belongs to the class of a letter behind "%"; a letter that names no class stands for itself.
bool InClass(char c, char letter) {
    const int code = Byte(c);
    bool in = false;
    switch (std::tolower(Byte(letter))) {
        case 'a':
            in = std::isalpha(code) != 0;
            break;
        case 'c':
            in = std::iscntrl(code) != 0;
            break;
        case 'd':
            in = std::isdigit(code) != 0;
            break;
        case 'g':
            in = std::isgraph(code) != 0;
            break;
        case 'l':
            in = std::islower(code) != 0;
            break;
        case 'p':
            in = std::ispunct(code) != 0;
            break;
        case 's':
            in = std::isspace(code) != 0;
            break;
        case 'u':
            in = std::isupper(code) != 0;
            break;
        case 'w':
            in = std::isalnum(code) != 0;
            break;
        case 'x':
            in = std::isxdigit(code) != 0;
            break;
        default:
            return letter == c;
    }
    return std::isupper(Byte(letter)) != 0 ? !in : in;
}

}  // namespace

bool LuaPattern::Find(std::size_t from, bool caretIsALetter) {
    const bool tied = !caretIsALetter && At(0) == '^' && !pattern_.empty();
    return FindFrom(from, tied ? 1 : 0, tied);
}

bool LuaPattern::FindFrom(std::size_t from, std::size_t first, bool tied) {
    for (start_ = from; start_ <= subject_.size(); ++start_) {
        captures_ = 0;
        depth_ = 0;
        end_ = Match(start_, first);
        if (end_ != kNone) {
            for (std::size_t i = 0; i < captures_; ++i) {
                if (capture_[i].Kind == LuaCapture::State::Open) Fail("unfinished capture");
            }
            return failure_.empty();
        }
        if (tied || Ended() || !Goes()) return false;
    }
    return false;
}

std::size_t LuaPattern::Fail(std::string_view why) {
    if (failure_.empty()) failure_ = why;
    return kNone;
}

bool LuaPattern::Goes() {
    if (++steps_ % kStepsAQuestion == 0 && tired_(asked_)) gaveUp_ = true;
    return !gaveUp_;
}

std::size_t LuaPattern::Match(std::size_t s, std::size_t p) {
    if (++depth_ > kDeepest) return Fail("pattern too complex");
    const std::size_t end = MatchItems(s, p);
    --depth_;
    return end;
}

// Item after item; what can be tried in several ways goes one call deeper.
std::size_t LuaPattern::MatchItems(std::size_t s, std::size_t p) {
    while (p < pattern_.size()) {
        if (Ended() || !Goes()) return kNone;
        const char c = pattern_[p];
        if (c == '(') {
            if (At(p + 1) == ')') return OpenCapture(s, p + 2, LuaCapture::State::Position);
            return OpenCapture(s, p + 1, LuaCapture::State::Open);
        }
        if (c == ')') return CloseCapture(s, p + 1);
        if (c == '$' && p + 1 == pattern_.size()) return s == subject_.size() ? s : kNone;
        if (c == '%' && At(p + 1) == 'b') {
            s = MatchBalanced(s, p + 2);
            p += 4;
        } else if (c == '%' && At(p + 1) == 'f') {
            const std::size_t behind =
                At(p + 2) == '[' ? BehindClass(p + 2) : Fail("missing '[' after '%f' in pattern");
            if (behind == kNone || !AtFrontier(s, p + 2, behind)) return kNone;
            p = behind;
        } else if (c == '%' && std::isdigit(Byte(At(p + 1))) != 0) {
            s = MatchAgain(s, p + 1);
            p += 2;
        } else {
            const std::size_t behind = BehindClass(p);
            if (behind == kNone) return kNone;
            const char repeat = At(behind);
            if (behind < pattern_.size() && (repeat == '*' || repeat == '+' || repeat == '-' || repeat == '?')) {
                return MatchRepeated(s, p, behind);
            }
            s = MatchesOne(s, p, behind) ? s + 1 : kNone;
            p = behind;
        }
        if (s == kNone) return kNone;
    }
    return s;
}

std::size_t LuaPattern::MatchRepeated(std::size_t s, std::size_t p, std::size_t behind) {
    const char repeat = pattern_[behind];
    if (repeat == '-') {
        while (true) {
            const std::size_t end = Match(s, behind + 1);
            if (end != kNone || Ended() || !Goes() || !MatchesOne(s, p, behind)) return end;
            ++s;
        }
    }
    const std::size_t most = repeat == '?' ? 1 : subject_.size();
    const std::size_t least = repeat == '+' ? 1 : 0;
    std::size_t count = 0;
    while (count < most && MatchesOne(s + count, p, behind)) {
        ++count;
        if (!Goes()) return kNone;
    }
    for (;; --count) {
        if (count < least || count > most) return kNone;
        const std::size_t end = Match(s + count, behind + 1);
        if (end != kNone || Ended() || count == 0) return end;
    }
}

std::size_t LuaPattern::OpenCapture(std::size_t s, std::size_t p, LuaCapture::State kind) {
    if (captures_ >= kMostCaptures) return Fail("too many captures");
    capture_[captures_++] = {s, 0, kind};
    const std::size_t end = Match(s, p);
    if (end == kNone) --captures_;
    return end;
}

std::size_t LuaPattern::CloseCapture(std::size_t s, std::size_t p) {
    std::size_t open = captures_;
    while (open > 0 && capture_[open - 1].Kind != LuaCapture::State::Open) --open;
    if (open == 0) return Fail("invalid pattern capture");
    LuaCapture& capture = capture_[open - 1];
    capture.Kind = LuaCapture::State::Closed;
    capture.Length = s - capture.Start;
    const std::size_t end = Match(s, p);
    if (end == kNone) capture.Kind = LuaCapture::State::Open;
    return end;
}

std::size_t LuaPattern::MatchBalanced(std::size_t s, std::size_t p) {
    if (p + 1 >= pattern_.size()) return Fail("malformed pattern (missing arguments to '%b')");
    const char open = pattern_[p];
    const char close = pattern_[p + 1];
    if (s >= subject_.size() || subject_[s] != open) return kNone;
    int depth = 1;
    for (std::size_t at = s + 1; at < subject_.size(); ++at) {
        if (subject_[at] == close) {
            if (--depth == 0) return at + 1;
        } else if (subject_[at] == open) {
            ++depth;
        }
        if (!Goes()) return kNone;
    }
    return kNone;
}

std::size_t LuaPattern::MatchAgain(std::size_t s, std::size_t p) {
    const auto number = static_cast<std::size_t>(pattern_[p] - '1');
    if (number >= captures_ || capture_[number].Kind == LuaCapture::State::Open) return Fail("invalid capture index");
    const LuaCapture& capture = capture_[number];
    const std::size_t length = capture.Kind == LuaCapture::State::Closed ? capture.Length : 0;
    if (subject_.size() - s < length) return kNone;
    return subject_.compare(s, length, subject_, capture.Start, length) == 0 ? s + length : kNone;
}

bool LuaPattern::AtFrontier(std::size_t s, std::size_t p, std::size_t behind) {
    const char before = s == 0 ? '\0' : subject_[s - 1];
    const char here = s < subject_.size() ? subject_[s] : '\0';
    return !InSet(before, p, behind - 1) && InSet(here, p, behind - 1);
}

bool LuaPattern::MatchesOne(std::size_t s, std::size_t p, std::size_t behind) {
    if (s >= subject_.size()) return false;
    const char c = subject_[s];
    switch (pattern_[p]) {
        case '.':
            return true;
        case '%':
            return InClass(c, pattern_[p + 1]);
        case '[':
            return InSet(c, p, behind - 1);
        default:
            return pattern_[p] == c;
    }
}

// The set goes from the "[" at `p` to the "]" at `close`.
bool LuaPattern::InSet(char c, std::size_t p, std::size_t close) const {
    const bool inverted = pattern_[p + 1] == '^';
    for (p += inverted ? 2 : 1; p < close; ++p) {
        if (pattern_[p] == '%') {
            if (InClass(c, pattern_[++p])) return !inverted;
        } else if (p + 2 < close && pattern_[p + 1] == '-') {
            if (Byte(pattern_[p]) <= Byte(c) && Byte(c) <= Byte(pattern_[p + 2])) return !inverted;
            p += 2;
        } else if (pattern_[p] == c) {
            return !inverted;
        }
    }
    return inverted;
}

// Place behind the class that begins at `p`; a "]" directly at the beginning of a set is a letter of it.
std::size_t LuaPattern::BehindClass(std::size_t p) {
    if (pattern_[p] == '%') {
        return p + 1 < pattern_.size() ? p + 2 : Fail("malformed pattern (ends with '%')");
    }
    if (pattern_[p] != '[') return p + 1;
    std::size_t at = p + (At(p + 1) == '^' ? 2 : 1);
    do {
        if (at >= pattern_.size()) return Fail("malformed pattern (missing ']')");
        at += pattern_[at] == '%' ? 2 : 1;
    } while (at >= pattern_.size() || pattern_[at] != ']');
    return at + 1;
}

}  // namespace marvolin

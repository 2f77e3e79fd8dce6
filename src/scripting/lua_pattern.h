#pragma once
/// \file
/// The patterns of Lua's string library, matched so that the matching can be stopped: a short pattern over a short
/// subject can keep a matcher busy for years.
///
/// Nothing here allocates or raises, and no object has a destructor: it runs inside functions that Lua calls.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace marvolin {

inline constexpr std::size_t kMostCaptures = 32;

/// A part of the subject that a match has captured.
struct LuaCapture {
    enum class State : std::uint8_t { Open, Closed, Position };
    std::size_t Start = 0;  ///< from 0
    std::size_t Length = 0;
    State Kind = State::Open;
};

/// Matches one pattern on one subject.
class LuaPattern {
public:
    /// Asked now and then; true ends the matching.
    using Tired = bool (*)(void* asked);

    LuaPattern(std::string_view subject, std::string_view pattern, Tired tired, void* asked)
        : subject_(subject), pattern_(pattern), tired_(tired), asked_(asked) {}

    /// Finds the first match at or after `from` (from 0). A "^" at the beginning ties it to `from`, unless
    /// `caretIsALetter`. False when there is none, and when `Failure` says why the matching ended.
    bool Find(std::size_t from, bool caretIsALetter);

    std::size_t Start() const { return start_; }
    std::size_t End() const { return end_; }  ///< behind the last character of the match
    std::size_t Captures() const { return captures_; }
    const LuaCapture& Capture(std::size_t i) const { return capture_[i]; }
    /// What is wrong with the pattern, "" when nothing is.
    std::string_view Failure() const { return failure_; }
    /// Whether the matching was ended by `Tired`.
    bool GaveUp() const { return gaveUp_; }

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    bool FindFrom(std::size_t from, std::size_t first, bool tied);
    std::size_t Match(std::size_t s, std::size_t p);
    std::size_t MatchItems(std::size_t s, std::size_t p);
    std::size_t MatchRepeated(std::size_t s, std::size_t p, std::size_t behind);
    std::size_t OpenCapture(std::size_t s, std::size_t p, LuaCapture::State kind);
    std::size_t CloseCapture(std::size_t s, std::size_t p);
    std::size_t MatchBalanced(std::size_t s, std::size_t p);
    std::size_t MatchAgain(std::size_t s, std::size_t p);
    bool AtFrontier(std::size_t s, std::size_t p, std::size_t behind);
    bool MatchesOne(std::size_t s, std::size_t p, std::size_t behind);
    bool InSet(char c, std::size_t p, std::size_t close) const;
    std::size_t BehindClass(std::size_t p);
    bool Goes();
    std::size_t Fail(std::string_view why);
    bool Ended() const { return gaveUp_ || !failure_.empty(); }
    char At(std::size_t p) const { return p < pattern_.size() ? pattern_[p] : '\0'; }

    std::string_view subject_;
    std::string_view pattern_;
    Tired tired_;
    void* asked_;
    std::array<LuaCapture, kMostCaptures> capture_;
    std::size_t captures_ = 0;
    std::size_t start_ = 0;
    std::size_t end_ = 0;
    std::string_view failure_;
    int depth_ = 0;
    int steps_ = 0;
    bool gaveUp_ = false;
};

}  // namespace marvolin

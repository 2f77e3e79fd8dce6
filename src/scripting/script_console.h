#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace marvolin {

/// A line of the console of scripts.
struct ConsoleLine {
    enum class Kind : std::uint8_t {
        Printed,  ///< by the script
        Note,     ///< what became of a script
        Error,
    };
    Kind What = Kind::Printed;
    std::string Text;  ///< without line ends
};

/// What scripts have printed, and what became of them: the newest lines.
class ScriptConsole {
public:
    static constexpr std::size_t kMostLines = 1000;
    static constexpr std::size_t kLongestLine = 1000;  ///< bytes; a longer line is cut and ends in "..."

    /// Appends a text, a line for each of its own, with "?" for each zero byte. Of a text with more lines than are kept
    /// only the last are.
    void Add(ConsoleLine::Kind kind, std::string_view text);
    /// Forgets all lines.
    void Clear();

    /// The lines kept, the oldest first.
    const std::deque<ConsoleLine>& Lines() const { return lines_; }
    /// How many lines have come since the program started, those that are no longer kept included.
    std::uint64_t Count() const { return count_; }

private:
    void AddLine(ConsoleLine::Kind kind, std::string_view line);

    std::deque<ConsoleLine> lines_;
    std::uint64_t count_ = 0;
};

}  // namespace marvolin

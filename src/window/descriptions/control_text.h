#pragma once
/// \file
/// The texts of a control: the same always, or made from what they depend on.

#include <string>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// What a text may depend on.
struct Situation {
    const Session& State;
    int Index = -1;     ///< of the control in its array; -1 without an array
    int Part = 0;       ///< the part of the control under the pointer, as `HasParts` counts them
    bool Held = false;  ///< whether a mouse button is down
};

/// A text of the table. In a text that is always the same, "{row}" stands for the row of the control ("LoopTrack A",
/// "the selection", "the master"), "{letter}" for that row's letter, and "{number}" for the index counted from 1.
class ControlText {
public:
    using Maker = std::string (*)(const Situation& situation);

    constexpr ControlText() = default;
    constexpr ControlText(const char* same) : same_(same) {}
    constexpr ControlText(std::string_view same) : same_(same) {}
    constexpr ControlText(Maker maker) : maker_(maker) {}
    /// Made from what it depends on; where that is not known, as on the pages of Help, it is `plain`.
    constexpr ControlText(Maker maker, std::string_view plain) : same_(plain), maker_(maker) {}

    constexpr bool Empty() const { return maker_ == nullptr && same_.empty(); }
    std::string At(const Situation& situation) const;
    /// The text where there is no session: of one that is made from it the plain one, "" when there is none.
    std::string Without(int index) const;

private:
    std::string_view same_;
    Maker maker_ = nullptr;
};

}  // namespace marvolin

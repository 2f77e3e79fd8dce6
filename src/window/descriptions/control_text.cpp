#include "window/descriptions/control_text.h"

namespace marvolin {

namespace {

std::string RowName(int index) {
    if (index == kMasterRow) return "the master";
    if (index == kSelectionRow) return "the selection";
    return std::string("LoopTrack ") + RowLetter(static_cast<Row>(index));
}

void Replace(std::string& text, std::string_view mark, const std::string& by) {
    const std::size_t at = text.find(mark);
    if (at != std::string::npos) text.replace(at, mark.size(), by);
}

}  // namespace

std::string ControlText::At(const Situation& situation) const {
    return maker_ != nullptr ? maker_(situation) : Without(situation.Index);
}

std::string ControlText::Without(int index) const {
    std::string text(same_);
    if (index < 0) return text;
    Replace(text, "{row}", RowName(index));
    Replace(text, "{letter}", std::string(1, RowLetter(static_cast<Row>(index))));
    Replace(text, "{number}", std::to_string(index + 1));
    return text;
}

}  // namespace marvolin

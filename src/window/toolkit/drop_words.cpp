#include "window/toolkit/drop_words.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/routines.h"
#include "performance/drops/dropper.h"

namespace marvolin {

namespace {

constexpr char kCopyWords[] = "drop on another LoopTrack: copies it there";

struct Words {
    std::string_view Name;
    std::string_view Text;
};

constexpr std::array<Words, 11> kWords{{
    {drags::kPickFile, "drop on a LoopTrack: loads this Sample there"},
    {drags::kPickDir, "drop on the Name of another Bin: it shows this Folder, too"},
    {drags::kClipBoardList, "drop on a LoopTrack: puts this Clip there; on the Trash: removes it"},
    {drags::kHistoryList, "drop on a LoopTrack: the Entry is for that one"},
    {drags::kDropDown, "drop on another LoopTrack: loads this Sample there; on the ClipBrd: keeps this LoopTrack"},
    {drags::kEraser, "drop on a Pattern: resets it"},
    {drags::kPatternGraph, kCopyWords},
    {drags::kPatterns, kCopyWords},
    {drags::kAllTiming, kCopyWords},
    {drags::kCloneTime, kCopyWords},
    {drags::kTabControl, kCopyWords},
}};

}  // namespace

std::string DropWords(const DragSource& source) {
    if (IsHelpDrag(source)) return "drop on a Control: opens its Page of Help";
    const std::string letter(1, RowLetter(source.Index));
    if (clsDropperManager().IsDropping(source)) {
        return "drop on a Letter: " + letter + " takes its Vol, Pan, Freq & Mode; on a Sound: " + letter +
               " takes its Vol";
    }
    if (source.Tag == kFadeTag) {
        return "drop on another LoopTrack: cross-fades " + letter + " with it; on " + letter + ": fades " + letter +
               " in or out";
    }
    const auto row =
        std::find_if(kWords.begin(), kWords.end(), [&](const Words& one) { return one.Name == source.Name; });
    return row == kWords.end() ? "" : std::string(row->Text);
}

DropWordsShown::DropWordsShown(Session& session, QWidget& control, const std::string& words)
    : session_(session), former_(session, control), words_(words) {
    ShowStatus(session_, words_);
}

DropWordsShown::~DropWordsShown() {
    if (session_.StatusText == words_) former_.BringBack();
}

}  // namespace marvolin

#pragma once
/// \file
/// What the status line says while something is dragged.

#include <string>

#include "core/drag_source.h"
#include "core/session.h"
#include "window/toolkit/former_status.h"

namespace marvolin {

/// Where `source` can be dropped and what the drop does there, in the words of the hints. "" for a control that cannot
/// be dragged.
std::string DropWords(const DragSource& source);

/// The same for a folder of the tree.
inline constexpr char kFolderDropWords[] = "drop on the Name of a Bin: it shows this Folder";

/// While it lives the status line has `words`, unless something is reported meanwhile. Then it has again what stood
/// there before the drag of `control`, a report only when nothing was dropped; see `FormerStatus`.
class DropWordsShown {
public:
    DropWordsShown(Session& session, QWidget& control, const std::string& words);
    ~DropWordsShown();
    /// A control has taken the drop.
    void Dropped() { former_.ForgetReport(); }
    DropWordsShown(const DropWordsShown&) = delete;
    DropWordsShown& operator=(const DropWordsShown&) = delete;

private:
    Session& session_;
    FormerStatus former_;
    std::string words_;
};

}  // namespace marvolin

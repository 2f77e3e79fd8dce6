#include "window/controls/folder_target.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <filesystem>
#include <system_error>

#include "browser/bin_gestures.h"

namespace marvolin {

namespace {

// The toolkit's strings would lose the bytes of a name that is no UTF-8.
/// The first folder of a drop; "" when there is none.
std::string FolderIn(const QMimeData& data) {
    for (const std::string& path : FilePaths(data)) {
        std::error_code error;
        if (!path.empty() && std::filesystem::is_directory(path, error)) return path;
    }
    return "";
}

}  // namespace

FolderTarget::FolderTarget(Session& session, QWidget* parent, std::string_view name, int bin)
    : Control(session, parent, name, bin) {
    setAcceptDrops(true);
}

bool FolderTarget::TakesDrop(const DragSource& source) const { return PickDirTakesDrop(index, source); }

void FolderTarget::Drop(const DragSource& source) { PickDir_DragDrop(s, index, source); }

void FolderTarget::dragEnterEvent(QDragEnterEvent* event) {
    if (IsDragSource(*event->mimeData())) return Control::dragEnterEvent(event);
    event->setAccepted(!FolderIn(*event->mimeData()).empty());
}

void FolderTarget::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    if (IsDragSource(*event->mimeData())) return Control::dropEvent(event);
    const std::string folder = FolderIn(*event->mimeData());
    if (!folder.empty()) PickDir_DropFolder(s, index, folder);
}

}  // namespace marvolin

#include "window/controls/folder_tree.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

#include "browser/bin_gestures.h"
#include "browser/sample_bins.h"
#include "window/controls/control.h"
#include "window/toolkit/hint_window.h"

namespace marvolin {

FolderTree::FolderTree(Session& session, QWidget* parent) : QTreeView(parent), s(session) {
    setObjectName("FolderTreeview1");
    setAccessibleName("Folders");
    folders_.setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Drives);
    folders_.setIconProvider(&pictures_);
    setModel(&folders_);
    for (int column = 1; column < folders_.columnCount(); ++column) hideColumn(column);
    header()->hide();
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setMouseTracking(true);
    setContextMenuPolicy(Qt::PreventContextMenu);
    // Folders come one after the other from behind, and are put in order later still: what was asked for is brought
    // into view each time, until the player takes over.
    const auto settle = [this] {
        if (settling_ && isVisible()) ShowFolder();
    };
    connect(&folders_, &QFileSystemModel::directoryLoaded, this, settle, Qt::QueuedConnection);
    connect(&folders_, &QFileSystemModel::rowsInserted, this, settle, Qt::QueuedConnection);
    connect(&folders_, &QFileSystemModel::layoutChanged, this, settle, Qt::QueuedConnection);
    hide();
}

void FolderTree::Open(bool open) {
    if (!open) return hide();
    if (folders_.rootPath().isEmpty() || folders_.rootPath() == ".") {
        setRootIndex(folders_.setRootPath("/"));
    }
    settling_ = true;
    show();
    raise();
    setFocus();
    ShowFolder();
}

void FolderTree::ShowFolder() {
    const QModelIndex folder = folders_.index(QString::fromStdString(s.TreeFolder));
    setCurrentIndex(folder);
    // From the top, as a folder whose parent is closed is not opened but only noted.
    QModelIndexList path;
    for (QModelIndex above = folder.parent(); above.isValid(); above = above.parent()) path.prepend(above);
    for (const QModelIndex& above : path) {
        if (folders_.canFetchMore(above)) folders_.fetchMore(above);
        expand(above);
    }
    scrollTo(folder, QAbstractItemView::PositionAtCenter);
}

void FolderTree::mousePressEvent(QMouseEvent* event) {
    settling_ = false;  // from now on the player looks for a folder
    if (event->button() == Qt::LeftButton) QTreeView::mousePressEvent(event);
}

void FolderTree::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    FolderTree_MouseUp(s, ButtonNumber(event->button()));
}

void FolderTree::mouseMoveEvent(QMouseEvent* event) {
    if (auto* form = dynamic_cast<HintWindow*>(window())) form->ShowHint(kFolderTreeHint);
    QTreeView::mouseMoveEvent(event);
}

void FolderTree::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return FolderTree_MouseUp(s, kRightButton);
    settling_ = false;
    QTreeView::keyPressEvent(event);
}

}  // namespace marvolin

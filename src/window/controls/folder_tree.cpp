#include "window/controls/folder_tree.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

#include "browser/bin_gestures.h"
#include "window/controls/folder_target.h"
#include "window/toolkit/drag.h"

namespace marvolin {

FolderTree::FolderTree(Session& session, QWidget* parent) : QTreeView(parent), s(session) {
    Describe(s, *this, "FolderTreeview1");
    folders_.setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Drives);
    folders_.setIconProvider(&pictures_);
    setModel(&folders_);
    for (int column = 1; column < folders_.columnCount(); ++column) hideColumn(column);
    header()->hide();
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setContextMenuPolicy(Qt::PreventContextMenu);
    // The model lists folders in the background and sorts them later. The wanted folder is scrolled into view each
    // time, until the player takes over.
    const auto settle = [this] {
        if (settling_ && isVisible()) ShowFolder();
    };
    connect(&folders_, &QFileSystemModel::directoryLoaded, this, settle, Qt::QueuedConnection);
    connect(&folders_, &QFileSystemModel::rowsInserted, this, settle, Qt::QueuedConnection);
    connect(&folders_, &QFileSystemModel::layoutChanged, this, settle, Qt::QueuedConnection);
    // The toolkit does not always paint the arrow of a folder anew when it has read the folder again.
    const auto repaint = [this] { viewport()->update(); };
    connect(&folders_, &QFileSystemModel::directoryLoaded, this, repaint, Qt::QueuedConnection);
    hide();
}

void FolderTree::Open(bool open) {
    if (!open) return hide();
    if (folders_.rootPath().isEmpty() || folders_.rootPath() == ".") {
        setRootIndex(folders_.setRootPath("/"));
    }
    settling_ = true;
    if (QWidget* focus = QApplication::focusWidget(); focus != this) before_ = focus;
    show();
    raise();
    setFocus();
    ShowFolder();
}

void FolderTree::ShowFolder() {
    const QModelIndex folder = folders_.index(QString::fromStdString(s.TreeFolder));
    setCurrentIndex(folder);
    // From the top: the tree does not open a folder whose parent is closed.
    QModelIndexList path;
    for (QModelIndex above = folder.parent(); above.isValid(); above = above.parent()) path.prepend(above);
    for (const QModelIndex& above : path) {
        if (folders_.canFetchMore(above)) folders_.fetchMore(above);
        expand(above);
    }
    scrollTo(folder, QAbstractItemView::PositionAtCenter);
}

void FolderTree::mousePressEvent(QMouseEvent* event) {
    settling_ = false;  // the player takes over
    if (event->button() != Qt::LeftButton) return;
    QTreeView::mousePressEvent(event);
    const QPoint place = event->position().toPoint();
    // Not beside the names, where the arrows that open a folder are.
    if (visualRect(indexAt(place)).contains(place)) pressed_ = place;
}

// The toolkit's own drag would begin a pixel later than the other drags, and any button would end it.
void FolderTree::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) pressed_.reset();  // the release went elsewhere
    if (!pressed_) return QTreeView::mouseMoveEvent(event);
    const QPoint moved = event->position().toPoint() - *pressed_;
    if (moved.manhattanLength() < QApplication::startDragDistance()) return;
    pressed_.reset();
    const QModelIndex folder = indexAt(event->position().toPoint() - moved);
    if (folder.isValid()) RunFolderDrag(*this, s, folders_.filePath(folder));
}

void FolderTree::mouseReleaseEvent(QMouseEvent* event) {
    pressed_.reset();
    QTreeView::mouseReleaseEvent(event);
    FolderTree_MouseUp(s, ButtonNumber(event->button()));
}

// The focus goes back to where the tree was opened.
void FolderTree::Close() {
    if (before_ != nullptr && before_->isVisible()) before_->setFocus();
    FolderTree_MouseUp(s, kRightButton);
}

void FolderTree::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return Close();
    const bool takes = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const auto* opener = dynamic_cast<const FolderTarget*>(before_.data());
    if (takes && !currentIndex().isValid()) return;  // the toolkit lists no names that are no UTF-8
    if (takes && opener != nullptr) {
        PickDir_DropFolder(s, opener->Bin(), folders_.filePath(currentIndex()).toStdString());
        return Close();
    }
    settling_ = false;
    QTreeView::keyPressEvent(event);
}

}  // namespace marvolin

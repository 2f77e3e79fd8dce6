#pragma once

#include <QFileSystemModel>
#include <QTreeView>

#include "core/session.h"
#include "window/toolkit/dialogue_style.h"

namespace marvolin {

/// `FolderTreeview1`: the folders of the machine. One is dragged onto a bin's folder button; a right click closes it.
class FolderTree : public QTreeView {
public:
    FolderTree(Session& session, QWidget* parent);
    /// Shows the tree with `TreeFolder` selected, or hides it.
    void Open(bool open);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ShowFolder();

    Session& s;
    bool settling_ = false;  // the tree has been opened and not yet been touched
    FilePictures pictures_;  // outlives the folders
    QFileSystemModel folders_;
};

}  // namespace marvolin

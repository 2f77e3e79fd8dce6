#pragma once

#include <QFileSystemModel>
#include <QPointer>
#include <QTreeView>
#include <optional>

#include "core/session.h"
#include "window/toolkit/dialogue_style.h"

namespace marvolin {

/// `FolderTreeview1`: the folders of the machine, dragged onto the folder button of a bin. A right click closes the
/// tree.
class FolderTree : public QTreeView {
public:
    FolderTree(Session& session, QWidget* parent);
    /// Shows the tree with `TreeFolder` selected, or hides it.
    void Open(bool open);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// Return gives the chosen folder to the bin whose button has opened the tree by key.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ShowFolder();
    void Close();

    Session& s;
    QPointer<QWidget> before_;       // had the focus when the tree opened
    bool settling_ = false;          // the tree was opened and the player has not touched it yet
    std::optional<QPoint> pressed_;  // where a folder was pressed that may become a drag
    FilePictures pictures_;          // outlives the folders
    QFileSystemModel folders_;
};

}  // namespace marvolin

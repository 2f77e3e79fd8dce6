#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// What takes a folder for a bin: its button, and its list. The folder of another bin's button, folders of the tree,
/// and folders of a file manager.
class FolderTarget : public Control {
public:
    /// `name` chooses the row of the table of controls.
    FolderTarget(Session& session, QWidget* parent, std::string_view name, int bin);
    int Bin() const { return index; }

protected:
    bool TakesDrop(const DragSource& source) const override;
    void Drop(const DragSource& source) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
};

}  // namespace marvolin

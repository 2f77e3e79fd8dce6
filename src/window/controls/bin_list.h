#pragma once

#include <QScrollBar>

#include "window/controls/folder_target.h"
#include "window/descriptions/inner_parts.h"

namespace marvolin {

/// `PickFile`: the samples of a bin with name and size. It draws only the rows in sight, as a folder may hold
/// thousands.
class BinList : public FolderTarget, public HasParts, public HasInnerParts {
public:
    BinList(Session& session, QWidget* parent, int bin);
    void Refresh() override;
    /// The row of samples at a place; -1 beside the rows, `kDragOnlyPart` on one that was double clicked in vain.
    int PartAt(QPointF place) const override;
    std::optional<DragSource> Carried(std::int16_t button) override;
    /// The samples.
    int InnerCount() const override { return RowCount(); }
    InnerPart Inner(int part) const override;
    void SetInner(int, double) override {}  // no numbers
    void ChooseInner(int part) override { Select(part); }
    /// Chooses the sample and loads it into the destination.
    void PressInner(int part) override;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t, QPointF) override {}
    void Step(int units) override;
    void Activate() override;
    void DoubleActivate() override { Activate(); }
    bool TakesRightClick() const override { return true; }
    /// Plays or stops the destination, as a right click on the chosen row does.
    void RightButton(Phase phase) override;
    void TurnByKey(int units, bool) override { Step(units); }
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int RowCount() const;
    int RowAt(double y) const;
    int Page() const;
    double NameWidth() const;
    double ListWidth() const;
    QRectF LineOf(int row) const;
    void PlaceBars();
    void Select(int row);
    void PaintRow(QPainter& p, int row) const;

    QScrollBar* rows_;     // owned by the toolkit
    QScrollBar* columns_;  // owned by the toolkit
    int hovered_ = -1;
    bool refused_ = false;  // the row below the pointer was double clicked where samples are only dragged
};

}  // namespace marvolin

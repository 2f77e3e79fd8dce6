#pragma once

#include <QScrollBar>

#include "window/controls/control.h"

namespace marvolin {

/// `PickFile`: the samples of a bin, name and size. It draws the rows that are seen, however many there are.
class BinList : public Control {
public:
    BinList(Session& session, QWidget* parent, int bin);
    void Refresh() override;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Step(int units) override;
    void Activate() override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    std::string_view Hint(QPointF place) const override;

private:
    int RowCount() const;
    int RowAt(double y) const;
    int Page() const;
    double NameWidth() const;
    double ListWidth() const;
    void PlaceBars();
    void Select(int row);
    void PaintRow(QPainter& p, int row) const;

    QScrollBar* rows_;     // owned by the toolkit
    QScrollBar* columns_;  // owned by the toolkit
    int hovered_ = -1;
    mutable std::string hint_;
};

}  // namespace marvolin

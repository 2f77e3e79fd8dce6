#pragma once

#include <QPixmap>
#include <QWidget>

#include "core/session.h"

namespace marvolin {

/// The square on which balls are dragged: `Pad` or `Map`. Both have the same size.
class BallSurface : public QWidget {
public:
    static constexpr int kInner = 300;  ///< inner size, logical pixels
    static constexpr int kFrame = 3;    ///< around it, so that a ball at the edge is seen whole
    static constexpr int kSide = kInner + 2 * kFrame;
    /// Places of balls count from here: their centres keep this distance from all edges.
    static constexpr int kInset = 8 + kFrame;

    BallSurface(Session& session, QWidget* parent, const char* name);
    /// The place on the screen from which places of balls count.
    QPoint Origin() const { return mapToGlobal(QPoint(kInset, kInset)); }

protected:
    Session& s;
    void paintEvent(QPaintEvent* event) override;
    /// Paints what lies below the balls.
    virtual void PaintField(QPainter& p) const = 0;
    /// Two fields with the same mark look the same.
    virtual QString FieldMark() const = 0;
    /// The field that is painted.
    QRectF Field() const { return QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5); }

private:
    QPixmap field_;  // as painted last
    QString mark_;   // of field_
};

}  // namespace marvolin

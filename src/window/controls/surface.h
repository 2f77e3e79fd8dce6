#pragma once

#include <QWidget>

#include "core/session.h"

namespace marvolin {

/// The square on which balls are dragged: `Pad` or `Map`. Both have the same size.
class BallSurface : public QWidget {
public:
    static constexpr int kSide = 300;  ///< inner size, logical pixels
    /// A ball's place counts from here: its centre travels from this corner to as far from the opposite edges.
    static constexpr int kInset = 8;

    BallSurface(Session& session, QWidget* parent, const char* name);
    /// The corner from which places count, on the screen.
    QPoint Origin() const { return mapToGlobal(QPoint(kInset, kInset)); }

protected:
    Session& s;
    /// The field, over which a ball stays whole.
    QRectF Field() const { return QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5); }
};

}  // namespace marvolin

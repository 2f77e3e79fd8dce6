#include "window/surfaces/surface.h"

namespace marvolin {

BallSurface::BallSurface(Session& session, QWidget* parent, const char* name) : QWidget(parent), s(session) {
    setObjectName(name);
    setFixedSize(kSide, kSide);
    setMouseTracking(true);
}

}  // namespace marvolin

#include "window/surfaces/surface.h"

#include "window/descriptions/described.h"

namespace marvolin {

BallSurface::BallSurface(Session& session, QWidget* parent, const char* name) : QWidget(parent), s(session) {
    Describe(s, *this, name);
    setFixedSize(kSide, kSide);
    setMouseTracking(true);
}

}  // namespace marvolin

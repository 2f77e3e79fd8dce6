#include "window/surfaces/surface.h"

#include <QPainter>

#include "window/descriptions/described.h"

namespace marvolin {

BallSurface::BallSurface(Session& session, QWidget* parent, const char* name) : QWidget(parent), s(session) {
    Describe(s, *this, name);
    setFixedSize(kSide, kSide);
    setMouseTracking(true);
}

// The field is kept as a picture: its dashes cost much to paint, and a part of it that is painted again, where a ball
// was, would have them at other fractions of a pixel. Below a ratio of 1 a picture would be scaled, so there it is
// painted.
void BallSurface::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const double ratio = devicePixelRatioF();
    if (ratio < 1) return PaintField(p);
    const QString mark = FieldMark();
    if (field_.isNull() || mark_ != mark || field_.devicePixelRatio() != ratio) {
        field_ = QPixmap(size() * ratio);
        field_.setDevicePixelRatio(ratio);
        field_.fill(Qt::transparent);
        mark_ = mark;
        QPainter field(&field_);
        PaintField(field);
    }
    p.drawPixmap(0, 0, field_);
}

}  // namespace marvolin

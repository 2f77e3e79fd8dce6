#include "window/screens/small_painting.h"

#include <QApplication>
#include <QEvent>
#include <QGraphicsEffect>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

namespace marvolin {

namespace {

/// The part of a window that lies in `device`, a region of the picture behind it.
QRegion InWindow(const QRegion& device, double ratio) {
    QRegion region;
    for (const QRect& part : device) {
        region +=
            QRectF(part.x() / ratio, part.y() / ratio, part.width() / ratio, part.height() / ratio).toAlignedRect();
    }
    return region;
}

class SmallEffect : public QGraphicsEffect {
public:
    explicit SmallEffect(QWidget& window) : QGraphicsEffect(&window), window_(window) {}

protected:
    void draw(QPainter* painter) override {
        const double ratio = painter->device()->devicePixelRatioF();
        const bool scaled = painter->deviceTransform().m11() < 1;
        if (ratio >= 1 || scaled) return drawSource(painter);
        const QRegion due = InWindow(painter->paintEngine()->systemClip(), ratio) & window_.rect();
        if (due.isEmpty()) return;
        painter->save();
        painter->scale(ratio, ratio);
        window_.render(painter, due.boundingRect().topLeft(), due);
        painter->restore();
    }

private:
    QWidget& window_;  // owns the effect
};

}  // namespace

SmallPainting::SmallPainting() { qApp->installEventFilter(this); }

SmallPainting::~SmallPainting() { qApp->removeEventFilter(this); }

bool SmallPainting::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::Show || event->spontaneous() || !object->isWidgetType()) return false;
    auto& window = static_cast<QWidget&>(*object);
    if (!window.isWindow()) return false;
    const bool small = window.devicePixelRatioF() < 1;
    if (small && window.graphicsEffect() == nullptr) window.setGraphicsEffect(new SmallEffect(window));
    if (!small && dynamic_cast<SmallEffect*>(window.graphicsEffect()) != nullptr) window.setGraphicsEffect(nullptr);
    return false;
}

}  // namespace marvolin

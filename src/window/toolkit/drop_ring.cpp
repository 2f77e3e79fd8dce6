#include "window/toolkit/drop_ring.h"

#include <QPaintEvent>
#include <QPainter>

#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kOutside = 3;  // pixels around the target

class Ring : public QWidget {
public:
    explicit Ring(QWidget* window) : QWidget(window) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_NoSystemBackground);
        setObjectName("DropRing");
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(theme::kAccent, 2));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
    }
};

}  // namespace

DropRing::DropRing(QCoreApplication& application) : QObject(&application) {}

DropRing& DropRing::Of(QCoreApplication& application) {
    for (QObject* child : application.children()) {
        if (auto* ring = dynamic_cast<DropRing*>(child)) return *ring;
    }
    return *new DropRing(application);  // the application owns it
}

void DropRing::Show(QWidget& target) {
    if (target_ == &target && ring_ != nullptr) return;
    Hide();
    QWidget* window = target.window();
    target_ = &target;
    ring_ = new Ring(window);  // its window owns it
    const QRect place(target.mapTo(window, QPoint(0, 0)), target.size());
    ring_->setGeometry(place.adjusted(-kOutside, -kOutside, kOutside, kOutside).intersected(window->rect()));
    ring_->show();
    ring_->raise();
}

void DropRing::Hide() {
    if (ring_ != nullptr) {
        ring_->hide();
        ring_->deleteLater();
    }
    ring_.clear();
    target_.clear();
}

}  // namespace marvolin

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QtTest/QTest>
#include <cstring>

#include "invariants.h"

namespace marvolin::hand {

namespace {

// What moves while something plays is painted again that often by timers of the toolkit.
constexpr int kTimersOfLooks = 120;  // ms
constexpr int kFreshPaints = 3;

/// The first pixel in which two pictures of the same size differ; (-1, -1) for none.
QPoint FirstDifferingPoint(const QImage& a, const QImage& b) {
    for (int y = 0; y < a.height(); ++y) {
        if (std::memcmp(a.constScanLine(y), b.constScanLine(y), static_cast<std::size_t>(a.width()) * 4) == 0) continue;
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y)) return {x, y};
        }
    }
    return {-1, -1};
}

std::string WrongPictureOf(QWidget& window) {
    if (window.devicePixelRatio() != 1) return "";  // what lies between two pixels is rounded otherwise
    const QImage::Format format = QImage::Format_RGB32;
    const QImage shown = window.screen()->grabWindow(window.winId()).toImage().convertToFormat(format);
    const QImage fresh = window.grab().toImage().convertToFormat(format);
    if (shown.size() != fresh.size()) return "";  // not yet painted in its new size
    const QPoint place = FirstDifferingPoint(shown, fresh);
    if (place.x() < 0) return "";
    const QWidget* child = window.childAt(place);
    return "what is shown is not what would be painted, in " + window.objectName().toStdString() + " at " +
           std::to_string(place.x()) + "," + std::to_string(place.y()) + ", " +
           (child == nullptr ? "" : child->objectName().toStdString());
}

}  // namespace

std::string WrongPicture(World& world) {
    // The toolkit leaves the mark of the pointer on a control that has refused a drag of another program.
    for (QWidget* widget : QApplication::allWidgets()) {
        if (!widget->testAttribute(Qt::WA_UnderMouse)) continue;
        widget->setAttribute(Qt::WA_UnderMouse, false);
        widget->update();
    }
    std::string wrong;
    for (int i = 0; i < kFreshPaints; ++i) {
        QTest::qWait(kTimersOfLooks);
        wrong.clear();
        for (QWidget* window : world.Windows()) {
            if (wrong.empty() && window->objectName().startsWith("frm") && !window->isMinimized())
                wrong = WrongPictureOf(*window);
        }
        if (wrong.empty()) return "";
    }
    return wrong;
}

}  // namespace marvolin::hand

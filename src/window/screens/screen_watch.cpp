#include "window/screens/screen_watch.h"

#include <QGuiApplication>
#include <QScreen>
#include <utility>

namespace marvolin {

namespace {

constexpr int kQuietTime = 200;  // ms

}  // namespace

ScreenWatch::ScreenWatch(std::function<void()> changed) {
    // A change comes as several signals, and the toolkit moves windows of its own accord after them.
    settle_.setSingleShot(true);
    settle_.callOnTimeout(this, std::move(changed));
    const auto later = [this] { settle_.start(kQuietTime); };
    const auto watch = [this, later](QScreen* screen) {
        connect(screen, &QScreen::availableGeometryChanged, this, later);
    };
    for (QScreen* screen : QGuiApplication::screens()) watch(screen);
    connect(qApp, &QGuiApplication::screenAdded, this, [watch, later](QScreen* screen) {
        watch(screen);
        later();
    });
    connect(qApp, &QGuiApplication::screenRemoved, this, later);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, later);
}

}  // namespace marvolin

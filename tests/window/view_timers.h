#pragma once
/// \file
/// The timers of a text that can be selected, passed by hand.

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimerEvent>
#include <vector>

namespace marvolin::test {

/// The timers that send their events to the view: the one that scrolls while a text is selected beyond the edge.
inline std::vector<int> TimersOf(QObject& view) {
    std::vector<int> timers;
    for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(&view))
        timers.push_back(timer.timerId);
    return timers;
}

inline void PassTimers(QObject& view) {
    for (const int timer : TimersOf(view)) {
        QTimerEvent event(timer);
        QCoreApplication::sendEvent(&view, &event);
    }
}

}  // namespace marvolin::test

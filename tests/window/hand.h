#pragma once
/// \file
/// Gestures on the toolkit's own lists, and drags that are caught before they are dropped.

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDrag>
#include <QTimer>
#include <QtTest/QTest>
#include <functional>
#include <optional>

#include "window/drag_source.h"

namespace marvolin::test {

/// Opens the list and takes `entry` by key, also when it is the one that stands there.
inline void Choose(QComboBox& list, int entry) {
    list.showPopup();
    list.view()->setCurrentIndex(list.model()->index(entry, 0));
    QTest::keyClick(list.view(), Qt::Key_Return);
}

/// The control on its way in a drag that `gesture` begins at `from`; none when it begins none. The drag is called off.
inline std::optional<DragSource> DragOf(QWidget& from, const std::function<void()>& gesture) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // drags that are over
    std::optional<DragSource> seen;
    QTimer catcher;
    catcher.callOnTimeout([&] {
        const auto* drag = from.findChild<QDrag*>();
        if (drag == nullptr || seen) return;
        seen = FromMimeData(*drag->mimeData());
        QDrag::cancel();
    });
    catcher.start(0);
    gesture();
    // A drag that ended by itself is there until the loop of events runs again.
    const auto* over = from.findChild<QDrag*>();
    if (!seen && over != nullptr) seen = FromMimeData(*over->mimeData());
    QCoreApplication::processEvents();
    return seen;
}

}  // namespace marvolin::test

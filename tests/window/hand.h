#pragma once
/// \file
/// Gestures on the toolkit's own lists, and drags that are caught before they are dropped.

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCursor>
#include <QDrag>
#include <QTimer>
#include <QtTest/QTest>
#include <functional>
#include <optional>

#include "fakes/fake_world.h"
#include "window/surfaces/surface.h"
#include "window/toolkit/drag_source.h"

namespace marvolin::test {

/// Opens the list and takes `entry` by key, also when it is the one that stands there.
inline void Choose(QComboBox& list, int entry) {
    list.showPopup();
    list.view()->setCurrentIndex(list.model()->index(entry, 0));
    QTest::keyClick(list.view(), Qt::Key_Return);
}

/// A click of a quick and steady hand, `after` milliseconds from its last event. It lets go where the press has put the
/// pointer, if it did.
inline void QuickClick(QWindow& window, QPoint place, Qt::MouseButton button = Qt::LeftButton, int after = 60) {
    const QPoint before = QCursor::pos();
    QTest::mousePress(&window, button, {}, place, after);
    const QPoint now = QCursor::pos();
    QTest::mouseRelease(&window, button, {}, now == before ? place : window.mapFromGlobal(now));
    QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;  // each release is followed by a long rest
}

/// The pointer stands at `from` on the screen, and from now on the desktop really puts it where a drag on this surface
/// wants it.
inline void LetPointerBePut(FakeDesktop& desk, const BallSurface& surface, QPoint from) {
    QCursor::setPos(from);
    QCoreApplication::processEvents();
    const QPoint origin = surface.Origin();
    desk.Origin = {origin.x(), origin.y()};
    desk.PutPointer = [](PixelPoint place) { QCursor::setPos(place.X, place.Y); };
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

#pragma once
/// \file
/// Gestures on the toolkit's lists, quick clicks, and drags that are caught before the drop.

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCursor>
#include <QDrag>
#include <QMouseEvent>
#include <QTimer>
#include <QtTest/QTest>
#include <functional>
#include <optional>

#include "fakes/fake_world.h"
#include "window/surfaces/surface.h"
#include "window/toolkit/drag_source.h"

namespace marvolin::test {

/// Opens the list and chooses `entry` by key, even when it is the current one.
inline void Choose(QComboBox& list, int entry) {
    list.showPopup();
    list.view()->setCurrentIndex(list.model()->index(entry, 0));
    QTest::keyClick(list.view(), Qt::Key_Return);
}

/// A quick click, `after` milliseconds after the previous event. When the press makes the program move the pointer, the
/// release is at the new place.
inline void QuickClick(QWindow& window, QPoint place, Qt::MouseButton button = Qt::LeftButton, int after = 60) {
    const QPoint before = QCursor::pos();
    QTest::mousePress(&window, button, {}, place, after);
    const QPoint now = QCursor::pos();
    QTest::mouseRelease(&window, button, {}, now == before ? place : window.mapFromGlobal(now));
    QTest::lastMouseTimestamp -=
        QTest::mouseDoubleClickInterval;  // the toolkit's test library adds a long pause after each release
}

/// Puts the pointer at `from` on the screen, and lets the desktop really move it when a drag on this surface asks for
/// it.
inline void LetPointerBePut(FakeDesktop& desk, const BallSurface& surface, QPoint from) {
    QCursor::setPos(from);
    QCoreApplication::processEvents();
    const QPoint origin = surface.Origin();
    desk.Origin = {origin.x(), origin.y()};
    desk.PutPointer = [](PixelPoint place) { QCursor::setPos(place.X, place.Y); };
}

/// What the drag carries that `gesture` starts at `from`; none when it starts none. The drag is cancelled.
inline std::optional<DragSource> DragOf(QWidget& from, const std::function<void()>& gesture) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // deletes finished drags
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
    // A drag that ended by itself is deleted when the event loop runs again.
    const auto* over = from.findChild<QDrag*>();
    if (!seen && over != nullptr) seen = FromMimeData(*over->mimeData());
    QCoreApplication::processEvents();
    return seen;
}

/// What a press at `place` of `pointed` drags once it has gone the drag distance; none when it drags nothing. `from` is
/// the control: `pointed`, or the list whose viewport that is.
inline std::optional<DragSource> DragAway(QWidget& from, QWidget& pointed, QPoint place,
                                          Qt::MouseButton button = Qt::LeftButton) {
    return DragOf(from, [&] {
        QTest::mousePress(&pointed, button, {}, place);
        const QPointF away = place + QPointF(QApplication::startDragDistance(), 0);
        QMouseEvent move(QEvent::MouseMove, away, pointed.mapToGlobal(away), Qt::NoButton, button, {});
        QApplication::sendEvent(&pointed, &move);
        QTest::mouseRelease(&pointed, button, {}, away.toPoint());
    });
}

}  // namespace marvolin::test

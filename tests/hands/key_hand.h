#pragma once
/// \file
/// Real keys on the control that has the focus.

#include <gtest/gtest.h>

#include <QApplication>
#include <QtTest/QTest>

#include "whole_hand.h"

namespace marvolin::test {

struct KeyHand : WholeHand {
    KeyHand() { Begin(); }
    /// Moves the focus to a control, as Tab does.
    QWidget& Go(QWidget& widget) {
        Reveal(widget);
        QApplication::setActiveWindow(widget.window());
        widget.setFocus(Qt::TabFocusReason);
        EXPECT_TRUE(widget.hasFocus()) << widget.objectName().toStdString();
        return widget;
    }
    QWidget& Go(const char* name) { return Go(Named(name)); }
    void Key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier, int times = 1) {
        for (int i = 0; i < times; ++i) QTest::keyClick(QApplication::focusWidget(), key, held);
    }
    void On(const char* name, Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier, int times = 1) {
        Go(name);
        Key(key, held, times);
    }
    /// The repeat of a key that is held, for `widget`.
    static void Repeat(QWidget& widget, Qt::Key key) {
        QKeyEvent repeat(QEvent::KeyPress, key, Qt::NoModifier, key == Qt::Key_Space ? " " : "", true);
        QApplication::sendEvent(&widget, &repeat);
    }
    static std::string Focus() { return QApplication::focusWidget()->objectName().toStdString(); }
};

}  // namespace marvolin::test

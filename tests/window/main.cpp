#include <gtest/gtest.h>

#include <QApplication>

#include "window/toolkit/theme.h"

// The tests of the window need no screen.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    marvolin::theme::Apply(application);
    return RUN_ALL_TESTS();
}

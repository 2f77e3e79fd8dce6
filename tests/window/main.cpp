#include <gtest/gtest.h>

#include <QtGlobal>

#include "window/toolkit/application.h"

// The tests of the window need no screen.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    marvolin::Application application(argc, argv);
    return RUN_ALL_TESTS();
}

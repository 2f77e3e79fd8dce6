#include <gtest/gtest.h>

#include <QtGlobal>

#include "window/event_time.h"
#include "window/toolkit/application.h"

namespace marvolin::test {

EventTime& TimeOfTheApplication() {
    static EventTime time;
    return time;
}

}  // namespace marvolin::test

// The tests of the window need no screen.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    marvolin::Application application(argc, argv, marvolin::test::TimeOfTheApplication());
    return RUN_ALL_TESTS();
}

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QObject>
#include <QThread>
#include <QTimer>
#include <functional>

#include "window/event_time.h"

namespace marvolin {
namespace {

/// Does something at an event of its own kind.
class Acting : public QObject {
public:
    explicit Acting(std::function<void()> act) : act_(std::move(act)) {}
    static constexpr QEvent::Type kAct = QEvent::User;
    bool event(QEvent* event) override {
        if (event->type() != kAct) return QObject::event(event);
        act_();
        return true;
    }

private:
    std::function<void()> act_;
};

void Post(QObject& object) { QCoreApplication::postEvent(&object, new QEvent(Acting::kAct)); }

TEST(EventGroups, AnEventIsOneGroupOfCallsWithAllThatIsSentWithinIt) {
    test::EventTime& time = test::TimeOfTheApplication();
    int begun = 0;
    int inner = 0;
    Acting sent([&] { inner = time.Begun; });
    Acting posted([&] {
        begun = time.Begun;
        EXPECT_EQ(time.Open, 1);
        QEvent event(Acting::kAct);
        QCoreApplication::sendEvent(&sent, &event);
        EXPECT_EQ(time.Open, 1);
    });
    const int before = time.Begun;
    Post(posted);
    QCoreApplication::sendPostedEvents(&posted);
    EXPECT_EQ(begun, before + 1);
    EXPECT_EQ(inner, begun);
    EXPECT_EQ(time.Open, 0);
}

TEST(EventGroups, AnEventOfAnEventLoopInsideIsAGroupOfItsOwn) {
    test::EventTime& time = test::TimeOfTheApplication();
    int inside = 0;
    int after = -1;
    QEventLoop box;
    Acting closing([&] {
        inside = time.Open;
        box.quit();
    });
    Acting opening([&] {
        Post(closing);
        box.exec();
        after = time.Open;
    });
    Post(opening);
    QCoreApplication::sendPostedEvents(&opening);
    EXPECT_EQ(inside, 2);
    EXPECT_EQ(after, 1);
    // The level of the loop inside is forgotten.
    int again = 0;
    Acting next([&] { again = time.Open; });
    Post(next);
    QCoreApplication::sendPostedEvents(&next);
    EXPECT_EQ(again, 1);
}

TEST(EventGroups, TheEventsOfOtherThreadsAreNoGroups) {
    test::EventTime& time = test::TimeOfTheApplication();
    QThread thread;
    bool acted = false;
    Acting other([&] {
        acted = true;
        thread.quit();
    });
    other.moveToThread(&thread);
    Post(other);
    const int before = time.Begun;
    thread.start();
    thread.wait();
    EXPECT_TRUE(acted);
    EXPECT_EQ(time.Begun, before);
}

}  // namespace
}  // namespace marvolin

#include "window/toolkit/qt_timer.h"

#include <QElapsedTimer>
#include <QTimer>

namespace marvolin {

namespace {

constexpr std::int64_t kNanosecondsAMillisecond = 1'000'000;

/// A timer may be dropped by its own tick, so the toolkit's timer is deleted later, by the event loop.
struct DropLater {
    void operator()(QTimer* timer) const {
        timer->stop();
        timer->disconnect();
        timer->deleteLater();
    }
};

class QtTimer : public PeriodicTimer {
public:
    explicit QtTimer(TimerFactory::Tick tick) : tick_(std::move(tick)), timer_(new QTimer) {
        timer_->setTimerType(Qt::PreciseTimer);
        timer_->callOnTimeout([this] { OnTimeout(); });
    }
    void SetInterval(std::int32_t milliseconds) override { timer_->setInterval(milliseconds); }
    void SetResolution(std::int32_t) override {}  // a precise timer always aims at one millisecond
    void SetEnabled(bool enabled) override {
        if (!enabled) return timer_->stop();
        carry_.Reset();
        clock_.start();
        last_ = 0;
        timer_->start();
    }

private:
    void OnTimeout() {
        const std::int64_t now = clock_.nsecsElapsed();
        const std::int32_t elapsed = carry_.Take(now - last_);
        last_ = now;
        const TimerFactory::Tick tick = tick_;  // survives if the tick drops this timer
        tick(elapsed);
    }

    TimerFactory::Tick tick_;
    std::unique_ptr<QTimer, DropLater> timer_;
    QElapsedTimer clock_;
    std::int64_t last_ = 0;
    MillisecondCarry carry_;
};

}  // namespace

std::unique_ptr<PeriodicTimer> QtTimers::Create(Tick tick) { return std::make_unique<QtTimer>(std::move(tick)); }

std::int32_t MillisecondCarry::Take(std::int64_t nanoseconds) {
    rest_ += nanoseconds;
    const std::int64_t whole = rest_ / kNanosecondsAMillisecond;
    rest_ -= whole * kNanosecondsAMillisecond;
    return static_cast<std::int32_t>(whole);
}

}  // namespace marvolin

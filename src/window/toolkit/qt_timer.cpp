#include "window/toolkit/qt_timer.h"

#include <QElapsedTimer>
#include <QPointer>
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
    explicit QtTimer(TimerFactory::Tick tick) : tick_(std::move(tick)), timer_(new QTimer), standIn_(new QTimer) {
        for (QTimer* timer : {timer_.get(), standIn_.get()}) {
            timer->setTimerType(Qt::PreciseTimer);
            timer->callOnTimeout([this] { OnTimeout(); });
        }
    }
    void SetInterval(std::int32_t milliseconds) override {
        timer_->setInterval(milliseconds);
        standIn_->setInterval(milliseconds);
    }
    void SetResolution(std::int32_t) override {}  // a precise timer always aims at one millisecond
    void SetEnabled(bool enabled) override {
        if (!enabled) {
            timer_->stop();
            standIn_->stop();
            return;
        }
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
        // The toolkit's timer rests while its own tick runs. If the tick waits for events, as behind a box, the ticks
        // that fall due meanwhile come from the stand-in. It and the copy of the tick survive when the tick drops this
        // timer.
        const bool outermost = !standIn_->isActive();
        const QPointer<QTimer> standIn(standIn_.get());
        const TimerFactory::Tick tick = tick_;
        if (outermost) standIn->start();
        tick(elapsed);
        if (outermost && standIn) standIn->stop();
    }

    TimerFactory::Tick tick_;
    std::unique_ptr<QTimer, DropLater> timer_;
    std::unique_ptr<QTimer, DropLater> standIn_;
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

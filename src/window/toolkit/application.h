#pragma once

#include <QApplication>

#include "core/card_time.h"

namespace marvolin {

/// The toolkit's application.
///
/// The calls of the sound service that an event makes are heard together: each event that an event loop delivers is a
/// group of calls. Events that are sent within it belong to it; those of an event loop inside are groups of their own.
///
/// An exception that no routine catches, such as an error of the sound service in a tick, is printed and ends the
/// program.
class Application : public QApplication {
public:
    /// `time` must outlive it.
    Application(int& argc, char** argv, CardTime& time);
    bool notify(QObject* receiver, QEvent* event) override;

private:
    bool Deliver(QObject* receiver, QEvent* event);

    CardTime& time_;
    int level_ = -1;  // of the event loop whose event is being delivered
};

}  // namespace marvolin

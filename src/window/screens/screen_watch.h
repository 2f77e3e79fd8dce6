#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

namespace marvolin {

/// Watches the screens of the desktop until it is deleted.
class ScreenWatch : public QObject {
public:
    /// `changed` runs once the screens, or what panels leave free of them, have changed and have stayed so for a fifth
    /// of a second.
    explicit ScreenWatch(std::function<void()> changed);

private:
    QTimer settle_;
};

}  // namespace marvolin

#pragma once

#include <QObject>

namespace marvolin {

/// Lets the toolkit paint windows that are scaled below 1. It sizes and clips them, but its painters never scale below
/// 1, and would paint everything too large. Windows get an effect that scales what is painted, when they are shown.
class SmallPainting : public QObject {
public:
    /// Watches the windows of the application until it is deleted.
    SmallPainting();
    ~SmallPainting() override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
};

}  // namespace marvolin

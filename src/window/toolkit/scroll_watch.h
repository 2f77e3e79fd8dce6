#pragma once
/// \file
/// Where a scroll of the wheel began.

#include <QCoreApplication>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace marvolin {

/// Sees every event of the wheel before the widget that it is for. A scroll is a run of notches without a pause; it
/// belongs to the widget over which it began, wherever the pointer goes meanwhile.
class ScrollWatch : public QObject {
public:
    static constexpr quint64 kPause = 250;  ///< ms without a notch that end a scroll

    /// The watch of the application, which owns it; made by the first call.
    static ScrollWatch& Of(QCoreApplication& application);

    /// Whether the scroll that is going on began over `widget`.
    bool BeganOver(const QWidget& widget) const { return began_ == &widget; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    explicit ScrollWatch(QCoreApplication& application);

    QPointer<QWidget> began_;
    quint64 last_ = 0;  // time of the last notch, ms; 0 before the first
};

}  // namespace marvolin

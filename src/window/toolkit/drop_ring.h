#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace marvolin {

/// A ring around the control on which what is dragged would be dropped. It lies over the control, in its window, and is
/// in nobody's way: the pointer goes through it.
class DropRing : public QObject {
public:
    /// The ring of the application, which owns it; made by the first call.
    static DropRing& Of(QCoreApplication& application);

    /// Puts the ring around `target`.
    void Show(QWidget& target);
    /// Takes the ring away.
    void Hide();
    /// What the ring is around; null when it is not shown.
    QWidget* Target() const { return target_; }

private:
    explicit DropRing(QCoreApplication& application);

    QPointer<QWidget> target_;
    QPointer<QWidget> ring_;  // owned by the window of the target
};

}  // namespace marvolin

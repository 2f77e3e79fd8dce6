#pragma once

#include <QMouseEvent>
#include <QObject>
#include <QPoint>

namespace marvolin {

/// Keeps the second press of a double click from what lies beneath a list that its first click has closed.
class SecondPress : public QObject {
public:
    /// `list` owns the object.
    explicit SecondPress(QObject& list);
    ~SecondPress() override;
    /// `click`, a press or its release, has closed the list: the next press does nothing when it is of the same button,
    /// in the same place, and within the time of a double click.
    void Follows(const QMouseEvent& click);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Stop();
    bool IsSecond(const QMouseEvent& press) const;

    Qt::MouseButton button_ = Qt::NoButton;  // of the click
    QPoint place_;                           // of the click, on the screen
    quint64 time_ = 0;                       // of the click, ms
    bool held_ = false;                      // the second press has come, its release has not
};

}  // namespace marvolin

#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>

#include "core/session.h"

class QDropEvent;
class QKeyEvent;
class QWidget;

namespace marvolin {

/// Takes every request for help in any window of the program: the question mark, dropped on whatever it falls on, and
/// the key F1.
///
/// It sees both before anything else does, so a dropped question mark runs no other action, and it can be dropped on
/// controls that take no drops and on those that are disabled. The page is that of the control, or of what the control
/// belongs to.
class HelpAsker : public QObject {
public:
    /// Works from now on, for all windows. `session` must outlive it.
    explicit HelpAsker(Session& session);
    ~HelpAsker() override;

    /// The topic of a widget and a place in it: that of the nearest control around it, `kHelpContents` where there is
    /// none and on the panel of the question mark itself.
    static std::int32_t TopicAt(const QWidget* widget, QPoint place);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Watch(QObject& object, const QEvent& event);
    const QWidget* Pointed(const QWidget& focus, QPoint& place) const;
    bool TakeDrag(QObject& object, QDropEvent& event, bool dropped);
    bool TakeKey(QWidget& focus, const QKeyEvent& event);

    Session& s;
    QPointer<QObject> pointed_;  // the window in which the pointer has moved since Tab moved the focus
    QPoint place_;               // of the pointer there
};

}  // namespace marvolin

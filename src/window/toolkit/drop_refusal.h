#pragma once

#include <QObject>
#include <string>

#include "core/session.h"

class QWidget;

namespace marvolin {

/// What the status line says while a drag lies where a drop would do nothing. When a control takes the drag, at the
/// drop, and when the drag leaves the window, the line has again what stood there before, unless something else is
/// shown by then.
class DropRefusal : public QObject {
public:
    /// That of `window`, which owns it; made when it is asked for the first time. `session` must outlive it.
    static DropRefusal& Of(QWidget& window, Session& session);
    void Tell(const std::string& text);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    DropRefusal(QWidget& window, Session& session);

    Session& s;
    std::string told_;
    std::string before_;  // what the status line had
};

}  // namespace marvolin

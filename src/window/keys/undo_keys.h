#pragma once

#include <QObject>

#include "core/session.h"

namespace marvolin {

/// Backspace and Shift+Backspace in the main window and the browser, whatever control has the focus, unless it is text
/// that is written. A key that is held acts once.
class UndoKeys : public QObject {
public:
    explicit UndoKeys(Session& session);
    ~UndoKeys() override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    Session& s;
};

}  // namespace marvolin

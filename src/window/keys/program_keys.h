#pragma once

#include <QObject>

#include "window/keys/key_drag.h"

namespace marvolin {

/// The keys that mean the same in every window, before the control with the focus gets them: those of a drag by key, F6
/// and Return.
class ProgramKeys : public QObject {
public:
    /// Filters the keys of the application while it lives.
    explicit ProgramKeys(Session& session);
    ~ProgramKeys() override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    KeyDrag drag_;
};

}  // namespace marvolin

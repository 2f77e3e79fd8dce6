#pragma once

#include <QObject>

#include "core/session.h"

namespace marvolin {

/// The keys that work in every window of the program, whatever has the focus there: F8 starts a recording or ends it,
/// F12, with Shift too, silences everything or brings it back. They work during a drag as well.
class StageKeys : public QObject {
public:
    /// Filters the keys of the application while it lives. `session` must outlive it.
    explicit StageKeys(Session& session);
    ~StageKeys() override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void ComeFirst();

    Session& s;
};

}  // namespace marvolin

#pragma once
/// \file
/// What the status line had before a drag.

#include <QPointer>
#include <QWidget>
#include <string>

#include "core/session.h"

namespace marvolin {

/// Takes the hints of all controls away, as no hint is shown during a drag: one that came back afterwards would stay
/// when the pointer leaves.
void TakeHintsAway();

/// Remembers what the status line has when a drag of `control` begins, without its hints.
class FormerStatus {
public:
    FormerStatus(Session& session, QWidget& control);
    /// Shows it again; the hint of the control only where the control still has the pointer or the focus.
    void BringBack() const;
    /// A report does not come back: something has been done since. A hint does.
    void ForgetReport();

private:
    Session& session_;
    QPointer<QWidget> control_;
    std::string text_;
    bool wasHint_ = false;
};

}  // namespace marvolin

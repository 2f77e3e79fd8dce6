#include "window/toolkit/former_status.h"

#include <QApplication>
#include <QCursor>

#include "core/routines.h"
#include "window/descriptions/described.h"

namespace marvolin {

void TakeHintsAway() {
    for (QWidget* widget : QApplication::allWidgets()) {
        if (Described* described = DescribedOf(*widget)) described->TakeHintAway();
    }
}

FormerStatus::FormerStatus(Session& session, QWidget& control)
    : session_(session), control_(&control), text_(session.StatusText) {
    TakeHintsAway();
    wasHint_ = session.StatusText != text_;
}

void FormerStatus::ForgetReport() { text_.clear(); }

void FormerStatus::BringBack() const {
    if (!wasHint_) return ShowStatus(session_, text_);
    ShowStatus(session_, "");
    if (control_.isNull() || !(control_->underMouse() || control_->hasFocus())) return;
    const auto* parts = dynamic_cast<const HasParts*>(control_.data());
    const int part = parts == nullptr ? 0 : parts->PartAt(control_->mapFromGlobal(QCursor::pos()));
    if (Described* described = DescribedOf(*control_)) described->ShowHint(part, false);
}

}  // namespace marvolin

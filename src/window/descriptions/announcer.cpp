#include "window/descriptions/announcer.h"

#include <QApplication>
#include <QWidget>
#include <string_view>
#include <utility>

#include "window/controls/control.h"
#include "window/descriptions/described.h"

namespace marvolin {

Announcer::Announcer(std::function<void(QAccessibleEvent*)> tell) : tell_(std::move(tell)) {
    timer_.setInterval(kPeriod);
    timer_.callOnTimeout(this, [this] { Look(); });
    QAccessible::installActivationObserver(this);
    accessibilityActiveChanged(QAccessible::isActive());
}

Announcer::~Announcer() { QAccessible::removeActivationObserver(this); }

void Announcer::accessibilityActiveChanged(bool active) {
    told_.clear();
    active ? timer_.start() : timer_.stop();
}

void Announcer::Tell(QWidget& widget, const Told& before, const Told& now) {
    if (before.Number != now.Number) {
        QAccessibleValueChangeEvent value(&widget, now.Number);
        tell_(&value);
    }
    if (before.Value != now.Value) {
        QAccessibleEvent words(&widget, QAccessible::DescriptionChanged);
        tell_(&words);
    }
    if (before.On == now.On) return;
    QAccessible::State changed;
    const QAccessible::Role role = DescribedOf(widget)->Row().Role;
    changed.selected = role == QAccessible::PageTab;
    changed.pressed = role == QAccessible::Button;
    changed.checked = !changed.selected && !changed.pressed;
    QAccessibleStateChangeEvent state(&widget, changed);
    tell_(&state);
}

// A value that moved the last time too, and moves again, is told when it rests.
Announcer::Heard Announcer::LookAt(QWidget& widget, const Told& now) {
    const auto before = told_.find(&widget);
    if (before == told_.end()) return {now, now, false};
    const Heard& last = before->second;
    const bool moves = now != last.Seen;
    const bool waits = moves && last.Moves && now.On == last.Said.On;
    if (waits || now == last.Said) return {last.Said, now, moves};
    Tell(widget, last.Said, now);
    return {now, now, moves};
}

void Announcer::Look() {
    std::map<const QWidget*, Heard> seen;
    for (QWidget* widget : QApplication::allWidgets()) {
        const Described* described = widget->isVisible() ? DescribedOf(*widget) : nullptr;
        // The toolkit's own controls tell by themselves.
        if (described == nullptr || std::string_view(widget->metaObject()->className()) != "QWidget") continue;
        // The marker of the steps runs by itself: nobody could listen to it.
        if (described->Row().Name == "StepReadOut") continue;
        const Told now{described->Value(), described->Scale().Now, described->On()};
        seen.emplace(widget, LookAt(*widget, now));
    }
    told_ = std::move(seen);
}

}  // namespace marvolin

#include "window/descriptions/described.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTabBar>
#include <QWheelEvent>
#include <utility>

#include "core/routines.h"
#include "window/toolkit/hint_window.h"
#include "window/toolkit/scroll_watch.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

/// The main window; null when there is none.
HintWindow* MainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* main = dynamic_cast<HintWindow*>(window);
        if (main != nullptr && main->TakesHintsOfOthers()) return main;
    }
    return nullptr;
}

/// The value in the readout panel belongs to the control that the pointer or the focus has left.
void TakeReadoutAway(Session* session) {
    if (session != nullptr) ShowReadout(*session, "");
}

/// Whether the focus came by the keyboard.
bool CameByKey(const QEvent& event) {
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

/// The widget that gets the pointer's events.
QWidget& PointedAt(QWidget& widget) {
    auto* scrolled = qobject_cast<QAbstractScrollArea*>(&widget);
    return scrolled == nullptr ? widget : *scrolled->viewport();
}

bool AnyButton(Qt::MouseButtons buttons) { return (buttons | QApplication::mouseButtons()) != Qt::NoButton; }

/// Whether the wheel sets a value; elsewhere it only scrolls.
bool Turns(Keys taken) { return Takes(taken, Keys::Turn) || Takes(taken, Keys::Move); }

bool IsMouse(const QEvent& event) {
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick ||
           event.type() == QEvent::MouseMove || event.type() == QEvent::MouseButtonRelease;
}

/// Whether gestures know the button; a mouse may have more at its side.
bool IsOfTheHand(Qt::MouseButton button) {
    return button == Qt::LeftButton || button == Qt::RightButton || button == Qt::MiddleButton;
}

bool IsArrow(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right ||
           key == Qt::Key_PageUp || key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End;
}

bool IsPressKey(int key) { return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter; }

/// Whether a control with these keys acts on the key.
bool IsKeyOf(Keys taken, const QKeyEvent& key) {
    const bool arrows = Turns(taken) || Takes(taken, Keys::Choose);
    return (arrows && IsArrow(key.key())) || (Takes(taken, Keys::Press) && IsPressKey(key.key())) ||
           (Takes(taken, Keys::Delete) && key.key() == Qt::Key_Delete);
}

/// Whether the key chooses an entry of a list that is closed. With Alt the arrows open it.
bool ChoosesUnseen(const QKeyEvent& key) {
    if (IsArrow(key.key())) return !key.modifiers().testFlag(Qt::AltModifier);
    return !IsPressKey(key.key()) && !key.text().isEmpty() && key.text().front().isPrint();
}

Described& Attach(Session* session, QWidget& widget, std::string_view name, int index) {
    widget.setObjectName(ToQString(ObjectNameOf(name, index)));
    auto* described = new Described(session, widget, DescriptionOf(name, index), index);  // the widget owns it
    auto* button = qobject_cast<QAbstractButton*>(&widget);
    const QString caption = ToQString(described->Caption());
    // The toolkit takes a single "&" for the mark of a key.
    if (button != nullptr && !caption.isEmpty()) button->setText(QString(caption).replace("&", "&&"));
    const std::string label = described->Label();
    if (!label.empty()) widget.setAccessibleName(ToQString(label));
    if (!described->Row().Tip.Empty()) described->RefreshTip();
    return *described;
}

/// A slider of the toolkit has no fine step: with Shift the arrows go by one, and the page keys by a plain step.
bool TurnFinely(QWidget& widget, const QKeyEvent& key) {
    auto* slider = qobject_cast<QAbstractSlider*>(&widget);
    if (slider == nullptr || !key.modifiers().testFlag(Qt::ShiftModifier)) return false;
    const bool page = key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
    const bool up = key.key() == Qt::Key_Up || key.key() == Qt::Key_Right || key.key() == Qt::Key_PageUp;
    const bool down = key.key() == Qt::Key_Down || key.key() == Qt::Key_Left || key.key() == Qt::Key_PageDown;
    const int step = page ? slider->singleStep() : 1;
    if (up || down) slider->setValue(slider->value() + (up ? step : -step));
    return up || down;
}

}  // namespace

Described::Described(Session* session, QWidget& widget, const Description& row, int index)
    : QObject(&widget), session_(session), widget_(widget), row_(row), index_(index) {
    QWidget& pointed = PointedAt(widget_);
    if (!row_.Hint.Empty()) pointed.setMouseTracking(true);
    pointed.installEventFilter(this);
    if (&pointed != &widget_) widget_.installEventFilter(this);
    ScrollWatch::Of(*qApp);  // sees every scroll from its beginning
}

std::string Described::Say(const ControlText& text, int part, bool held) const {
    return session_ == nullptr ? text.Without(index_) : text.At({*session_, index_, part, held});
}

std::string Described::Caption() const { return Say(row_.Caption); }
std::string Described::Label() const { return Say(row_.Label.Empty() ? row_.Caption : row_.Label); }

std::string Described::Tip() const {
    const std::string tip = Say(row_.Tip);
    return tip == kLabelAsTip ? Label() : tip;
}

std::string Described::Value() const { return Say(row_.Value); }
std::string Described::Shortcut() const { return Say(row_.Shortcut); }

ControlScale Described::Scale() const {
    return row_.Scale == nullptr || session_ == nullptr ? ControlScale{} : row_.Scale({*session_, index_});
}

std::string Described::Hint(int part, bool held) const {
    std::string hint = Say(row_.Hint, part, held);
    if (hint.empty() || widget_.isEnabled()) return hint;
    const std::string off = Say(row_.Off);
    return off.empty() ? hint : off + ": " + hint;
}

void Described::RefreshTip() { widget_.setToolTip(ToQString(Tip())); }

void Described::ShowHint(int part, bool held) {
    const std::string hint = Hint(part, held);
    if (hint.empty()) return TakeHintAway();
    shown_ = hint;
    if (HintWindow* bar = Bar()) {
        bar->ShowHint(hint);
    } else if (session_ != nullptr) {
        ShowStatus(*session_, hint);
    }
}

/// Null when the hint goes to the main window of the session, which is not known here.
HintWindow* Described::Bar() const {
    auto* own = dynamic_cast<HintWindow*>(widget_.window());
    return own != nullptr || session_ != nullptr ? own : MainWindow();
}

// What a gesture or a report has written since stays.
void Described::TakeHintAway() {
    const std::string shown = std::exchange(shown_, {});
    if (shown.empty()) return;
    if (HintWindow* bar = Bar()) {
        bar->TakeHintAway(shown);
    } else if (session_ != nullptr && session_->StatusText == shown) {
        ShowStatus(*session_, "");
    }
}

void Described::HintAt(QPointF place, bool held) {
    const auto* parts = dynamic_cast<const HasParts*>(&widget_);
    const int part = parts == nullptr ? 0 : parts->PartAt(place);
    const std::string hint = Hint(part, held);
    // Only when the pointer arrives: a value that is turned in another way while it rests here can still be read.
    if (shown_.empty() && !hint.empty() && !held) TakeReadoutAway(session_);
    // What a click has reported is read while the pointer still lies on the control.
    if (hint.empty() || hint != shown_ || NothingIsShown()) ShowHint(part, held);
}

bool Described::NothingIsShown() const {
    if (const HintWindow* bar = Bar()) return bar->ShowsNothing();
    return session_ != nullptr && session_->StatusText.empty();
}

// The hint of the focus has taken the place of the hint under the pointer, which the next move shows again.
void Described::ForgetHints() const {
    for (const QWidget* other : widget_.window()->findChildren<QWidget*>()) {
        Described* described = other->underMouse() ? DescribedOf(*other) : nullptr;
        if (described != nullptr && described != this) described->shown_.clear();
    }
}

bool Described::Refuses(const QEvent& event) const {
    const bool list = qobject_cast<const QComboBox*>(&widget_) != nullptr;
    const bool tabs = qobject_cast<const QTabBar*>(&widget_) != nullptr;
    if (event.type() == QEvent::Wheel) {
        if (list || tabs) return true;
        const auto& wheel = static_cast<const QWheelEvent&>(event);
        return Turns(row_.Taken) &&
               (AnyButton(wheel.buttons()) || !ScrollWatch::Of(*qApp).BeganOver(PointedAt(widget_)));
    }
    if (event.type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    // An open list has the keys itself.
    return (list && ChoosesUnseen(key)) || (row_.Taken != Keys::None && IsKeyOf(row_.Taken, key) && AnyButton({}));
}

// True when the control must not see the event as it is. Parts of the toolkit read the buttons of an event: they get a
// copy that names the holder alone.
bool Described::TakesFromHolder(QObject& pointed, const QMouseEvent& event) {
    const QEvent::Type type = event.type();
    if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick) {
        // A button that came down elsewhere, as on a list that it closed, keeps the releases of all others from here.
        pressedHere_ &= event.buttons();
        const Qt::MouseButtons down = event.buttons() & ~Qt::MouseButtons(event.button());
        if ((down & ~pressedHere_) != Qt::NoButton) return true;
        pressedHere_ |= event.button();
        // A holder whose release went to a drag is no longer down.
        const bool held = holder_ != Qt::NoButton && event.buttons().testFlag(holder_);
        if (!IsOfTheHand(event.button()) || (held && event.button() != holder_)) return true;
        holder_ = event.button();
    } else if (type == QEvent::MouseButtonRelease && event.button() != holder_) {
        return true;  // also when the hold is over: the press of this button was not seen either
    }
    const Qt::MouseButtons others = event.buttons() & ~Qt::MouseButtons(holder_);
    const Qt::MouseButtons own = event.buttons() & holder_;
    if (type == QEvent::MouseButtonRelease) holder_ = Qt::NoButton;
    if (others == Qt::NoButton) return false;
    QMouseEvent clean(type, event.position(), event.scenePosition(), event.globalPosition(), event.button(), own,
                      event.modifiers(), event.pointingDevice());
    clean.setTimestamp(event.timestamp());
    const QPointer<Described> stays(this);  // a click may close the window
    resending_ = true;
    QCoreApplication::sendEvent(&pointed, &clean);
    if (stays) resending_ = false;
    return true;
}

bool Described::eventFilter(QObject* object, QEvent* event) {
    if (Refuses(*event)) {
        event->accept();  // it does not go to the control below either
        return true;
    }
    if (event->type() == QEvent::KeyPress && object == &widget_ &&
        TurnFinely(widget_, static_cast<const QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    if (object == &widget_ && event->type() == QEvent::FocusIn && CameByKey(*event)) {
        ForgetHints();
        TakeReadoutAway(session_);
        ShowHint(0, false);
    }
    if (object != &PointedAt(widget_)) return false;
    if (!resending_ && IsMouse(*event) && TakesFromHolder(*object, static_cast<const QMouseEvent&>(*event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::Leave) TakeHintAway();
    // A disabled control gets the pointer's moves too.
    if (event->type() == QEvent::MouseMove) {
        const auto& move = static_cast<const QMouseEvent&>(*event);
        HintAt(move.position(), move.buttons() != Qt::NoButton);
        if (!widget_.isEnabled()) {  // what lies below it would show its own
            event->accept();
            return true;
        }
    }
    return false;
}

Described& Describe(Session& session, QWidget& widget, std::string_view name, int index) {
    return Attach(&session, widget, name, index);
}

Described& Describe(QWidget& widget, std::string_view name, int index) { return Attach(nullptr, widget, name, index); }

Described* DescribedOf(const QObject& object) {
    for (QObject* child : object.children()) {
        if (auto* described = dynamic_cast<Described*>(child)) return described;
    }
    return nullptr;
}

}  // namespace marvolin

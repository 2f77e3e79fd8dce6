#include "window/descriptions/inner_objects.h"

#include <QWidget>
#include <algorithm>

#include "window/descriptions/described.h"
#include "window/descriptions/inner_parts.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

HasInnerParts* PartsOf(QWidget& widget) { return dynamic_cast<HasInnerParts*>(&widget); }

class InnerObject : public QAccessibleInterface, public QAccessibleValueInterface, public QAccessibleActionInterface {
public:
    InnerObject(QAccessibleInterface& owner, QWidget& widget, int number)
        : owner_(owner), widget_(widget), parts_(*PartsOf(widget)), number_(number) {}

    int Number() const { return number_; }

    // A list may have become shorter.
    bool isValid() const override { return owner_.isValid() && number_ < parts_.InnerCount(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return &owner_; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return isValid() ? Part().Role : QAccessible::ListItem; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text kind) const override {
        if (!isValid()) return {};
        if (kind == QAccessible::Name) return ToQString(Part().Label);
        if (kind == QAccessible::Value && HasScale()) return QString::number(Part().Scale.Now);
        return {};
    }

    QRect rect() const override {
        if (!isValid()) return {};
        const QRect place = Part().Place.toAlignedRect();
        return place.isEmpty() ? QRect() : QRect(widget_.mapToGlobal(place.topLeft()), place.size());
    }

    QAccessible::State state() const override {
        QAccessible::State state = owner_.state();
        state.focused = state.checkable = state.checked = false;
        state.invalid = !isValid();
        if (!isValid()) return state;
        state.selectable = !HasScale();
        state.selected = !HasScale() && Part().Chosen;
        state.offscreen = Part().Place.isEmpty();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface && HasScale()) return static_cast<QAccessibleValueInterface*>(this);
        if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
        return nullptr;
    }

    QVariant currentValue() const override { return ScaleOf().Now; }
    QVariant maximumValue() const override { return ScaleOf().High; }
    QVariant minimumValue() const override { return ScaleOf().Low; }
    QVariant minimumStepSize() const override { return ScaleOf().Step; }
    void setCurrentValue(const QVariant& value) override {
        if (!CanBeSet() || !HasScale()) return;
        const ControlScale scale = ScaleOf();
        parts_.SetInner(number_, std::clamp(value.toDouble(), scale.Low, scale.High));
    }

    QStringList actionNames() const override {
        if (!CanBeSet()) return {};
        if (HasScale()) return {increaseAction(), decreaseAction(), setFocusAction()};
        return {pressAction(), setFocusAction()};
    }

    void doAction(const QString& name) override {
        if (!actionNames().contains(name)) return;
        const ControlScale scale = ScaleOf();
        if (name == increaseAction()) return setCurrentValue(scale.Now + scale.Step);
        if (name == decreaseAction()) return setCurrentValue(scale.Now - scale.Step);
        if (name == pressAction()) return parts_.PressInner(number_);
        widget_.setFocus(Qt::TabFocusReason);
        parts_.ChooseInner(number_);
    }

    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    InnerPart Part() const { return parts_.Inner(number_); }
    ControlScale ScaleOf() const { return isValid() ? Part().Scale : ControlScale{}; }
    bool HasScale() const { return ScaleOf().Step > 0; }
    bool CanBeSet() const { return isValid() && widget_.isEnabled(); }

    QAccessibleInterface& owner_;
    QWidget& widget_;
    HasInnerParts& parts_;
    const int number_;
};

}  // namespace

InnerObjects::~InnerObjects() {
    for (const auto& [part, id] : made_) QAccessible::deleteAccessibleInterface(id);
}

int InnerObjects::Count() const {
    const HasInnerParts* parts = PartsOf(widget_);
    return parts == nullptr ? 0 : parts->InnerCount();
}

QAccessibleInterface* InnerObjects::At(int part) {
    if (part < 0 || part >= Count()) return nullptr;
    const auto known = made_.find(part);
    if (known != made_.end()) return QAccessible::accessibleInterface(known->second);
    // The toolkit owns what it is given.
    auto* object = new InnerObject(owner_, widget_, part);
    made_[part] = QAccessible::registerAccessibleInterface(object);
    return object;
}

int InnerObjects::NumberOf(const QAccessibleInterface* object) const {
    const auto* inner = dynamic_cast<const InnerObject*>(object);
    return inner == nullptr || inner->parent() != &owner_ ? -1 : inner->Number();
}

QAccessibleInterface* InnerObjects::AtPlace(int x, int y) {
    const HasInnerParts* parts = PartsOf(widget_);
    const QPoint place = widget_.mapFromGlobal(QPoint(x, y));
    // Objects are not made for all the parts on the way there: a list may have thousands.
    for (int part = 0; part < Count(); ++part) {
        if (parts->Inner(part).Place.toAlignedRect().contains(place)) return At(part);
    }
    return nullptr;
}

}  // namespace marvolin

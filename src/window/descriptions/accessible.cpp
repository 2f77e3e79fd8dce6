#include "window/descriptions/accessible.h"

#include <QAccessibleWidget>
#include <cstring>

#include "window/controls/control.h"
#include "window/descriptions/described.h"
#include "window/descriptions/inner_objects.h"
#include "window/descriptions/own_value.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

class DrawnControl : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    DrawnControl(QWidget& widget, const Described& described)
        : QAccessibleWidget(&widget, described.Row().Role), described_(described), inner_(*this, widget) {}

    QString text(QAccessible::Text kind) const override {
        switch (kind) {
            case QAccessible::Value:
            case QAccessible::Description:  // a value in words is read to the user here
                return ToQString(Words());
            case QAccessible::Help:
                return ToQString(described_.Hint(0, false));
            case QAccessible::Accelerator:
                return ToQString(described_.Shortcut());
            default:
                return QAccessibleWidget::text(kind);
        }
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const bool on = described_.On();
        switch (role()) {
            case QAccessible::PageTab:
                state.selectable = true;
                state.selected = on;
                break;
            case QAccessible::Button:
                state.pressed = on;
                break;
            default:
                state.checkable = described_.HasState();
                state.checked = on;
        }
        return state;
    }

    // A control with parts of its own has no other children that somebody could use.
    int childCount() const override { return inner_.Count() > 0 ? inner_.Count() : QAccessibleWidget::childCount(); }
    QAccessibleInterface* child(int number) const override {
        return inner_.Count() > 0 ? inner_.At(number) : QAccessibleWidget::child(number);
    }
    int indexOfChild(const QAccessibleInterface* object) const override {
        return inner_.Count() > 0 ? inner_.NumberOf(object) : QAccessibleWidget::indexOfChild(object);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return inner_.Count() > 0 ? inner_.AtPlace(x, y) : QAccessibleWidget::childAt(x, y);
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface && HasScale()) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return described_.Scale().Now; }
    QVariant maximumValue() const override { return described_.Scale().High; }
    QVariant minimumValue() const override { return described_.Scale().Low; }
    QVariant minimumStepSize() const override { return described_.Scale().Step; }
    void setCurrentValue(const QVariant& value) override {
        if (Control* control = Drawn()) control->SetByRequest(value.toDouble());
    }

    QStringList actionNames() const override {
        QStringList names;
        if (Drawn() == nullptr || !widget()->isEnabled()) return names;
        const Keys taken = described_.Row().Taken;
        if (Takes(taken, Keys::Press))
            names << (described_.HasState() ? toggleAction() : pressAction()) << showMenuAction();
        if (HasScale()) names << increaseAction() << decreaseAction();
        if (taken != Keys::None) names << setFocusAction();
        return names;
    }

    void doAction(const QString& name) override {
        Control* control = Drawn();
        if (control == nullptr || !actionNames().contains(name)) return;
        if (name == toggleAction() || name == pressAction()) return control->PressByRequest();
        if (name == showMenuAction()) return control->MenuByRequest();
        if (name == setFocusAction()) return control->setFocus(Qt::TabFocusReason);
        const ControlScale scale = described_.Scale();
        control->SetByRequest(scale.Now + (name == increaseAction() ? scale.Step : -scale.Step));
    }

    QStringList keyBindingsForAction(const QString& name) const override {
        const std::string key = described_.Shortcut();
        const bool main = name == toggleAction() || name == pressAction();
        return main && !key.empty() ? QStringList{ToQString(key)} : QStringList{};
    }

private:
    /// The value, and where the keys are on it.
    std::string Words() const {
        std::string value = described_.Value();
        const Control* control = Drawn();
        if (const auto* own = dynamic_cast<const HasOwnValue*>(control)) {
            const std::string now = own->OwnValue();
            value += (value.empty() || now.empty() ? "" : "; ") + now;
        }
        const std::string cursor = control == nullptr ? "" : control->CursorWords();
        return cursor.empty() ? value : value + (value.empty() ? "" : "; ") + "the keys are on " + cursor;
    }
    bool HasScale() const { return described_.Scale().Step > 0; }
    Control* Drawn() const { return dynamic_cast<Control*>(widget()); }

    const Described& described_;  // belongs to the widget, whose end ends this object too
    mutable InnerObjects inner_;  // made when they are first asked for
};

QAccessibleInterface* Make(const QString& type, QObject* object) {
    // A widget of the toolkit has a more special type than this one.
    if (type != "QWidget" || std::strcmp(object->metaObject()->className(), "QWidget") != 0) return nullptr;
    const Described* described = DescribedOf(*object);
    // The toolkit owns what it is given.
    return described == nullptr ? nullptr : new DrawnControl(static_cast<QWidget&>(*object), *described);
}

}  // namespace

void InstallAccessibility() { QAccessible::installFactory(Make); }

}  // namespace marvolin

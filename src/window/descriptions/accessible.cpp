#include "window/descriptions/accessible.h"

#include <QAccessibleWidget>
#include <cstring>

#include "window/descriptions/described.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

class DrawnControl : public QAccessibleWidget {
public:
    DrawnControl(QWidget& widget, const Described& described)
        : QAccessibleWidget(&widget, described.Row().Role), described_(described) {}

    QString text(QAccessible::Text kind) const override {
        switch (kind) {
            case QAccessible::Value:
                return ToQString(described_.Value());
            case QAccessible::Help:
                return ToQString(described_.Hint(0, false));
            case QAccessible::Accelerator:
                return ToQString(described_.Shortcut());
            default:
                return QAccessibleWidget::text(kind);
        }
    }

private:
    const Described& described_;  // belongs to the widget, whose end ends this object too
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

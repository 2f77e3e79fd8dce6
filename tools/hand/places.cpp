#include "places.h"

#include <QApplication>

namespace marvolin::hand {

namespace {

constexpr int kTries = 12;

std::string NameOf(const QWidget& widget) {
    for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
        if (!at->objectName().isEmpty() && !at->objectName().startsWith("qt_")) return at->objectName().toStdString();
    }
    return widget.metaObject()->className();
}

}  // namespace

Place PlaceIn(QWidget& widget, QPointF at) {
    QWidget& window = *widget.window();
    return {window.windowHandle(), widget.mapTo(&window, at), NameOf(widget)};
}

Place SomewhereIn(QWidget& widget, Dice& dice) {
    const QRect inside = widget.rect();
    return PlaceIn(widget, QPointF(dice.Below(inside.width()) + 0.5, dice.Below(inside.height()) + 0.5));
}

QWidget* SomeControl(World& world, Dice& dice) {
    const auto& controls = world.Controls();
    for (int i = 0; i < kTries && !controls.empty(); ++i) {
        const QPointer<QWidget>& control = dice.Of(controls);
        if (!control.isNull() && control->isVisible() && control->window()->windowHandle() != nullptr) return control;
    }
    return nullptr;
}

Place SomePlace(World& world, Dice& dice) {
    QWidget* list = QApplication::activePopupWidget();
    if (list != nullptr && list->windowHandle() != nullptr && dice.Below(10) < 7) return SomewhereIn(*list, dice);
    if (QWidget* control = SomeControl(world, dice)) return SomewhereIn(*control, dice);
    return SomewhereIn(world.Main(), dice);
}

}  // namespace marvolin::hand

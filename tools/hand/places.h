#pragma once

#include "dice.h"
#include "pointer.h"
#include "world.h"

namespace marvolin::hand {

/// The place at these coordinates of a widget.
Place PlaceIn(QWidget& widget, QPointF at);
/// A place somewhere in a widget.
Place SomewhereIn(QWidget& widget, Dice& dice);
/// A place somewhere on a control that can be seen: mostly of a list that is open, else of any control of any window.
Place SomePlace(World& world, Dice& dice);
/// A control that can be seen; null when none is found in a few tries.
QWidget* SomeControl(World& world, Dice& dice);

}  // namespace marvolin::hand

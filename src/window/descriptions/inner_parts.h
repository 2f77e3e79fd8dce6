#pragma once

#include <QAccessible>
#include <QRectF>
#include <string>

#include "window/descriptions/description.h"

namespace marvolin {

/// A part of a control as assistive technology sees it: a step of a pattern, a sample of a list, an axis of a ball.
struct InnerPart {
    std::string Label;
    QAccessible::Role Role = QAccessible::ListItem;
    ControlScale Scale{};  ///< where it is a number
    bool Chosen = false;   ///< in a list
    QRectF Place{};        ///< on the control, pixels; empty where it cannot be seen
};

/// A control of several values, each of which can be read and set by itself.
class HasInnerParts {
public:
    virtual ~HasInnerParts() = default;
    virtual int InnerCount() const = 0;
    /// `part` counts from 0 and is less than `InnerCount`.
    virtual InnerPart Inner(int part) const = 0;
    /// Sets the number of the part to the nearest that it can have. `value` lies within its scale.
    virtual void SetInner(int part, double value) = 0;
    /// Moves the keys of the control to the part.
    virtual void ChooseInner(int part) = 0;
    /// A press on the part; nothing where its row of the table has no press.
    virtual void PressInner(int /*part*/) {}
};

}  // namespace marvolin

#pragma once

#include <cstdint>
#include <optional>

#include "core/drag_source.h"

namespace marvolin {

/// What can be picked up by key while it has the focus, as the mouse drags it.
class Carries {
public:
    virtual ~Carries() = default;
    /// What a drag with `button`, left or right, would carry from here; none when it drags nothing now.
    virtual std::optional<DragSource> Carried(std::int16_t button) = 0;
};

}  // namespace marvolin

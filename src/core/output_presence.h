#pragma once

namespace marvolin {

/// A sound device that knows whether its output is still there. A `DirectSound` of the real service is one of these,
/// too. Call it from the user-interface thread.
class OutputPresence {
public:
    virtual ~OutputPresence() = default;
    /// True once the output was pulled out. What sounds goes on unheard.
    virtual bool Gone() const = 0;
};

}  // namespace marvolin

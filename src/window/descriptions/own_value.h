#pragma once

#include <string>

namespace marvolin {

/// A control whose value moves by itself all the time. Assistive technology gets it when it asks, and is not told of
/// each change.
class HasOwnValue {
public:
    virtual ~HasOwnValue() = default;
    /// The value now, in words; "" for none.
    virtual std::string OwnValue() const = 0;
};

}  // namespace marvolin

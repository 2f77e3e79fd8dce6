#pragma once

#include <string_view>

namespace marvolin {

/// A window with a status bar of its own: the hints of its controls go there.
class HintWindow {
public:
    virtual ~HintWindow() = default;
    /// Shows `hint`, only when it differs from what stands there.
    virtual void ShowHint(std::string_view hint) = 0;
};

}  // namespace marvolin

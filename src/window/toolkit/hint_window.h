#pragma once

#include <string_view>

namespace marvolin {

/// A window that shows the hints of its controls in its own status bar.
class HintWindow {
public:
    virtual ~HintWindow() = default;
    /// Shows `hint`; does nothing when it is shown already.
    virtual void ShowHint(std::string_view hint) = 0;
    /// Shows nothing when `hint` is still shown. A window that leaves its last hint does nothing.
    virtual void TakeHintAway(std::string_view /*hint*/) {}
    /// Whether its bar is empty: then nothing that was reported stands there.
    virtual bool ShowsNothing() const = 0;
    /// Whether it shows the hints of windows without a bar, too: the main window does.
    virtual bool TakesHintsOfOthers() const { return false; }
};

}  // namespace marvolin

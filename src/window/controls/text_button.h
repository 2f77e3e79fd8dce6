#pragma once

#include <functional>

#include "window/controls/control.h"

namespace marvolin {

/// A plain button with its caption.
class TextButton : public Control {
public:
    /// `click` is what a click with the left button does; a button without it is disabled.
    TextButton(Session& session, QWidget* parent, std::string_view name, std::function<void()> click);
    /// Sets what a click with any other button does.
    void OnOtherClick(std::function<void(std::int16_t button)> click) { otherClick_ = std::move(click); }

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t, QPointF) override {}
    bool TakesRightClick() const override { return otherClick_ != nullptr; }
    void paintEvent(QPaintEvent* event) override;

private:
    const std::function<void()> click_;
    std::function<void(std::int16_t button)> otherClick_;
};

}  // namespace marvolin

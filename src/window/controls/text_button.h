#pragma once

#include <functional>

#include "window/controls/control.h"

namespace marvolin {

/// A plain button with a text.
class TextButton : public Control {
public:
    TextButton(Session& session, QWidget* parent, const char* name, const QString& text, const QString& tip,
               std::string_view hint, std::function<void()> click);
    void SetText(const QString& text);
    /// What a click with any other button than the left one does, where it does anything.
    void OnOtherClick(std::function<void(std::int16_t button)> click) { otherClick_ = std::move(click); }

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    std::string_view Hint(QPointF) const override { return hint_; }
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
    const std::string_view hint_;
    const std::function<void()> click_;
    std::function<void(std::int16_t button)> otherClick_;
};

}  // namespace marvolin

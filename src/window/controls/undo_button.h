#pragma once

#include "window/controls/text_button.h"

namespace marvolin {

/// `Undo` or `Redo`: an arrow that turns back or on. Its hint names the step; without one it is disabled.
class UndoButton : public TextButton {
public:
    enum class Turn : std::uint8_t { Back, On };

    UndoButton(Session& session, QWidget* parent, Turn turn);
    void Refresh() override;
    /// Whether there is a step for it.
    bool HasStep() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Turn turn_;
};

}  // namespace marvolin

#pragma once

#include "window/controls/text_button.h"

namespace marvolin {

/// `Scripts`, which opens the window of scripts. It is lit while a script runs. Without a script engine it is disabled,
/// and its hint says what to install.
class ScriptsButton : public TextButton {
public:
    ScriptsButton(Session& session, QWidget* parent, std::function<void()> click);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin

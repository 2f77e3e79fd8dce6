#include "window/controls/scripts_button.h"

#include <QPainter>

namespace marvolin {

ScriptsButton::ScriptsButton(Session& session, QWidget* parent, std::function<void()> click)
    : TextButton(session, parent, "Scripts", std::move(click)) {
    setEnabled(isEnabled() && s.ScriptAvailable);
}

// The hint of other disabled controls would promise what they do not do.
bool ScriptsButton::event(QEvent* event) {
    if (event->type() == QEvent::MouseMove && !s.ScriptAvailable) described.ShowHint(0, false);
    return TextButton::event(event);
}

void ScriptsButton::paintEvent(QPaintEvent* event) {
    if (!s.ScriptEnabled) return TextButton::paintEvent(event);
    QPainter p(this);
    theme::DrawFace(p, rect(), Face(), theme::kGreenGround, theme::kGreen);
    p.setFont(theme::Sans(13, QFont::Medium));
    p.setPen(theme::kText);
    p.drawText(rect(), Qt::AlignCenter, Caption());
}

}  // namespace marvolin

#include "window/controls/text_button.h"

#include <QPainter>

namespace marvolin {

TextButton::TextButton(Session& session, QWidget* parent, std::string_view name, std::function<void()> click)
    : Control(session, parent, name), click_(std::move(click)) {
    setEnabled(click_ != nullptr);
}

void TextButton::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    const bool inside = QRectF(rect()).contains(twips / kTwipsPerPixel);
    if (phase != Phase::Up || !inside) return;
    if (button == kLeftButton) return click_();
    if (otherClick_) otherClick_(button);
}

void TextButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face());
    p.setFont(theme::Sans(13, QFont::Medium));
    p.setPen(isEnabled() ? theme::kText : theme::kQuiet);
    p.drawText(rect(), Qt::AlignCenter, Caption());
}

}  // namespace marvolin

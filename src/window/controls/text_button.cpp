#include "window/controls/text_button.h"

#include <QPainter>

namespace marvolin {

TextButton::TextButton(Session& session, QWidget* parent, const char* name, const QString& text, const QString& tip,
                       std::string_view hint, std::function<void()> click)
    : Control(session, parent, name, -1, tip), text_(text), hint_(hint), click_(std::move(click)) {
    if (!click_) SetNotBuilt();
}

void TextButton::SetText(const QString& text) {
    text_ = text;
    update();
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
    p.drawText(rect(), Qt::AlignCenter, text_);
}

}  // namespace marvolin

#include "window/controls/selector_radio.h"

#include <QPainter>

#include "performance/selection/selection.h"

namespace marvolin {

SelectorRadioButton::SelectorRadioButton(Session& session, QWidget* parent, int button)
    : Control(session, parent, "SelectorRadio", button) {}

void SelectorRadioButton::Gesture(Phase phase, std::int16_t button, QPointF) {
    if (phase == Phase::Down && button == kLeftButton) SelectorRadio_Click(s, index);
}

void SelectorRadioButton::DoubleClick(std::int16_t button, QPointF) {
    if (button == kLeftButton) SelectorRadio_DblClick(s, index);
}

void SelectorRadioButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const bool on = index == 0 ? s.SelectionControlled : s.BandTable[index - 1].Controlled != False;
    theme::DrawFace(p, rect(), Face(), on ? theme::kAccent : theme::kRaised, on ? theme::kAccent : theme::kFrame);
    p.setFont(theme::Sans(12, QFont::DemiBold));
    p.setPen(on ? theme::kWindow : theme::kQuiet);
    p.drawText(rect(), Qt::AlignCenter, index == 0 ? QString("S") : QString::number(index - 1));
}

}  // namespace marvolin

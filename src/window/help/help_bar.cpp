#include "window/help/help_bar.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include "core/drag_source.h"
#include "window/descriptions/parts.h"
#include "window/toolkit/drag.h"
#include "window/toolkit/theme.h"

namespace marvolin {

HelpBar::HelpBar(Session& session, QWidget* parent, std::string_view name) : QWidget(parent), s(session) {
    Describe(s, *this, name);
}

int HelpBar::PartAt(QPointF place) const { return HelpPanel().contains(place.toPoint()) ? kHelpPanel : kTextPanels; }

bool HelpBar::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    auto* help = static_cast<QHelpEvent*>(event);
    if (HelpPanel().contains(help->pos())) {
        QToolTip::showText(help->globalPos(), toolTip(), this);
    } else {
        QToolTip::hideText();
    }
    return true;
}

// The drag begins at once: a click drops the question mark on its own panel, which opens Help.
void HelpBar::mousePressEvent(QMouseEvent* event) {
    if (PartAt(event->position()) != kHelpPanel) return QWidget::mousePressEvent(event);
    RunDrag(*this, s, {drags::kStatusBar, 0, std::string(kHelpDragName)});
}

void HelpBar::DrawHelpPanel(QPainter& p) const {
    theme::DrawFace(p, HelpPanel(), {});
    p.setFont(theme::Sans(14, QFont::Bold));
    p.setPen(theme::kText);
    p.drawText(HelpPanel(), Qt::AlignCenter, "?");
}

}  // namespace marvolin

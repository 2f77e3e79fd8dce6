#pragma once

#include <QWidget>
#include <string_view>

#include "core/session.h"
#include "window/descriptions/described.h"

namespace marvolin {

/// A status bar with the panel of the question mark. A press on the panel drags the question mark, and its tool tip
/// belongs to the panel alone.
class HelpBar : public QWidget, public HasParts {
public:
    /// `name` chooses the row of the table of controls.
    HelpBar(Session& session, QWidget* parent, std::string_view name);
    /// The place of the panel in the bar.
    virtual QRect HelpPanel() const = 0;
    /// A `StatusBarPart`.
    int PartAt(QPointF place) const override;

protected:
    void DrawHelpPanel(QPainter& p) const;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

    Session& s;
};

}  // namespace marvolin

#pragma once

#include <QWidget>

#include "scripting/script_room.h"
#include "window/descriptions/described.h"

namespace marvolin {

/// The nine events, each with a mark: full when the script hears it, red when it has failed and is silent.
class EventList : public QWidget, public HasParts {
public:
    static constexpr int kRowHeight = 17;
    static constexpr int kWidth = 158;
    static constexpr int kHeight = kScriptEvents * kRowHeight + 6;

    EventList(Session& session, const ScriptRoom& room, QWidget* parent);
    /// The number of the event at a place; -1 beside them.
    int PartAt(QPointF place) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const ScriptRoom& room_;
};

}  // namespace marvolin

#include "window/editor/event_list.h"

#include <QPainter>
#include <cmath>

#include "window/toolkit/strings.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kEventsTop = 3;
constexpr double kMark = 8;  // pixels across

void DrawMark(QPainter& p, QPointF centre, Hearing hearing) {
    const QColor ink = hearing == Hearing::Silent ? theme::kRed : theme::kGreen;
    p.setPen(QPen(hearing == Hearing::No ? QColor(0x5a, 0x62, 0x6d) : ink, 1.3));
    p.setBrush(hearing == Hearing::Yes ? QBrush(ink) : QBrush(Qt::NoBrush));
    p.drawEllipse(centre, kMark / 2, kMark / 2);
    // Colour is not the only difference.
    if (hearing == Hearing::Silent) p.drawLine(centre - QPointF(2.8, -2.8), centre + QPointF(2.8, -2.8));
}

}  // namespace

EventList::EventList(Session& session, const ScriptRoom& room, QWidget* parent) : QWidget(parent), room_(room) {
    Describe(session, *this, "EventList");
    setFixedWidth(kWidth);
    setMinimumHeight(kHeight);
}

int EventList::PartAt(QPointF place) const {
    const int row = static_cast<int>(std::floor((place.y() - kEventsTop) / kRowHeight));
    return row >= 0 && row < kScriptEvents ? row : -1;
}

void EventList::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setFont(theme::Sans(12));
    for (int event = 0; event < kScriptEvents; ++event) {
        const Hearing hearing = room_.Hears(static_cast<ScriptEvent>(event));
        const QRect row(22, kEventsTop + event * kRowHeight, width() - 22, kRowHeight);
        DrawMark(p, QPointF(11, row.center().y() + 0.5), hearing);
        p.setPen(hearing == Hearing::No ? theme::kQuiet : theme::kText);
        p.drawText(row, Qt::AlignVCenter | Qt::AlignLeft,
                   ToQString(kScriptEventNames[static_cast<std::size_t>(event)]));
    }
}

}  // namespace marvolin

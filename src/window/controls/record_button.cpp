#include "window/controls/record_button.h"

#include <QMouseEvent>
#include <QPainter>
#include <ctime>

#include "audio/recording.h"

namespace marvolin {

RecordButton::RecordButton(Session& session, QWidget* parent)
    : TextButton(session, parent, "Record", [&session] { Toggle(session); }) {
    timer_.setInterval(kPeriod);
    timer_.callOnTimeout(this, [this] { WatchRecording(s); });
}

void RecordButton::Toggle(Session& s) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ToggleRecording(s, *::localtime_r(&now, &local));
}

void RecordButton::Refresh() {
    const bool runs = !s.RecordingFile.empty();
    if (runs == timer_.isActive()) return;
    runs ? timer_.start() : timer_.stop();
    described.RefreshTip();
    update();
}

std::string RecordButton::OwnValue() const {
    return s.RecordingText.empty() ? "" : s.RecordingText + "; into " + s.RecordingFile;
}

void RecordButton::mouseDoubleClickEvent(QMouseEvent* event) { event->accept(); }

void RecordButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QPointF middle = QRectF(rect()).center();
    p.setPen(Qt::NoPen);
    if (s.RecordingFile.empty()) {
        theme::DrawFace(p, rect(), Face());
        p.setPen(Qt::NoPen);
        p.setBrush(theme::kRed);
        p.drawEllipse(middle, 5.5, 5.5);
    } else {
        theme::DrawFace(p, rect(), Face(), theme::kRedGround, theme::kRed);
        p.setPen(Qt::NoPen);
        p.setBrush(theme::kText);
        p.drawEllipse(middle, 6.5, 6.5);
        p.setBrush(theme::kRed);
        p.drawEllipse(middle, 5, 5);
    }
}

}  // namespace marvolin

#include "window/forms/status_bars.h"

#include <QPainter>
#include <cmath>

#include "audio/output_list.h"
#include "window/descriptions/described.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr QRect kLoadPlace{952, 0, 80, StatusBar2::kHeight};
constexpr QRect kRecordingPlace{796, 0, 154, StatusBar2::kHeight};

void DrawPanel(QPainter& p, const QRect& place, const QString& text, const QColor& ink) {
    p.setPen(ink);
    p.drawText(place, Qt::AlignVCenter | Qt::AlignLeft,
               p.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
}

}  // namespace

StatusBar1::StatusBar1(Session& session, QWidget* parent) : HelpBar(session, parent, "StatusBar1") {}

QRect StatusBar1::PlaceOf(Panel panel) const {
    switch (panel) {
        case Panel::Hint:
            return {12, 0, 660, kHeight};
        case Panel::Readout:
            return {684, 0, 216, kHeight};
        case Panel::Clock:
            return {908, 0, 84, kHeight};
        case Panel::Help:
            return {1000, 2, 32, kHeight - 4};
    }
    return {};
}

// The longest hint fits when it is written a pixel smaller.
void StatusBar1::DrawHint(QPainter& p) const {
    const QRect place = PlaceOf(Panel::Hint);
    const QString hint = QString::fromStdString(s.StatusText);
    p.setFont(theme::Sans(13));
    if (p.fontMetrics().horizontalAdvance(hint) > place.width()) p.setFont(theme::Sans(12));
    DrawPanel(p, place, hint, theme::kText);
}

// The readout is written at every move of a drag: the texts of the other panels are not laid out again for it.
void StatusBar1::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(event->rect(), QColor(0x17, 0x19, 0x1c));
    const auto due = [&](Panel panel) { return event->region().intersects(PlaceOf(panel)); };
    if (due(Panel::Hint)) DrawHint(p);
    p.setFont(theme::Sans(13));
    if (due(Panel::Readout)) {
        DrawPanel(p, PlaceOf(Panel::Readout), QString::fromStdString(s.ReadoutText), theme::kAccent);
    }
    if (due(Panel::Clock)) {
        const std::string& clock = s.Clock.Panel;
        const bool isTime = clock.empty() || clock.find(':') != std::string::npos;
        p.setFont(isTime ? theme::Digits(13) : theme::Sans(11));
        DrawPanel(p, PlaceOf(Panel::Clock), clock.empty() ? QString("00:00:00") : QString::fromStdString(clock),
                  theme::kText);
    }
    if (due(Panel::Help)) DrawHelpPanel(p);
}

StatusBar2::StatusBar2(Session& session, QWidget* parent, std::function<double()> soundLoad,
                       std::function<SoundTiming()> soundTiming)
    : QWidget(parent), s(session), soundLoad_(std::move(soundLoad)), soundTiming_(std::move(soundTiming)) {
    Describe(s, *this, "StatusBar2");
}

bool StatusBar2::IsSilent() const { return s.World.Output != nullptr && s.World.Output->IsSilent(); }

QString StatusBar2::LoadText() const {
    if (IsSilent()) return "silent";
    if (!s.DSReady || !soundLoad_) return {};
    return QString("sound %1 %").arg(std::lround(soundLoad_() * 100));
}

QString StatusBar2::DeviceText() const {
    if (!s.DSReady || s.OpenDriver < 0 || s.OpenDriver >= static_cast<std::int16_t>(s.Drivers.size()))
        return "No Sound";
    const QString name = QString::fromStdString(ShownOutputs(s)[static_cast<std::size_t>(s.OpenDriver)]);
    if (gone_) return name + " is gone: choose a sound driver on the tab Optn";
    const SoundTiming timing = soundTiming_ ? soundTiming_() : SoundTiming{};
    if (timing.Period == 0) return name + ", 44100 Hz";
    return QString("%1, 44100 Hz, %2 frames, %3 ms").arg(name).arg(timing.Period).arg(timing.Delay, 0, 'f', 1);
}

void StatusBar2::RefreshLoad() {
    if (LoadText() != shownLoad_) update(kLoadPlace);
}

// The session has its room while none runs.
void StatusBar2::RefreshRecording() {
    const bool shows = !s.RecordingText.empty();
    shows == showsRecording_ ? update(kRecordingPlace) : update();
    showsRecording_ = shows;
}

void StatusBar2::ShowGone(bool gone) {
    if (gone == gone_) return;
    gone_ = gone;
    update();
}

bool StatusBar2::ShowScript(const std::string& name) {
    if (name == script_) return false;
    script_ = name;
    update();
    return true;
}

void StatusBar2::DrawRecording(QPainter& p) const {
    const QRectF place = kRecordingPlace;
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kRed);
    p.drawEllipse(QPointF(place.left() + 5, place.center().y()), 4, 4);
    p.setFont(theme::Digits(12));
    DrawPanel(p, kRecordingPlace.adjusted(15, 0, 0, 0), QString::fromStdString(s.RecordingText), theme::kText);
    p.setFont(theme::Sans(12));
}

void StatusBar2::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), QColor(0x13, 0x15, 0x17));
    p.setFont(theme::Sans(12));
    shownLoad_ = LoadText();
    DrawPanel(p, QRect(12, 0, 72, kHeight), QString::fromStdString(s.TodayLabel), theme::kQuiet);
    // A script that runs takes some of the room of the device, unless that has something urgent to say.
    const bool script = !script_.empty() && !gone_;
    DrawPanel(p, QRect(90, 0, script ? 360 : 580, kHeight), DeviceText(), gone_ ? theme::kRed : theme::kQuiet);
    if (script) {
        DrawPanel(p, QRect(462, 0, 210, kHeight), "script " + QString::fromStdString(script_), theme::kGreen);
    }
    const bool recording = !s.RecordingText.empty();
    DrawPanel(p, QRect(684, 0, recording ? 104 : 190, kHeight), QString::fromStdString(s.CurrentFile), theme::kQuiet);
    if (recording) DrawRecording(p);
    p.setPen(IsSilent() ? theme::kRed : theme::kQuiet);
    p.drawText(kLoadPlace, Qt::AlignVCenter | Qt::AlignRight, shownLoad_);
}

}  // namespace marvolin

#pragma once

#include <QWidget>
#include <functional>

#include "core/session.h"
#include "window/help/help_bar.h"

namespace marvolin {

/// `StatusBar1` of the main window: hint, readout, running clock, and the question mark.
class StatusBar1 : public HelpBar {
public:
    static constexpr int kHeight = 24;
    enum class Panel : std::uint8_t { Hint, Readout, Clock, Help };

    StatusBar1(Session& session, QWidget* parent);
    /// Repaints one panel.
    void Refresh(Panel panel) { update(PlaceOf(panel)); }
    QRect PlaceOf(Panel panel) const;
    QRect HelpPanel() const override { return PlaceOf(Panel::Help); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void DrawHint(QPainter& p) const;
};

/// How the open sound device takes the sound.
struct SoundTiming {
    int Period = 0;    ///< frames at a time; 0 without a device
    double Delay = 0;  ///< milliseconds from a call of the sound service until it is heard
};

/// `StatusBar2`: today, the device, the script that runs, the session, the recording that runs, and the load of the
/// sound engine, or that everything is silent.
class StatusBar2 : public QWidget {
public:
    static constexpr int kHeight = 22;

    /// `soundLoad` returns the share of real time, 0..1, that the sound takes; either is empty when nothing measures
    /// it.
    StatusBar2(Session& session, QWidget* parent, std::function<double()> soundLoad,
               std::function<SoundTiming()> soundTiming);
    void RefreshLoad();
    void RefreshRecording();
    /// Shows in red that the device is gone, or shows the device again.
    void ShowGone(bool gone);
    /// Shows the name of the script that runs, "" for none. False when it is shown already.
    bool ShowScript(const std::string& name);
    /// The text of the device's panel: name, rate, period, delay.
    QString DeviceText() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString LoadText() const;
    bool IsSilent() const;
    void DrawRecording(QPainter& p) const;

    Session& s;
    const std::function<double()> soundLoad_;
    const std::function<SoundTiming()> soundTiming_;
    QString shownLoad_;
    std::string script_;
    bool gone_ = false;
    bool showsRecording_ = false;
};

}  // namespace marvolin

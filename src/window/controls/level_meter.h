#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <array>

#include "audio/level_hold.h"
#include "window/controls/control.h"
#include "window/descriptions/own_value.h"

namespace marvolin {

/// `LevelMeter`: the peaks of what goes to the card, and the light that says that it was cut off. It looks at the sound
/// closely while anything plays or moves in it, and now and then otherwise, so nothing that sounds is missed. It
/// repaints when what it shows is another pixel. A crossed-out speaker stands in its place while everything is silent.
class LevelMeter : public Control, public HasOwnValue {
public:
    static constexpr int kPeriod = 40;       ///< ms between two looks
    static constexpr int kRestPeriod = 250;  ///< ms between two looks while nothing plays or moves

    LevelMeter(Session& session, QWidget* parent);

    /// Something may be heard: looks closely from now on, until nothing plays and nothing moves.
    void Follow();
    /// Looks once; `seconds` since the last time.
    void Look(double seconds);
    /// Whether it looks closely.
    bool Looks() const { return timer_.isActive() && timer_.interval() == kPeriod; }
    const LevelHold& Levels() const { return levels_; }
    std::string OwnValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// What is painted.
    struct Shown {
        std::array<int, 2> Height{};  // pixels
        bool Light = false;
        friend bool operator==(const Shown&, const Shown&) = default;
    };
    Shown Now() const;
    bool Rests() const;
    void DrawBars(QPainter& p) const;
    void DrawSilence(QPainter& p) const;

    LevelHold levels_;
    Shown shown_;
    QTimer timer_;
    QElapsedTimer since_;
};

}  // namespace marvolin

#pragma once
/// \file
/// Main window and browser with something in every control, and a hand that reaches all of them.

#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "browser_stage.h"
#include "hand_state.h"

namespace marvolin::test {

/// A place on a widget, by the window that takes the events.
struct Spot {
    QWidget* Widget = nullptr;
    QPointF Place;  ///< in the widget's window
};

/// Four loaded LoopTracks, A and B in a band, A and C selected and controlled; a stick, 3D sound, samples and clips.
/// Two LoopTracks never have the same setting.
class WholeHand : public Browser {
public:
    WholeHand();
    ~WholeHand();

    /// Every control of both windows that can be shown and is enabled, by name.
    std::vector<QWidget*> Controls();
    /// Opens the tabs on which the widget is.
    void Reveal(QWidget& widget);
    /// A place at which the widget itself, and no control on it, gets the pointer.
    Spot SpotOn(QWidget& widget);

    void PressAt(const Spot& spot, Qt::MouseButton button, QPointF way = {});
    void MoveTo(const Spot& spot, QPointF way);
    void ReleaseAt(const Spot& spot, Qt::MouseButton button, QPointF way = {});
    void ClickAt(const Spot& spot, Qt::MouseButton button = Qt::LeftButton);
    void DoubleClickAt(const Spot& spot, Qt::MouseButton button = Qt::LeftButton);

    /// Puts everything back as it was made.
    void Begin();
    /// Lets drags end, so that `Drags` has them all.
    void FinishDrags();
    /// Drags that began since `Begin`; each was cancelled at once.
    std::vector<DragSource> Drags;

private:
    /// Notes each drag as it is deleted, which every drag is in the end.
    struct DragWatch : QObject {
        std::vector<DragSource>* Drags = nullptr;
        bool eventFilter(QObject* object, QEvent* event) override;
    };
    DragWatch watch_;
    QTimer canceller_;
    std::optional<HandState> made_;
};

}  // namespace marvolin::test

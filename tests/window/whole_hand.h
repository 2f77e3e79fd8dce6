#pragma once
/// \file
/// Main window, browser and Save/Open with something in every control, and a hand that reaches all of them.

#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "browser_stage.h"
#include "hand_state.h"
#include "window/forms/frm_save.h"

namespace marvolin::test {

/// A place on a widget, by the window that takes the events.
struct Spot {
    QWidget* Widget = nullptr;
    QPointF Place;  ///< in the widget's window
};

/// Four loaded LoopTracks, A and B in a band, A and C selected and controlled; a stick, 3D sound, samples, clips, a
/// palette of A with one sample and two sessions to load.
/// Two LoopTracks never have the same setting.
class WholeHand : public Browser {
public:
    WholeHand();
    ~WholeHand();

    /// Every control of the windows that can be shown and is enabled, the lists that open over them included.
    std::vector<QWidget*> Controls();
    /// The control of this name in any of the windows; fails the test when there is none.
    QWidget& Named(const char* name);
    /// Opens the tabs on which the widget is, or the widget itself where it is a list that opens over the window.
    void Reveal(QWidget& widget);
    /// A place at which the widget itself, and no control on it, gets the pointer; in a list one of its last entries.
    Spot SpotOn(QWidget& widget);
    /// The lists that are open over the windows.
    std::vector<std::string> OpenLists();
    /// What the windows show and the session does not have: open lists, ticked boxes of Save/Open, and "dialogue 1" for
    /// the first dialogue since `Begin`.
    std::vector<std::string> Shown();
    /// Sees each dialogue while it is open; it is cancelled then.
    std::function<void(QDialog&)> OnDialogue;

    void PressAt(const Spot& spot, Qt::MouseButton button, QPointF way = {});
    void MoveTo(const Spot& spot, QPointF way);
    void ReleaseAt(const Spot& spot, Qt::MouseButton button, QPointF way = {});
    void ClickAt(const Spot& spot, Qt::MouseButton button = Qt::LeftButton);
    void DoubleClickAt(const Spot& spot, Qt::MouseButton button = Qt::LeftButton);

    /// Paints nothing from now on. Much faster, where a test asks for no picture.
    void LookAway();
    /// Puts everything back as it was made.
    void Begin();
    /// Lets drags end, so that `Drags` has them all.
    void FinishDrags();
    /// Drags that began since `Begin`; each was cancelled at once. A dragged folder has its path as its tag.
    std::vector<DragSource> Drags;
    FrmSave Save{s};

private:
    void OpenList(QWidget& list);
    void CloseLists();

    /// Notes each drag as it is deleted, which every drag is in the end.
    struct DragWatch : QObject {
        std::vector<DragSource>* Drags = nullptr;
        bool eventFilter(QObject* object, QEvent* event) override;
    };
    DragWatch watch_;
    QTimer canceller_;  // of drags and of dialogues, which wait for an answer
    int dialogues_ = 0;
    bool answering_ = false;
    std::optional<HandState> made_;
};

}  // namespace marvolin::test

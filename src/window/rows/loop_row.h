#pragma once

#include <QWidget>

#include "core/session.h"

namespace marvolin {

class Control;
class DropDownControl;
class FindButton;
class KnobControl;
class SoundDisplay;

/// One row of the window: LoopTracks A..D, or the selection row.
class LoopRow : public QWidget {
public:
    static constexpr int kHeight = 50;

    LoopRow(Session& session, QWidget* parent, Row row);

    KnobControl& KnobOf(Knob knob) const;
    /// Enables the pan knob, or not, as the session says.
    void RefreshEnabled();
    /// Shows the name of the sample again, and `FindSample` when it is missing.
    void RefreshName();

    // Owned by the toolkit. Null where the row has no such control.
    Control* Selected = nullptr;
    Control* Thumb = nullptr;
    Control* Letter = nullptr;
    Control* Play = nullptr;
    Control* LoopIt = nullptr;
    DropDownControl* Name = nullptr;
    FindButton* Find = nullptr;
    SoundDisplay* Sound = nullptr;
    KnobControl* Vol = nullptr;
    KnobControl* Pan = nullptr;
    KnobControl* Hz = nullptr;
    Control* Flag = nullptr;

protected:
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeLeftSide();

    Session& s;
    const Row row_;
};

}  // namespace marvolin

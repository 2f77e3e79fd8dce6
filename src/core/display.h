#pragma once
/// \file
/// What the instrument asks the window to show again. The values are read from the session; nothing here carries them.
/// Behind it stand the forms (window/toolkit/qt_display.h); a call for a form that is not loaded does nothing.

#include <cstdint>

#include "core/types.h"

namespace marvolin {

/// Says WHAT to show again, never how. An implementation repaints only what changed, and keeps no copy of a value.
class Display {
public:
    virtual ~Display() = default;

    // The rows.
    virtual void ShowPlay(Row row) = 0;      ///< picture of `Play`: stopped, playing, paused
    virtual void ShowPlayMode(Row row) = 0;  ///< picture of `LoopIt`; row 5 is the large one on the pattern tab
    virtual void ShowKnob(Row row, Knob knob) = 0;
    virtual void ShowCaption(Row row) = 0;       ///< letter, sample name everywhere, tool tip, thinnable or not
    virtual void ShowEnabled(Row row) = 0;       ///< enabled state of the row's controls
    virtual void ShowSoundDisplay(Row row) = 0;  ///< the two needles of `SndDisp`
    virtual void ShowWaveform(Row row) = 0;      ///< the row holds another sample, or its bytes have changed
    virtual void ShowWire(Row row) = 0;          ///< picture of `ChannelFlag`
    virtual void ShowSelected(Row row) = 0;      ///< the selection flag
    virtual void ShowThumb(Row row) = 0;         ///< picture of `Thumb`: current or not
    virtual void ShowSelector(int button) = 0;   ///< `SelectorRadio`: button 0 the selection, 1..6 the bands 0..5
    virtual void ShowBands() = 0;
    virtual void ShowSelectList(bool open) = 0;   ///< opens or hides `SlctGroup`
    virtual void ShowHistoryList(bool open) = 0;  ///< opens or hides `HistoryList`

    // The bars.
    virtual void ShowStatusText() = 0;  ///< first panel of `StatusBar1`
    virtual void ShowReadout() = 0;     ///< readout panel of `StatusBar1`
    virtual void ShowClock() = 0;       ///< clock panel of `StatusBar1`
    virtual void ShowLimit() = 0;
    virtual void ShowFadeFactor() = 0;
    virtual void ShowSilence() = 0;    ///< everything is silent, or heard
    virtual void ShowRecording() = 0;  ///< whether a recording runs, its time and size
    virtual void ShowUndo() = 0;       ///< what would be taken back and done again
    virtual void ShowTitle() = 0;      ///< caption of the main window and the session in `StatusBar2`

    // Tab "Ptrn".
    virtual void ShowSteps() = 0;                                    ///< label of `NSteps`, and `StepReadOutTop`
    virtual void ShowPattern(int patternRow) = 0;                    ///< the whole graph
    virtual void ShowPatternColumn(int patternRow, int column) = 0;  ///< column 0 the random one, 1..32 the steps
    virtual void ShowStepMarker() = 0;
    virtual void ShowTime(int group) = 0;  ///< digits and percentage of 0 `StepDuration`, 1 `Swing`, 2 `BeatStart`

    // Tabs "Mix Pad" and "3d Map".
    virtual void ShowPad() = 0;      ///< colour, lists, faces
    virtual void ShowPadBall() = 0;  ///< its place, and the levels of the channels
    virtual void ShowTwist() = 0;    ///< place and face of `TwistBall`
    virtual void ShowMapBall(int ball) = 0;
    virtual void ShowMapPlaces() = 0;             ///< the places that are written beside the map
    virtual void RaiseMapBall(int ball) = 0;      ///< brings it to the front
    virtual void ShowMapHighlight(int ball) = 0;  ///< its normal or highlighted face
    virtual void ShowListenerFace() = 0;
    virtual void ShowMapControls() = 0;  ///< enabled states, `Enable3d`, `PosMacros`, `PositionUpdate`
    virtual void ShowMapSize() = 0;
    virtual void ShowRollOff() = 0;

    // Tabs themselves and "Optn".
    virtual void ShowTab() = 0;
    virtual void ShowDrivers() = 0;   ///< list and choice of `cboDrivers`
    virtual void ShowOptions() = 0;   ///< `ResetVars`, `DragAxisSelect`, `ResSlider`, `ScrollSensitivity`
    virtual void ShowJoystick() = 0;  ///< `JButton`, `JAxis`, `JoyFactor`, `JoyRelative`, their enabled states

    // Sets and samples.
    virtual void ShowQuickLoad() = 0;
    virtual void ShowQuickLoadList(bool open) = 0;
    virtual void ShowSaveOpen() = 0;      ///< what `frmSave` shows
    virtual void ShowBin(int bin) = 0;    ///< folder, list, background
    virtual void ShowDestinations() = 0;  ///< the nine rows and the choice of all three bins
    virtual void ShowFolderTree(bool open) = 0;
    virtual void ShowClips() = 0;
};

}  // namespace marvolin

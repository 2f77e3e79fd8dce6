#pragma once

#include "core/display.h"

namespace marvolin {

class FrmBrowse;
class FrmMain;
class FrmSave;

/// Shows what changed on the forms that exist.
class QtDisplay : public Display {
public:
    void Attach(FrmMain* form) { form_ = form; }
    void Attach(FrmBrowse* form) { browse_ = form; }
    void Attach(FrmSave* form) { save_ = form; }

    void ShowPlay(Row row) override;
    void ShowPlayMode(Row row) override;
    void ShowKnob(Row row, Knob knob) override;
    void ShowCaption(Row row) override;
    void ShowEnabled(Row row) override;
    void ShowSoundDisplay(Row row) override;
    void ShowWaveform(Row row) override;
    void ShowWire(Row row) override;
    void ShowSelected(Row row) override;
    void ShowThumb(Row row) override;
    void ShowSelector(int button) override;
    void ShowBands() override;
    void ShowSelectList(bool open) override;
    void ShowHistoryList(bool open) override;

    void ShowStatusText() override;
    void ShowReadout() override;
    void ShowClock() override;
    void ShowLimit() override;
    void ShowFadeFactor() override;
    void ShowSilence() override;
    void ShowRecording() override;
    void ShowUndo() override;
    void ShowTitle() override;

    void ShowSteps() override;
    void ShowPattern(int patternRow) override;
    void ShowPatternColumn(int patternRow, int column) override;
    void ShowStepMarker() override;
    void ShowTime(int group) override;

    void ShowPad() override;
    void ShowPadBall() override;
    void ShowTwist() override;
    void ShowMapBall(int ball) override;
    void ShowMapPlaces() override;
    void RaiseMapBall(int ball) override;
    void ShowMapHighlight(int ball) override;
    void ShowListenerFace() override;
    void ShowMapControls() override;
    void ShowMapSize() override;
    void ShowRollOff() override;

    void ShowTab() override;
    void ShowDrivers() override;
    void ShowOptions() override;
    void ShowJoystick() override;

    void ShowQuickLoad() override;
    void ShowQuickLoadList(bool open) override;
    void ShowSaveOpen() override;
    void ShowBin(int bin) override;
    void ShowDestinations() override;
    void ShowFolderTree(bool open) override;
    void ShowClips() override;

private:
    FrmMain* form_ = nullptr;
    FrmBrowse* browse_ = nullptr;
    FrmSave* save_ = nullptr;
};

}  // namespace marvolin

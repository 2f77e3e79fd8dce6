#include "window/toolkit/qt_display.h"

#include "parameters/position.h"
#include "window/controls/folder_tree.h"
#include "window/controls/knob.h"
#include "window/controls/level_meter.h"
#include "window/controls/text_button.h"
#include "window/forms/browse_bins.h"
#include "window/forms/browse_clips.h"
#include "window/forms/frm_browse.h"
#include "window/forms/frm_main.h"
#include "window/forms/frm_save.h"
#include "window/forms/selector_strip.h"
#include "window/forms/status_bars.h"
#include "window/forms/toolbar.h"
#include "window/rows/drop_down.h"
#include "window/rows/loop_row.h"
#include "window/rows/sound_display.h"
#include "window/tabs/tab_control.h"
#include "window/tabs/tab_map.h"
#include "window/tabs/tab_mix_pad.h"
#include "window/tabs/tab_options.h"
#include "window/tabs/tab_pattern.h"

namespace marvolin {

namespace {

LoopRow* RowOf(FrmMain* form, Row row) {
    return form == nullptr || row < 0 || row > kSelectionRow ? nullptr : form->Rows[static_cast<std::size_t>(row)];
}

void Again(Control* control) {
    if (control != nullptr) control->Refresh();
}

}  // namespace

void QtDisplay::ShowPlay(Row row) {
    if (LoopRow* shown = RowOf(form_, row)) {
        Again(shown->Play);
        form_->FollowPlaying();
        form_->Bar->Meter->Follow();
    }
}

void QtDisplay::ShowPlayMode(Row row) {
    if (LoopRow* shown = RowOf(form_, row)) Again(shown->LoopIt);
    if (form_ != nullptr && row == kMasterRow) form_->Tabs->Pattern->RefreshPlayMode();
    if (form_ != nullptr) form_->Tabs->Pattern->RefreshHeard();
}

void QtDisplay::ShowKnob(Row row, Knob knob) {
    if (LoopRow* shown = RowOf(form_, row)) shown->KnobOf(knob).Refresh();
    if (form_ != nullptr && row == kMasterRow && knob == Knob::Vol) form_->Bar->Master->Refresh();
}

void QtDisplay::ShowCaption(Row row) {
    if (LoopRow* shown = RowOf(form_, row)) {
        Again(shown->Letter);
        Again(shown->Play);
        shown->RefreshName();
    }
}

void QtDisplay::ShowEnabled(Row row) {
    if (LoopRow* shown = RowOf(form_, row)) shown->RefreshEnabled();
}

void QtDisplay::ShowSoundDisplay(Row row) {
    if (LoopRow* shown = RowOf(form_, row)) shown->Sound->Refresh();
}

void QtDisplay::ShowWaveform(Row row) {
    if (LoopRow* shown = RowOf(form_, row)) shown->Sound->RefreshWaveform();
}

void QtDisplay::ShowWire(Row row) {
    if (LoopRow* shown = RowOf(form_, row)) Again(shown->Flag);
    if (form_ != nullptr) form_->Tabs->MixPad->RefreshWires();
}

void QtDisplay::ShowSelected(Row row) {
    if (LoopRow* shown = RowOf(form_, row)) Again(shown->Selected);
    if (LoopRow* selection = RowOf(form_, kSelectionRow)) selection->Name->Refresh();
}

void QtDisplay::ShowThumb(Row row) {
    if (LoopRow* shown = RowOf(form_, row)) Again(shown->Thumb);
}

void QtDisplay::ShowSelector(int button) {
    if (form_ == nullptr) return;
    form_->Selectors->RefreshButton(button);
    RowOf(form_, kSelectionRow)->Name->Refresh();
}

void QtDisplay::ShowBands() {
    if (form_ == nullptr) return;
    form_->Selectors->RefreshBands();
    RowOf(form_, kSelectionRow)->Name->Refresh();  // says how many LoopTracks are controlled
}

void QtDisplay::ShowSelectList(bool open) {
    if (form_ != nullptr) form_->ShowSelectList(open);
}

void QtDisplay::ShowHistoryList(bool open) {
    if (form_ != nullptr) form_->ShowHistoryList(open);
}

void QtDisplay::ShowStatusText() {
    if (form_ != nullptr) form_->Status1->Refresh(StatusBar1::Panel::Hint);
}

void QtDisplay::ShowReadout() {
    if (form_ != nullptr) form_->Status1->Refresh(StatusBar1::Panel::Readout);
}

void QtDisplay::ShowClock() {
    if (form_ != nullptr) form_->Status1->Refresh(StatusBar1::Panel::Clock);
}

void QtDisplay::ShowLimit() {
    if (form_ != nullptr) Again(form_->Bar->Limiter);
}

void QtDisplay::ShowFadeFactor() {
    if (form_ != nullptr) Again(form_->Bar->FadeFactor);
}

void QtDisplay::ShowSilence() {
    if (form_ == nullptr) return;
    Again(form_->Bar->Meter);
    Again(form_->Bar->PlayStop);
    form_->Status2->update();
}

void QtDisplay::ShowRecording() {
    if (form_ == nullptr) return;
    Again(form_->Bar->Record);
    form_->Status2->RefreshRecording();
}

void QtDisplay::ShowUndo() {
    if (form_ != nullptr) form_->Selectors->RefreshUndo();
}

void QtDisplay::ShowTitle() {
    if (form_ != nullptr) form_->RefreshTitle();
}

void QtDisplay::ShowSteps() {
    if (form_ != nullptr) form_->Tabs->Pattern->RefreshSteps();
}

void QtDisplay::ShowPattern(int patternRow) {
    if (form_ != nullptr) form_->Tabs->Pattern->RefreshGraph(patternRow);
}

void QtDisplay::ShowPatternColumn(int patternRow, int column) {
    if (form_ != nullptr) form_->Tabs->Pattern->RefreshColumn(patternRow, column);
}

void QtDisplay::ShowStepMarker() {
    if (form_ != nullptr) form_->Tabs->Pattern->RefreshMarker();
}

void QtDisplay::ShowTime(int group) {
    if (form_ != nullptr) form_->Tabs->Pattern->RefreshTime(group);
}

void QtDisplay::ShowPad() {
    if (form_ != nullptr) form_->Tabs->MixPad->Refresh();
}

void QtDisplay::ShowPadBall() {
    if (form_ != nullptr) form_->Tabs->MixPad->RefreshBall();
}

void QtDisplay::ShowTwist() {
    if (form_ != nullptr) form_->Tabs->MixPad->RefreshTwist();
}

void QtDisplay::ShowMapPlaces() {
    if (form_ != nullptr) form_->Tabs->Map->RefreshPlaces();
}

void QtDisplay::ShowMapBall(int ball) {
    if (form_ != nullptr) form_->Tabs->Map->RefreshBall(ball);
}

void QtDisplay::RaiseMapBall(int ball) {
    if (form_ != nullptr) form_->Tabs->Map->RaiseBall(ball);
}

void QtDisplay::ShowMapHighlight(int ball) {
    if (form_ != nullptr) form_->Tabs->Map->RefreshBall(ball);
}

void QtDisplay::ShowListenerFace() {
    if (form_ != nullptr) form_->Tabs->Map->RefreshBall(kListenerBall);
}

void QtDisplay::ShowMapControls() {
    if (form_ == nullptr) return;
    form_->Tabs->Map->Refresh();
    form_->Tabs->Options->Refresh();
}

void QtDisplay::ShowMapSize() {
    if (form_ != nullptr) form_->Tabs->Map->RefreshSize();
}

void QtDisplay::ShowRollOff() {
    if (form_ != nullptr) form_->Tabs->Map->RefreshRollOff();
}

void QtDisplay::ShowTab() {
    if (form_ != nullptr) form_->Tabs->Refresh();
}

void QtDisplay::ShowDrivers() {
    if (form_ == nullptr) return;
    form_->Tabs->Options->RefreshDrivers();
    form_->WatchSound();  // the new device may be present although the previous one is gone
    form_->Status2->update();
}

void QtDisplay::ShowOptions() {
    if (form_ != nullptr) form_->Tabs->Options->Refresh();
}

void QtDisplay::ShowJoystick() {
    if (form_ == nullptr) return;
    form_->Tabs->Options->RefreshJoystick();
    form_->Tabs->MixPad->RefreshJoystick();
    form_->Tabs->Map->RefreshJoystick();
}

void QtDisplay::ShowQuickLoad() {
    if (form_ != nullptr) form_->RefreshQuickLoad();
}

void QtDisplay::ShowQuickLoadList(bool open) {
    if (form_ != nullptr) form_->ShowQuickLoad(open);
}

void QtDisplay::ShowSaveOpen() {
    if (save_ != nullptr) save_->Refresh();
}

void QtDisplay::ShowBin(int bin) {
    if (browse_ != nullptr) browse_->Bins->RefreshBin(bin);
}

// The lists show the names of the samples.
void QtDisplay::ShowDestinations() {
    if (browse_ != nullptr) browse_->Bins->RefreshDestinations();
}

void QtDisplay::ShowFolderTree(bool open) {
    if (browse_ != nullptr) browse_->Bins->Tree->Open(open);
}

void QtDisplay::ShowClips() {
    if (browse_ != nullptr) browse_->Clips->Refresh();
}

}  // namespace marvolin

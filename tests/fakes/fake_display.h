#pragma once
/// \file
/// A display that only logs what it is asked to refresh.

#include <algorithm>
#include <string>
#include <vector>

#include "core/display.h"

namespace marvolin::test {

class FakeDisplay : public Display {
public:
    FakeDisplay();
    ~FakeDisplay() override;
    std::vector<std::string> Log;  ///< "ShowPlay 2", "ShowKnob 0 Vol", "ShowClock", ... in call order
    int Count(const std::string& entry) const { return static_cast<int>(std::count(Log.begin(), Log.end(), entry)); }

    void ShowPlay(Row row) override { Log.push_back(std::string("ShowPlay") + (" " + std::to_string(row))); }
    void ShowPlayMode(Row row) override { Log.push_back(std::string("ShowPlayMode") + (" " + std::to_string(row))); }
    void ShowKnob(Row row, Knob knob) override {
        Log.push_back(std::string("ShowKnob") + (" " + std::to_string(row)) + (" " + KnobName(knob)));
    }
    void ShowCaption(Row row) override { Log.push_back(std::string("ShowCaption") + (" " + std::to_string(row))); }
    void ShowEnabled(Row row) override { Log.push_back(std::string("ShowEnabled") + (" " + std::to_string(row))); }
    void ShowSoundDisplay(Row row) override {
        Log.push_back(std::string("ShowSoundDisplay") + (" " + std::to_string(row)));
    }
    void ShowWaveform(Row row) override { Log.push_back(std::string("ShowWaveform") + (" " + std::to_string(row))); }
    void ShowWire(Row row) override { Log.push_back(std::string("ShowWire") + (" " + std::to_string(row))); }
    void ShowSelected(Row row) override { Log.push_back(std::string("ShowSelected") + (" " + std::to_string(row))); }
    void ShowThumb(Row row) override { Log.push_back(std::string("ShowThumb") + (" " + std::to_string(row))); }
    void ShowSelector(int button) override {
        Log.push_back(std::string("ShowSelector") + (" " + std::to_string(button)));
    }
    void ShowBands() override { Log.push_back("ShowBands"); }
    void ShowSelectList(bool open) override {
        Log.push_back(std::string("ShowSelectList") + std::string(open ? " open" : " hide"));
    }
    void ShowHistoryList(bool open) override {
        Log.push_back(std::string("ShowHistoryList") + std::string(open ? " open" : " hide"));
    }
    void ShowStatusText() override { Log.push_back("ShowStatusText"); }
    void ShowReadout() override { Log.push_back("ShowReadout"); }
    void ShowClock() override { Log.push_back("ShowClock"); }
    void ShowLimit() override { Log.push_back("ShowLimit"); }
    void ShowFadeFactor() override { Log.push_back("ShowFadeFactor"); }
    void ShowSilence() override { Log.push_back("ShowSilence"); }
    void ShowRecording() override { Log.push_back("ShowRecording"); }
    void ShowUndo() override { Log.push_back("ShowUndo"); }
    void ShowTitle() override { Log.push_back("ShowTitle"); }
    void ShowSteps() override { Log.push_back("ShowSteps"); }
    void ShowPattern(int patternRow) override {
        Log.push_back(std::string("ShowPattern") + (" " + std::to_string(patternRow)));
    }
    void ShowPatternColumn(int patternRow, int column) override {
        Log.push_back(std::string("ShowPatternColumn") + (" " + std::to_string(patternRow)) +
                      (" " + std::to_string(column)));
    }
    void ShowStepMarker() override { Log.push_back("ShowStepMarker"); }
    void ShowTime(int group) override { Log.push_back(std::string("ShowTime") + (" " + std::to_string(group))); }
    void ShowPad() override { Log.push_back("ShowPad"); }
    void ShowPadBall() override { Log.push_back("ShowPadBall"); }
    void ShowTwist() override { Log.push_back("ShowTwist"); }
    void ShowMapPlaces() override { Log.emplace_back("ShowMapPlaces"); }
    void ShowMapBall(int ball) override { Log.push_back(std::string("ShowMapBall") + (" " + std::to_string(ball))); }
    void RaiseMapBall(int ball) override { Log.push_back(std::string("RaiseMapBall") + (" " + std::to_string(ball))); }
    void ShowMapHighlight(int ball) override {
        Log.push_back(std::string("ShowMapHighlight") + (" " + std::to_string(ball)));
    }
    void ShowListenerFace() override { Log.push_back("ShowListenerFace"); }
    void ShowMapControls() override { Log.push_back("ShowMapControls"); }
    void ShowMapSize() override { Log.push_back("ShowMapSize"); }
    void ShowRollOff() override { Log.push_back("ShowRollOff"); }
    void ShowTab() override { Log.push_back("ShowTab"); }
    void ShowDrivers() override { Log.push_back("ShowDrivers"); }
    void ShowOptions() override { Log.push_back("ShowOptions"); }
    void ShowJoystick() override { Log.push_back("ShowJoystick"); }
    void ShowQuickLoad() override { Log.push_back("ShowQuickLoad"); }
    void ShowQuickLoadList(bool open) override {
        Log.push_back(std::string("ShowQuickLoadList") + std::string(open ? " open" : " hide"));
    }
    void ShowSaveOpen() override { Log.push_back("ShowSaveOpen"); }
    void ShowBin(int bin) override { Log.push_back(std::string("ShowBin") + (" " + std::to_string(bin))); }
    void ShowDestinations() override { Log.push_back("ShowDestinations"); }
    void ShowFolderTree(bool open) override {
        Log.push_back(std::string("ShowFolderTree") + std::string(open ? " open" : " hide"));
    }
    void ShowClips() override { Log.push_back("ShowClips"); }

private:
    static std::string KnobName(Knob knob) { return knob == Knob::Vol ? "Vol" : knob == Knob::Pan ? "Pan" : "Hz"; }
};

}  // namespace marvolin::test

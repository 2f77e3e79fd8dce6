#pragma once
/// \file
/// A world without a screen, for tools that run a real session: nothing is shown, nobody is asked, time is passed in,
/// and the sound is rendered by hand.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "audio/openal/sound.h"
#include "core/session.h"
#include "instrument/start_up.h"
#include "performance/pad/mix_pad.h"
#include "persistence/session_file_store.h"

namespace marvolin::headless {

class NoDisplay : public Display {
public:
    void ShowPlay(Row) override {}
    void ShowPlayMode(Row) override {}
    void ShowKnob(Row, Knob) override {}
    void ShowCaption(Row) override {}
    void ShowEnabled(Row) override {}
    void ShowSoundDisplay(Row) override {}
    void ShowWaveform(Row) override {}
    void ShowWire(Row) override {}
    void ShowSelected(Row) override {}
    void ShowThumb(Row) override {}
    void ShowSelector(int) override {}
    void ShowBands() override {}
    void ShowSelectList(bool) override {}
    void ShowHistoryList(bool) override {}
    void ShowStatusText() override {}
    void ShowReadout() override {}
    void ShowClock() override {}
    void ShowLimit() override {}
    void ShowFadeFactor() override {}
    void ShowSilence() override {}
    void ShowRecording() override {}
    void ShowUndo() override {}
    void ShowTitle() override {}
    void ShowSteps() override {}
    void ShowPattern(int) override {}
    void ShowPatternColumn(int, int) override {}
    void ShowStepMarker() override {}
    void ShowTime(int) override {}
    void ShowPad() override {}
    void ShowPadBall() override {}
    void ShowTwist() override {}
    void ShowMapBall(int) override {}
    void ShowMapPlaces() override {}
    void RaiseMapBall(int) override {}
    void ShowMapHighlight(int) override {}
    void ShowListenerFace() override {}
    void ShowMapControls() override {}
    void ShowMapSize() override {}
    void ShowRollOff() override {}
    void ShowTab() override {}
    void ShowDrivers() override {}
    void ShowOptions() override {}
    void ShowJoystick() override {}
    void ShowQuickLoad() override {}
    void ShowQuickLoadList(bool) override {}
    void ShowSaveOpen() override {}
    void ShowBin(int) override {}
    void ShowDestinations() override {}
    void ShowFolderTree(bool) override {}
    void ShowClips() override {}
};

/// Answers OK to every box and keeps its text: without a player each box is a failure.
class NoDesktop : public Desktop {
public:
    explicit NoDesktop(std::string programFolder) : folder_(std::move(programFolder)) {}
    std::vector<std::string> Boxes;

    using Desktop::MessageBox;
    bool MessageBox(const std::string& text, const std::string&, BoxStyle) override {
        Boxes.push_back(text);
        return true;
    }
    using Desktop::Report;
    void Report(const std::string& text, const std::string&, BoxStyle) override { Boxes.push_back(text); }
    void SetBusyPointer(bool) override {}
    std::int32_t BitsPerPixel() override { return 24; }
    PixelRect WorkArea() override { return {0, 0, 1280, 800}; }
    double TwipsPerPixelX() override { return kTwipsPerPixel; }
    double TwipsPerPixelY() override { return kTwipsPerPixel; }
    std::int32_t TextWidth(const std::string& text) override { return static_cast<std::int32_t>(text.size() * 100); }
    PixelPoint SurfaceOrigin(Surface) override { return {}; }
    PixelPoint CursorPos() override { return {}; }
    void SetCursorPos(PixelPoint) override {}
    void ClipCursor(const PixelRect&) override {}
    void ReleaseCursor() override {}
    std::string TempFileName(const std::string&) override { return ""; }
    std::string ProgramFolder() override { return folder_; }
    bool ClaimInstance() override { return true; }
    void ShowHelpTopic(std::int32_t) override {}
    void CloseWindowTitled(const std::string&) override {}
    void UnloadMainWindow() override {}
    void EndProgram() override {}

private:
    std::string folder_;
};

class NoWindows : public Windows {
public:
    void Load(Form) override {}
    void Show(Form) override {}
    void Hide(Form) override {}
    void Unload(Form) override {}
    void BringToFront(Form) override {}
    TwipRect Place(Form) override { return {}; }
    void Move(Form, double, double) override {}
    void AllowBrowserToClose() override {}
    void EnablePadBalls(bool) override {}
};

/// Always the same number, so that results can be reproduced.
class NoChance : public Random {
public:
    double Rnd() override { return 0.5; }
    void SeedFromClock() override {}
};

class NoScript : public ScriptEvents {
public:
    void Call(ScriptEvent, std::span<const double>) override {}
    void ReportScriptError(std::string_view) override {}
};

class NoJoysticks : public DirectInput {
public:
    std::vector<std::string> GetDIEnumDevices(std::int32_t, std::int32_t) override { return {}; }
    std::unique_ptr<DirectInputDevice> CreateDevice(const std::string&) override { return nullptr; }
};

/// Timers on a clock that is advanced by hand.
class HandTimers : public TimerFactory {
public:
    std::unique_ptr<PeriodicTimer> Create(Tick tick) override {
        return std::make_unique<Timer>(*this, std::move(tick));
    }
    /// Advances by one millisecond; timers that are due tick.
    void Pass() {
        const std::vector<Timer*> timers = live_;
        for (Timer* timer : timers) {
            if (std::find(live_.begin(), live_.end(), timer) == live_.end()) continue;
            if (timer->Enabled && ++timer->Elapsed >= timer->Interval) {
                const std::int32_t elapsed = timer->Elapsed;
                timer->Elapsed = 0;
                const Tick tick = timer->OnTick;  // the tick may drop its timer
                tick(elapsed);
            }
        }
    }

private:
    struct Timer : PeriodicTimer {
        Timer(HandTimers& timers, Tick tick) : OnTick(std::move(tick)), owner(timers) { owner.live_.push_back(this); }
        ~Timer() override { std::erase(owner.live_, this); }
        void SetInterval(std::int32_t milliseconds) override { Interval = milliseconds; }
        void SetResolution(std::int32_t) override {}
        void SetEnabled(bool enabled) override {
            if (!enabled) Elapsed = 0;
            Enabled = enabled;
        }
        Tick OnTick;
        std::int32_t Interval = 1;
        std::int32_t Elapsed = 0;
        bool Enabled = false;
        HandTimers& owner;
    };
    std::vector<Timer*> live_;
};

/// An instrument on the real sound service, started as the program starts it, up to the shown window.
class World {
public:
    /// `programFolder` is the folder that holds "Samples" and the start-up files.
    explicit World(const std::string& programFolder) : Desk(programFolder) {
        const StartUpHooks hooks{nullptr, [](Session& made) { PadGeometryInit(made, kSurfaceSide, kSurfaceSide); }};
        Started = RunMain(s, hooks) && Desk.Boxes.empty();
    }
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// Advances the time: the timers tick, and the sound of that time is appended to `sound`, left and right
    /// interleaved, 44100 frames a second.
    void Play(std::int32_t milliseconds, std::vector<std::int16_t>& sound) {
        for (std::int32_t i = 0; i < milliseconds; ++i) {
            Timers.Pass();
            const auto due = static_cast<std::size_t>(++played_ * 441 / 10);
            const std::size_t frames = due - rendered_;
            sound.resize(sound.size() + 2 * frames);
            Sound.Render(sound.data() + sound.size() - 2 * frames, static_cast<int>(frames));
            rendered_ = due;
        }
    }

    bool Started = false;
    LoopbackRenderer Sound;
    NoDisplay Screen;
    NoDesktop Desk;
    NoWindows Forms;
    NoChance Chance;
    NoScript Script;
    HandTimers Timers;
    SessionFileStore Store;
    Session s{Services{Screen, Desk, Forms, Chance, Timers, Script, Store, [this] { return Sound.Root(); },
                       [] { return std::make_unique<NoJoysticks>(); }}};

private:
    static constexpr double kSurfaceSide = 4500;  // twips

    std::int64_t played_ = 0;   // ms
    std::size_t rendered_ = 0;  // frames
};

}  // namespace marvolin::headless

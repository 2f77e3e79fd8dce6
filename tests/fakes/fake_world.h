#pragma once
/// \file
/// Fakes of the other services: desktop, forms, random numbers, timers, scripts, session files, joystick.

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/desktop.h"
#include "core/errors.h"
#include "core/input_service.h"
#include "core/random.h"
#include "core/script_events.h"
#include "core/session_store.h"
#include "core/timer.h"
#include "core/windows.h"

namespace marvolin::test {

class FakeDesktop : public Desktop {
public:
    FakeDesktop();
    ~FakeDesktop() override;
    struct Box {
        std::string Text;
        std::string Title;
        BoxStyle Style;
        bool Waits = true;  ///< false for a box that only reports
    };
    std::vector<Box> Boxes;                ///< message boxes and reports shown, in order
    std::deque<bool> Answers;              ///< prepared answers; then always true
    std::vector<std::string> Log;          ///< all other calls, in order
    std::function<void()> WhileBoxIsOpen;  ///< runs while a box waits for its answer
    std::function<void()> WhenReported;    ///< runs when a report is shown
    std::int32_t Depth = 24;
    PixelRect Area{0, 0, 1280, 770};
    PixelPoint Origin{100, 200};
    std::string TempFile = "/nowhere/VBN1.tmp";  ///< "" when none can be made
    std::string Folder = "/nowhere/marvolin";
    bool FirstInstance = true;
    bool HelpFails = false;
    bool Busy = false;
    std::function<PixelPoint()> WherePointerIs;  ///< 0, 0 without it
    std::function<void(PixelPoint)> PutPointer;  ///< runs when the pointer is moved by the program

    using Desktop::MessageBox;
    bool MessageBox(const std::string& text, const std::string& title, BoxStyle style) override {
        Boxes.push_back({text, title, style});
        if (WhileBoxIsOpen) WhileBoxIsOpen();
        if (Answers.empty()) return true;
        const bool answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
    using Desktop::Report;
    void Report(const std::string& text, const std::string& title, BoxStyle style) override {
        Boxes.push_back({text, title, style, false});
        if (WhenReported) WhenReported();
    }
    void SetBusyPointer(bool busy) override {
        Busy = busy;
        Log.push_back(busy ? "busy pointer" : "default pointer");
    }
    std::int32_t BitsPerPixel() override { return Depth; }
    PixelRect WorkArea() override { return Area; }
    double TwipsPerPixelX() override { return 15; }
    double TwipsPerPixelY() override { return 15; }
    /// A hundred twips a character.
    std::int32_t TextWidth(const std::string& text) override {
        Measured.push_back(text);
        return static_cast<std::int32_t>(text.size() * 100);
    }
    std::vector<std::string> Measured;  ///< the texts whose width was asked for
    PixelPoint SurfaceOrigin(Surface) override { return Origin; }
    PixelPoint CursorPos() override { return WherePointerIs ? WherePointerIs() : PixelPoint{}; }
    void SetCursorPos(PixelPoint p) override {
        Log.push_back("SetCursorPos " + std::to_string(p.X) + "," + std::to_string(p.Y));
        if (PutPointer) PutPointer(p);
    }
    void ClipCursor(const PixelRect& r) override {
        Log.push_back("ClipCursor " + std::to_string(r.Left) + "," + std::to_string(r.Top) + "," +
                      std::to_string(r.Right) + "," + std::to_string(r.Bottom));
    }
    void ReleaseCursor() override { Log.push_back("ReleaseCursor"); }
    std::string TempFileName(const std::string& prefix) override {
        Log.push_back("TempFileName " + prefix);
        return TempFile;
    }
    std::string ProgramFolder() override { return Folder; }
    bool ClaimInstance() override { return FirstInstance; }
    void ShowHelpTopic(std::int32_t topic) override {
        if (HelpFails) throw RuntimeError(53, "File not found");
        Log.push_back("ShowHelpTopic " + std::to_string(topic));
    }
    void CloseWindowTitled(const std::string& title) override { Log.push_back("CloseWindowTitled " + title); }
    std::function<void()> OnUnload;  ///< runs when the main window is unloaded
    void UnloadMainWindow() override {
        Log.push_back("UnloadMainWindow");
        if (OnUnload) OnUnload();
    }
    void EndProgram() override { Log.push_back("EndProgram"); }
    /// Text of the last box; "" when there was none.
    std::string LastBox() const { return Boxes.empty() ? "" : Boxes.back().Text; }
};

class FakeWindows : public Windows {
public:
    FakeWindows();
    ~FakeWindows() override;
    std::vector<std::string> Log;
    std::set<Form> Loaded{Form::Main, Form::Browse, Form::Save, Form::Splash};
    TwipRect MainPlace{0, 0, 15600, 11100};
    std::map<Form, TwipRect> OtherPlaces;  ///< places of forms; the others are at `MainPlace`
    bool HideFails = false;

    void Load(Form form) override { Note("Load", form), Loaded.insert(form); }
    void Show(Form form) override { Note("Show", form), Loaded.insert(form); }
    void Hide(Form form) override {
        Note("Hide", form);
        if (HideFails) throw RuntimeError(5, "Invalid procedure call");
    }
    void Unload(Form form) override {
        Note("Unload", form);
        if (Loaded.erase(form) == 0) throw NoObjectError();
    }
    void BringToFront(Form form) override { Note("BringToFront", form); }
    TwipRect Place(Form form) override {
        const auto other = OtherPlaces.find(form);
        return other == OtherPlaces.end() ? MainPlace : other->second;
    }
    void Move(Form form, double left, double top) override {
        Note("Move", form);
        Log.back() += " " + std::to_string(static_cast<long>(left)) + "," + std::to_string(static_cast<long>(top));
    }
    void AllowBrowserToClose() override { Log.push_back("AllowBrowserToClose"); }
    void EnablePadBalls(bool enabled) override { Log.push_back(enabled ? "EnablePadBalls" : "DisablePadBalls"); }

private:
    void Note(const std::string& what, Form form) {
        static const std::map<Form, std::string> kNames{{Form::Main, "Main"},
                                                        {Form::Browse, "Browse"},
                                                        {Form::Save, "Save"},
                                                        {Form::Splash, "Splash"},
                                                        {Form::StartUpQuery, "StartUpQuery"}};
        Log.push_back(what + " " + kNames.at(form));
    }
};

/// Returns a prepared sequence of numbers in [0, 1), then always `Rest`.
class FakeRandom : public Random {
public:
    FakeRandom();
    ~FakeRandom() override;
    std::deque<double> Sequence;
    double Rest = 0;
    int Draws = 0;
    bool Seeded = false;
    double Rnd() override {
        ++Draws;
        if (Sequence.empty()) return Rest;
        const double next = Sequence.front();
        Sequence.pop_front();
        return next;
    }
    void SeedFromClock() override { Seeded = true; }
};

/// Timers that tick when a test calls `OnTick`.
class FakeTimers : public TimerFactory {
public:
    FakeTimers();
    ~FakeTimers() override;
    class Timer : public PeriodicTimer {
    public:
        Timer(FakeTimers& owner, Tick tick) : OnTick(std::move(tick)), owner_(owner) { owner_.Live.push_back(this); }
        ~Timer() override { std::erase(owner_.Live, this); }
        void SetInterval(std::int32_t ms) override { Interval = ms; }
        void SetResolution(std::int32_t ms) override { Resolution = ms; }
        void SetEnabled(bool enabled) override {
            if (owner_.FailDisable && !enabled) throw RuntimeError(5, "Invalid procedure call");
            Enabled = enabled;
        }
        Tick OnTick;
        std::int32_t Interval = 0;
        std::int32_t Resolution = 0;
        bool Enabled = false;

    private:
        FakeTimers& owner_;
    };
    std::vector<Timer*> Live;
    bool Fail = false;         ///< no timer can be made
    bool FailDisable = false;  ///< switching a timer off fails
    std::unique_ptr<PeriodicTimer> Create(Tick tick) override {
        if (Fail) throw RuntimeError(429, "ActiveX component can't create object");
        return std::make_unique<Timer>(*this, std::move(tick));
    }
};

/// Logs events; a failing script raises the prepared error.
class FakeScripts : public ScriptEvents {
public:
    FakeScripts();
    ~FakeScripts() override;
    struct Event {
        ScriptEvent Which;
        std::vector<double> Arguments;
    };
    std::vector<Event> Events;
    std::vector<std::string> Reports;
    bool Fail = false;
    std::function<void(ScriptEvent)> During;  ///< the body of the script's procedure
    void Call(ScriptEvent event, std::span<const double> arguments) override {
        Events.push_back({event, {arguments.begin(), arguments.end()}});
        if (During) During(event);
        if (Fail) throw RuntimeError(1, "script error");
    }
    void ReportScriptError(std::string_view name) override { Reports.emplace_back(name); }
};

/// Logs saves and loads of whole sessions.
class FakeStore : public SessionStore {
public:
    FakeStore();
    ~FakeStore() override;
    std::vector<std::string> Log;
    bool Answer = true;
    std::function<void()> OnSave;
    std::function<void()> OnLoad;
    clsSwitchRecord Loaded;  ///< switches of the last load
    bool SaveSession(Session&, const std::string& fileName, LoopsSaved loops,
                     const clsSwitchRecord& switches) override {
        Log.push_back("Save " + fileName + (loops == LoopsSaved::All ? " all" : " selected") + Shown(switches));
        if (OnSave) OnSave();
        return Answer;
    }
    bool LoadSession(Session&, const std::string& fileName, SetAsCurrent current, const clsSwitchRecord& switches,
                     AdoptSwitches adopt) override {
        Log.push_back("Load " + fileName + (current == SetAsCurrent::Yes ? " current" : "") +
                      (adopt == AdoptSwitches::Yes ? " adopt" : "") + Shown(switches));
        Loaded = switches;
        if (OnLoad) OnLoad();
        return Answer;
    }

private:
    static std::string Shown(const clsSwitchRecord& switches) {
        clsSwitchRecord all;
        all.SetSwitch(true);
        return switches == all ? " everything" : "";
    }
};

/// A joystick with settable state and failures.
struct FakeJoystick {
    FakeJoystick();
    ~FakeJoystick();
    std::vector<std::string> Devices{"stick"};
    std::vector<std::int32_t> Axes{0, 4, 8, 20};
    DIJOYSTATE State{5000, 5000, 0, 0, 0, 0, {}, {-1, -1, -1, -1}, {}};
    std::map<std::string, std::uint32_t> Failures;  ///< operation name -> number that every such call raises
    std::vector<std::string> Log;
    void Note(const std::string& operation, const std::string& rest = "") {
        Log.push_back(rest.empty() ? operation : operation + " " + rest);
        const auto failure = Failures.find(operation);
        if (failure != Failures.end()) throw RuntimeError(failure->second, operation + " failed");
    }
};

/// The operations of a joystick; each is noted and may fail.
class FakeInput : public DirectInput {
public:
    explicit FakeInput(FakeJoystick& stick) : stick_(stick) {}
    std::vector<std::string> GetDIEnumDevices(std::int32_t deviceClass, std::int32_t flags) override;
    std::unique_ptr<DirectInputDevice> CreateDevice(const std::string& guid) override;

private:
    FakeJoystick& stick_;
};

}  // namespace marvolin::test

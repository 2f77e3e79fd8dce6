#include "world.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QCursor>
#include <QLineEdit>
#include <QTabBar>
#include <QTimer>
#include <algorithm>
#include <filesystem>

#include "browser/lnk_shortcut.h"
#include "core/files/paths.h"
#include "fakes/file_bytes.h"
#include "instrument/keyboard.h"
#include "instrument/shut_down.h"
#include "instrument/start_up.h"
#include "performance/pad/mix_pad.h"
#include "persistence/kept/last_state.h"
#include "window/controls/control.h"
#include "window/descriptions/described.h"
#include "window/editor/code_view_module.h"
#include "window/forms/frm_browse.h"
#include "window/screens/toolkit_scale.h"
#include "window/tabs/tab_mix_pad.h"

namespace marvolin::hand {

namespace fs = std::filesystem;

namespace {

constexpr int kMostCloses = 200;             // the player may be asked about a script, and cancel
constexpr int kMostLooks = 12;               // until the frame of a window would be known
constexpr std::int64_t kScriptTick = 2'000;  // ns that a look at the clock of the scripts takes

bool IsControl(const QWidget& widget) {
    if (DescribedOf(widget) == nullptr) return false;
    return dynamic_cast<const Control*>(&widget) != nullptr || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractSlider*>(&widget) ||
           qobject_cast<const QAbstractScrollArea*>(&widget) || qobject_cast<const QTabBar*>(&widget) ||
           qobject_cast<const QLineEdit*>(&widget);
}

bool IsForm(const QWidget& window) {
    const QString name = window.objectName();
    return name.startsWith("frm") && name != "frmHelp";
}

}  // namespace

World::World(std::uint64_t seed)
    : Keeper(QString::fromStdString(In("marvolin.windows")), {FrmMain::RegularSize(), FrmBrowse::kSize.width()},
             {[this] { return Screens; }, ScaleToolkit, CanScale()}),
      chance_(seed),
      lua_({.Clock = [this] { return scriptTime_ += kScriptTick; },
            .Print = [this](std::string_view line) { Room.Print(line); },
            .Ended = [this] { Room.EndedItself(); }}),
      s(Services{display_, Desk, windows_, chance_, timers_, host_, store_,
                 [this] { return std::make_unique<test::FakeDirectX>(Sound); },
                 [this] { return std::make_unique<test::FakeInput>(Stick); }, ResolveLnkShortcut, &Output}) {
    WriteFolder();
    QCursor::setPos(1, 1);
    QGuiApplication::clipboard()->clear();
    Keeper.Start();
    windows_.Attach(Keeper);
    lua_.Attach(s);
    Room.Attach(s, host_);
    windows_.AttachScripts(Room);
    windows_.Attach(s, {[this] { Form_Activate(s); }, [this] { Form_QueryUnload(s); },
                        [this](char letter, bool shift, bool control, bool alt) {
                            const int held = (shift ? kShiftKey : 0) | (control ? kCtrlKey : 0);
                            Form_KeyUp(s, letter, held | (alt ? kAltKey : 0));
                        },
                        [] { return 1.0; }, [this] { return Sound.Failures.contains("Gone"); },
                        [] {
                            return SoundTiming{128, 9.8};
                        }});
    const StartUpHooks hooks{
        [this] { return s.ScriptAvailable = true; },
        [](Session& made) { PadGeometryInit(made, TabMixPad::InnerWidth(), TabMixPad::InnerHeight()); }};
    started_ = RunMain(s, hooks);
    if (!started_) return;
    Settle();
    Main().activateWindow();
    Settle();
    Form_Activate(s);
    windows_.Hide(Form::Splash);
    Settle();
}

World::~World() {
    if (started_) Close();
    windows_.DropForms();
    ScaleToolkit(1);
}

void World::Close() {
    for (int i = 0; i < kMostCloses && !Closed(); ++i) Main().close();
    Settle();
}

void World::HurryKeeper() {
    const QList<QTimer*> timers = Keeper.findChildren<QTimer*>();
    for (int i = 0; i < kMostLooks; ++i) {
        bool waits = false;
        for (QTimer* timer : timers) {
            if (!timer->isActive()) continue;
            timer->start(0);
            waits = true;
        }
        if (!waits) return;
        Settle();
    }
}

void World::WriteFolder() const {
    fs::create_directories(Folder / "Samples");
    for (const std::string& name : Samples()) {
        if (name.ends_with(".wav")) test::WriteBytes(Folder / name, "RIFF....WAVE" + name);
    }
    test::WriteBytes(Folder / "notes.txt", "no sample");
    test::WriteBytes(Folder / "broken.mvn", "no set");
    fs::create_directories(Folder / "empty folder");
    fs::create_directory_symlink(fs::path(MARVOLIN_ASSETS) / "Help", Folder / "Help");
    // A copy: the hand may save its own script over one.
    fs::copy(fs::path(MARVOLIN_ASSETS) / "Scripts", Folder / "Scripts", fs::copy_options::recursive);
    fs::create_symlink(MARVOLIN_EDITOR, Folder / kCodeViewModule);
}

const std::vector<std::string>& World::Samples() {
    static const std::vector<std::string> names{"Samples/bass.wav",   "Samples/hat.wav",
                                                "Samples/kick 2.wav", "Samples/a pad with a rather long name.wav",
                                                "tone.wav",           "snare.wav"};
    return names;
}

const std::vector<std::string>& World::Sets() {
    static const std::vector<std::string> names{"one.mvn", "two.mvn", "three.mvp", "Samples/four.mvn"};
    return names;
}

const std::vector<std::string>& World::Scripts() {
    static const std::vector<std::string> names{"ducking",  "euclidean", "fade_out",       "humaniser",    "learning",
                                                "map_walk", "turns",     "pan_oscillator", "scene_changer"};
    return names;
}

std::string World::ScriptText(const std::string& name) const {
    return test::ReadBytes(Folder / ("Scripts/" + name + ".mvs"));
}

void World::Pass(int milliseconds) {
    for (int i = 0; i < milliseconds; ++i) {
        time_.Milliseconds += 1;
        scriptTime_ += 1'000'000;
        timers_.Pass();
    }
    PlayOn(milliseconds);
    ticked_ = milliseconds >= s.TimingRes;
    // A state that is being written is on the disk at the next look, on every machine.
    WaitForLastState(s);
    Settle();
}

void World::PlayOn(int milliseconds) {
    for (auto& [number, buffer] : Sound.Live) {
        if (buffer->Status == 0 || !buffer->Sample) continue;
        const auto size = static_cast<std::int64_t>(buffer->Sample->Bytes.size());
        const int block = buffer->Sample->Format.BlockAlign;
        std::int64_t place = buffer->Position + std::int64_t{buffer->Frequency} * milliseconds / 1000 * block;
        if (place >= size && (buffer->Status & buffer_status::kLooping) == 0) {
            buffer->Status = 0;
            place = 0;
        }
        buffer->Position = static_cast<std::int32_t>(place % size);
    }
}

void World::Settle() { QCoreApplication::processEvents(); }

std::vector<QWidget*> World::Windows() const {
    std::vector<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const bool list = window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip;
        if (window->isVisible() && !list) windows.push_back(window);
    }
    std::sort(windows.begin(), windows.end(), [](const QWidget* a, const QWidget* b) {
        return std::pair(a->objectName(), a->windowTitle()) < std::pair(b->objectName(), b->windowTitle());
    });
    return windows;
}

const std::vector<QPointer<QWidget>>& World::Controls() {
    std::vector<QWidget*> forms;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (IsForm(*window)) forms.push_back(window);
    }
    std::sort(forms.begin(), forms.end(),
              [](const QWidget* a, const QWidget* b) { return a->objectName() < b->objectName(); });
    if (forms == forms_) return controls_;
    forms_ = forms;
    controls_.clear();
    for (QWidget* form : forms) {
        for (QWidget* widget : form->findChildren<QWidget*>()) {
            if (IsControl(*widget)) controls_.emplace_back(widget);
        }
    }
    return controls_;
}

}  // namespace marvolin::hand

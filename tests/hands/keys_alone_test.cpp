// An evening by keys alone: the real instrument with its windows, its sound rendered and its time advanced by hand.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>
#include <cmath>
#include <filesystem>
#include <functional>

#include "fakes/temp_folder.h"
#include "headless_world.h"
#include "instrument/keyboard.h"
#include "instrument/shut_down.h"
#include "persistence/session_file_store.h"
#include "wave_bytes.h"
#include "window/forms/frm_main.h"
#include "window/tabs/tab_mix_pad.h"
#include "window/toolkit/qt_desktop.h"
#include "window/toolkit/qt_display.h"
#include "window/toolkit/qt_windows.h"

namespace marvolin {
namespace {

namespace fs = std::filesystem;

/// A desktop that asks nobody, and has a folder for temporary files.
struct EveningDesktop : headless::NoDesktop {
    using NoDesktop::NoDesktop;
    double TwipsPerPixelX() override { return kTwipsPerPixel; }
    std::string TempFileName(const std::string& prefix) override { return ProgramFolder() + "/" + prefix + ".tmp"; }
};

class Evening {
public:
    Evening() {
        for (const char* name : {"bass", "hat", "kick", "pad"}) WriteSample(name);
        FrmMain::Events events{[this] { Form_Activate(s); },
                               [this] { Form_QueryUnload(s); },
                               [this](char letter, bool shift, bool control, bool alt) {
                                   const int held = (shift ? kShiftKey : 0) | (control ? kCtrlKey : 0);
                                   Form_KeyUp(s, letter, held | (alt ? kAltKey : 0));
                               },
                               nullptr,
                               nullptr,
                               nullptr};
        windows_.Attach(s, std::move(events));
        const StartUpHooks hooks{
            nullptr, [](Session& made) { PadGeometryInit(made, TabMixPad::InnerWidth(), TabMixPad::InnerHeight()); }};
        Started = RunMain(s, hooks);
        QCoreApplication::processEvents();
        Form_Activate(s);
        windows_.Hide(Form::Splash);
        To("frmMain");
    }
    ~Evening() { windows_.DropForms(); }

    /// A key, once or more, on whatever has the focus.
    void Key(int key, Qt::KeyboardModifiers held = Qt::NoModifier, int times = 1) {
        for (int i = 0; i < times; ++i) {
            QWidget* window = QApplication::activePopupWidget();
            if (window == nullptr) window = QApplication::activeWindow();
            ASSERT_NE(window, nullptr);
            QWidget* focus = window->focusWidget();
            QTest::keyClick(focus == nullptr ? window : focus, static_cast<Qt::Key>(key), held);
            QCoreApplication::processEvents();
        }
    }
    /// Presses Tab until the control of this name has the focus.
    void TabTo(const char* name) {
        for (int i = 0; i < 200; ++i) {
            if (Focus() == name) return;
            Key(Qt::Key_Tab);
        }
        FAIL() << "Tab does not reach " << name;
    }
    /// Presses F6 until the window of this name is the active one.
    void To(const char* window) {
        for (int i = 0; i < 6; ++i) {
            QWidget* active = QApplication::activeWindow();
            if (active != nullptr && active->objectName() == window) return;
            QTest::keyClick(active == nullptr ? Main() : active, Qt::Key_F6);
            QCoreApplication::processEvents();
        }
        FAIL() << "F6 does not reach " << window;
    }
    QWidget* Main() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == "frmMain") return window;
        }
        return nullptr;
    }
    const std::vector<std::string>& Boxes() const { return desk_.Boxes; }
    static std::string Focus() {
        QWidget* focus = QApplication::focusWidget();
        return focus == nullptr ? "" : focus->objectName().toStdString();
    }
    /// The loudness of the next `milliseconds`, 0..32767.
    double Hear(int milliseconds) {
        double sum = 0;
        std::size_t values = 0;
        for (int i = 0; i < milliseconds; ++i) {
            timers_.Pass();
            std::array<std::int16_t, 2 * 45> frames{};
            const auto due = static_cast<std::size_t>(++played_ * 441 / 10);
            const std::size_t count = due - rendered_;
            sound_.Render(frames.data(), static_cast<int>(count));
            rendered_ = due;
            for (std::size_t at = 0; at < 2 * count; ++at) sum += frames[at] * static_cast<double>(frames[at]);
            values += 2 * count;
        }
        return std::sqrt(sum / static_cast<double>(values));
    }

    test::TempFolder Folder;
    bool Started = false;

private:
    /// A second of a plain tone.
    void WriteSample(const std::string& name) {
        fs::create_directories(fs::path(Folder.Path()) / "Samples");
        std::vector<std::int32_t> frames;
        for (int frame = 0; frame < 44100; ++frame) {
            const auto value = static_cast<std::int32_t>(std::lround(4000 * std::sin(frame * 0.02)));
            frames.insert(frames.end(), {value, value});
        }
        const test::ByteList bytes = test::WaveBytes({.Data = test::Pcm(frames, 16)});
        Folder.Touch("Samples/" + name + ".wav", std::string(bytes.begin(), bytes.end()));
    }

    LoopbackRenderer sound_;
    QtDisplay display_;
    EveningDesktop desk_{Folder.Path()};
    QtDesktop forms_;
    QtWindows windows_{display_, forms_};
    headless::NoChance chance_;
    headless::NoScript script_;
    headless::HandTimers timers_;
    SessionFileStore store_;
    std::int64_t played_ = 0;
    std::size_t rendered_ = 0;

public:
    Session s{Services{display_, desk_, windows_, chance_, timers_, script_, store_, [this] { return sound_.Root(); },
                       [] { return std::make_unique<headless::NoJoysticks>(); }}};
};

/// The lowest and the highest loudness of eight half seconds.
std::pair<double, double> Range(Evening& evening) {
    double low = 1e9;
    double high = 0;
    for (int i = 0; i < 8; ++i) {
        const double loud = evening.Hear(500);
        low = std::min(low, loud);
        high = std::max(high, loud);
    }
    return {low, high};
}

constexpr double kHeard = 300;
constexpr double kSilent = 5;

/// Loads the first sample by its destination, the others by carrying them to their rows.
void FillAll(Evening& evening) {
    evening.TabTo("Browse");
    evening.Key(Qt::Key_Space);
    evening.To("frmBrowse");
    evening.TabTo("FileDestination_0");
    evening.Key(Qt::Key_Space);
    evening.Key(Qt::Key_Home);
    evening.Key(Qt::Key_Return);
    evening.TabTo("PickFile_0");
    evening.Key(Qt::Key_Down);
    evening.Key(Qt::Key_Return);
    for (int row = 1; row < kLoopTracks; ++row) {
        evening.To("frmBrowse");
        evening.Key(Qt::Key_Down);
        evening.Key(Qt::Key_Insert);
        evening.To("frmMain");
        evening.Key(Qt::Key_Down, Qt::NoModifier, row == 1 ? 2 : 1);
        evening.Key(Qt::Key_Insert);
    }
}

void ExpectEachIsHeardAlone(Evening& evening) {
    for (int row = 0; row < kLoopTracks; ++row) evening.Key(Qt::Key_A + row);
    evening.Hear(50);
    EXPECT_LT(evening.Hear(200), kSilent);
    for (int row = 0; row < kLoopTracks; ++row) {
        SCOPED_TRACE(row);
        evening.Key(Qt::Key_A + row);
        EXPECT_GT(evening.Hear(200), kHeard);
        evening.Key(Qt::Key_A + row);
        evening.Hear(50);
        EXPECT_LT(evening.Hear(200), kSilent);
    }
    for (int row = 0; row < kLoopTracks; ++row) evening.Key(Qt::Key_A + row);
}

void FadeSome(Evening& evening) {
    evening.Key(Qt::Key_B, Qt::ControlModifier);
    evening.TabTo("SndDisp_2");
    evening.Key(Qt::Key_PageDown, Qt::NoModifier, 3);
    evening.Key(Qt::Key_Space);
    EXPECT_EQ(evening.s.Set[1].Vol, 500);
    evening.Hear(12000);
    EXPECT_EQ(evening.s.Set[1].Vol, 0);
    EXPECT_EQ(evening.s.Run[1].Playing, False);
    EXPECT_EQ(evening.s.Set[2].Vol, 200);
    EXPECT_NE(evening.s.Run[2].Playing, False);
}

void DrawPattern(Evening& evening) {
    evening.TabTo("Thumb_0");
    evening.Key(Qt::Key_Space, Qt::ControlModifier);
    evening.TabTo("LoopIt_0");
    evening.Key(Qt::Key_Up, Qt::NoModifier, 2);
    evening.TabTo("NSteps");
    evening.Key(Qt::Key_Down, Qt::NoModifier, 2);
    evening.TabTo("PatternGraph_0");
    evening.Key(Qt::Key_Right);
    evening.Key(Qt::Key_PageDown, Qt::NoModifier, 5);
    EXPECT_EQ(evening.s.Set[0].PlayMode, kDrum);
    EXPECT_EQ(evening.s.Set[0].NSteps, 1);
    EXPECT_EQ(evening.s.Set[0].Pattern[kVolPattern][1], 0);
    evening.Key(Qt::Key_C);
    evening.Key(Qt::Key_D);
    const auto [low, high] = Range(evening);
    EXPECT_GT(high, kHeard);
    EXPECT_LT(low, high / 10);
}

/// Types into the file dialogue that Save As opens.
void SaveAs(Evening& evening, const std::string& path) {
    evening.TabTo("SaveOpen");
    evening.Key(Qt::Key_Space);
    evening.To("frmSave");
    evening.TabTo("SaveItAs");
    QTimer hand;
    hand.callOnTimeout([&] {
        auto* dialogue = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialogue == nullptr) return;
        hand.stop();
        QWidget* name = dialogue->focusWidget();
        ASSERT_NE(name, nullptr);
        QTest::keyClicks(name, QString::fromStdString(path));
        QTest::keyClick(name, Qt::Key_Return);
    });
    hand.start(0);
    evening.Key(Qt::Key_Space);
}

TEST(KeysAlone, PlayASetFromEmptyToFourLoopsFadesAPatternAndASaveThatComesBack) {
    Evening evening;
    ASSERT_TRUE(evening.Started);
    for (Row row = 0; row < kLoopTracks; ++row) ASSERT_EQ(evening.s.Run[row].Loaded, False);
    FillAll(evening);
    for (Row row = 0; row < kLoopTracks; ++row) {
        SCOPED_TRACE(row);
        EXPECT_NE(evening.s.Run[row].Loaded, False);
        EXPECT_NE(evening.s.Run[row].Playing, False);
    }
    EXPECT_GT(evening.Hear(200), kHeard);
    ExpectEachIsHeardAlone(evening);
    FadeSome(evening);
    DrawPattern(evening);

    const std::string set = evening.Folder.In("evening");
    SaveAs(evening, set);
    EXPECT_TRUE(fs::exists(set + ".mvn"));

    evening.To("frmMain");
    evening.TabTo("DropDown_0");
    evening.Key(Qt::Key_Space);
    evening.Key(Qt::Key_Down, Qt::NoModifier, 1);
    evening.Key(Qt::Key_Return);
    EXPECT_EQ(evening.s.Run[0].Loaded, False);
    evening.TabTo("QuickLoadPop");
    evening.Key(Qt::Key_Space);
    EXPECT_THAT(evening.s.QuickLoadRows, testing::Contains("evening"));
    evening.Key(Qt::Key_Down);  // behind the entry that closes the list
    evening.Key(Qt::Key_Return);
    EXPECT_THAT(evening.Boxes(), testing::IsEmpty());
    EXPECT_EQ(evening.s.CurrentFile, "evening.mvn");
    EXPECT_NE(evening.s.Run[0].Loaded, False);
    EXPECT_EQ(evening.s.Set[0].PlayMode, kDrum);
    EXPECT_EQ(evening.s.Set[0].Pattern[kVolPattern][1], 0);
    EXPECT_EQ(evening.s.Set[2].Vol, 200);
}

}  // namespace
}  // namespace marvolin

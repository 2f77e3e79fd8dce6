#include <gtest/gtest.h>

#include <array>
#include <set>

#include "stage.h"
#include "window/controls/control.h"
#include "window/forms/status_bars.h"
#include "window/toolkit/theme.h"

namespace marvolin {
namespace {

using test::Stage;

TEST(Layout, RegularFitsAThousandAndFortyBySevenHundredAndForty) {
    Stage stage;
    EXPECT_LE(stage.Form->width(), 1040);
    EXPECT_LE(stage.Form->height(), 740);
    EXPECT_EQ(stage.Form->minimumSize(), stage.Form->maximumSize());
}

TEST(Layout, NothingIsClippedByItsParent) {
    Stage stage;
    for (std::int16_t tab = 0; tab < kTabs; ++tab) {
        stage.s.ActiveTab = tab;
        stage.Screen.ShowTab();
        for (const QWidget* widget : stage.Form->findChildren<QWidget*>()) {
            if (widget->isWindow() || !widget->isVisible() || widget->objectName().startsWith("qt_")) continue;
            EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()))
                << widget->objectName().toStdString() << " on " << widget->parentWidget()->objectName().toStdString();
        }
    }
}

TEST(Layout, EveryControlHasAUniqueNameAndAnAccessibleName) {
    Stage stage;
    std::set<QString> names;
    for (const QWidget* widget : stage.Form->findChildren<QWidget*>()) {
        if (dynamic_cast<const Control*>(widget) == nullptr) continue;
        SCOPED_TRACE(widget->objectName().toStdString());
        EXPECT_FALSE(widget->objectName().isEmpty());
        EXPECT_TRUE(names.insert(widget->objectName()).second);
        EXPECT_FALSE(widget->accessibleName().isEmpty());
    }
    for (const char* name : {"VolKnob_0",        "VolKnob_5",
                             "PanKnob_4",        "HzKnob_3",
                             "Play_4",           "LoopIt_5",
                             "Letr_4",           "DropDown_4",
                             "SndDisp_4",        "ChannelFlag_4",
                             "Selected_3",       "Thumb_3",
                             "PlayStop",         "Limiter",
                             "FadeFactor",       "ToTop",
                             "Browse",           "SaveOpen",
                             "QuickLoadPop",     "PatternGraph_2",
                             "StepReadOut",      "NSteps",
                             "Eraser",           "Patterns",
                             "AllTiming",        "TimeDigit_14",
                             "PercentReadOut_2", "CloneTime_2",
                             "SelectorRadio_6",  "Bands",
                             "SelectPopUp",      "cboDrivers",
                             "ResetVars",        "PlayOnLoad",
                             "DragAxisSelect",   "ResSlider",
                             "ResReadout",       "ScrollSensitivity_1",
                             "OptionHelp"}) {
        EXPECT_NE(stage.Form->findChild<QWidget*>(name), nullptr) << name;
    }
}

TEST(Layout, ControlsThatAreNotPureMouseSurfacesAreReachedByTab) {
    Stage stage;
    for (const char* name : {"Play_0", "VolKnob_3", "LoopIt_1", "ChannelFlag_2", "Limiter", "FadeFactor", "Selected_0",
                             "Thumb_1", "TimeDigit_3", "NSteps", "SelectorRadio_2", "Tab_2", "ToTop", "DropDown_0"}) {
        EXPECT_TRUE(stage.At(name)->focusPolicy() & Qt::TabFocus) << name;
    }
}

TEST(Mini, CutsTheWindowBelowTheRowsAndBack) {
    Stage stage;
    const int regular = stage.Form->height();
    stage.Click("ToTop");
    EXPECT_TRUE(stage.s.MiniMode);
    EXPECT_LT(stage.Form->height(), regular / 2 + 20);
    EXPECT_FALSE(stage.At("TabControl")->isVisible());
    EXPECT_TRUE(stage.At("LoopRow_4")->isVisible());
    EXPECT_EQ(stage.At("StatusBar2")->geometry().bottom() + 1, stage.Form->height());
    EXPECT_TRUE(stage.Form->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    stage.Settle();
    stage.Click("ToTop");
    EXPECT_EQ(stage.Form->height(), regular);
    EXPECT_FALSE(stage.Form->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST(Mini, KeepsItsPlaceAndTheWayBackTakesTheWindowWhereItIs) {
    Stage stage;
    stage.Form->move(137, 91);
    stage.Settle();
    ASSERT_EQ(stage.Form->pos(), QPoint(137, 91));
    stage.Click("ToTop");
    stage.Settle();
    EXPECT_EQ(stage.Form->pos(), QPoint(137, 91));
    EXPECT_TRUE(stage.Form->isVisible());
    stage.Form->move(212, 44);
    stage.Settle();
    stage.Click("ToTop");
    stage.Settle();
    EXPECT_EQ(stage.Form->pos(), QPoint(212, 44));
    EXPECT_TRUE(stage.Form->isVisible());
}

TEST(Theme, TextHasEnoughContrast) {
    for (const QColor& ground : {theme::kWindow, theme::kPanel, theme::kRaised, theme::kSunk}) {
        EXPECT_GE(theme::Contrast(theme::kText, ground), 4.5);
        EXPECT_GE(theme::Contrast(theme::kQuiet, ground), 4.5);
        EXPECT_GE(theme::Contrast(theme::kAccent, ground), 4.5);
    }
    EXPECT_GE(theme::Contrast(theme::kWindow, theme::kAccent), 4.5);
    for (Row row = 0; row < kRows; ++row) {
        const QColor colour = theme::RowColour(row);
        EXPECT_GE(theme::Contrast(theme::InkOn(colour), colour), 4.5) << row;
        EXPECT_GE(theme::Contrast(colour, theme::WaveGround(row)), 4.5) << row;
    }
}

TEST(Theme, RowColoursAreThoseOfTheModel) {
    const std::array<QColor, kRows> colours{QColor(255, 0, 0), QColor(41, 253, 255),  QColor(255, 192, 0),
                                            QColor(0, 0, 255), QColor(255, 255, 132), QColor(0, 0, 149)};
    for (Row row = 0; row < kRows; ++row) {
        EXPECT_EQ(theme::RowColour(row), colours[static_cast<std::size_t>(row)]) << row;
    }
}

TEST(StatusBars, ShowHintReadoutAndClock) {
    Stage stage;
    const QImage before = stage.At("StatusBar1")->grab().toImage();
    stage.s.StatusText = "Ready.";
    const QImage hint = stage.At("StatusBar1")->grab().toImage();
    stage.s.ReadoutText = "Vol: 12";
    const QImage readout = stage.At("StatusBar1")->grab().toImage();
    stage.s.Clock.Panel = "00:00:01";
    const QImage clock = stage.At("StatusBar1")->grab().toImage();
    EXPECT_NE(before, hint);
    EXPECT_NE(hint, readout);
    EXPECT_NE(readout, clock);
}

TEST(StatusBars, ADeviceThatIsGoneIsReportedOnceAndShownUntilItIsBack) {
    Stage stage;
    stage.Form->WatchSound();
    EXPECT_EQ(stage.Form->Status2->DeviceText(), "Primary Sound Driver, 44100 Hz, 128 frames, 9.8 ms");
    const QImage before = stage.At("StatusBar2")->grab().toImage();

    stage.s.StatusText.clear();
    stage.SoundGone = true;
    stage.Form->WatchSound();
    EXPECT_EQ(stage.s.StatusText,
              "The sound device is gone. It is taken again when it is back; the tab Optn has others.");
    EXPECT_EQ(stage.Form->Status2->DeviceText(), "Primary Sound Driver is gone: choose a sound driver on the tab Optn");
    EXPECT_NE(stage.At("StatusBar2")->grab().toImage(), before);
    stage.s.StatusText = "Stopped.";
    stage.Form->WatchSound();
    EXPECT_EQ(stage.s.StatusText, "Stopped.");

    stage.SoundGone = false;
    stage.Form->WatchSound();
    EXPECT_EQ(stage.At("StatusBar2")->grab().toImage(), before);
    stage.SoundGone = true;
    stage.Form->WatchSound();
    EXPECT_EQ(stage.s.StatusText,
              "The sound device is gone. It is taken again when it is back; the tab Optn has others.");
    stage.s.DSReady = false;
    EXPECT_EQ(stage.Form->Status2->DeviceText(), "No Sound");
}

TEST(StatusBars, TheOpenDeviceIsShownAlsoWhenASetNamesAnotherOne) {
    Stage stage;
    stage.s.Driver = 1;
    EXPECT_EQ(stage.Form->Status2->DeviceText(), "Primary Sound Driver, 44100 Hz, 128 frames, 9.8 ms");
    stage.s.Driver = 2;
    EXPECT_EQ(stage.Form->Status2->DeviceText(), "Primary Sound Driver, 44100 Hz, 128 frames, 9.8 ms");
}

TEST(StatusBars, PeriodAndDelayAreThoseOfTheOpenDevice) {
    Stage stage;
    SoundTiming timing{2048, 96.88};
    StatusBar2 bar(stage.s, nullptr, {}, [&] { return timing; });
    EXPECT_EQ(bar.DeviceText(), "Primary Sound Driver, 44100 Hz, 2048 frames, 96.9 ms");
    timing = {};
    EXPECT_EQ(bar.DeviceText(), "Primary Sound Driver, 44100 Hz");
    StatusBar2 unmeasured(stage.s, nullptr, {}, {});
    EXPECT_EQ(unmeasured.DeviceText(), "Primary Sound Driver, 44100 Hz");
}

TEST(StatusBars, ANewDeviceIsNotShownAsGone) {
    Stage stage;
    stage.SoundGone = true;
    stage.Form->WatchSound();
    stage.SoundGone = false;
    stage.s.OpenDriver = 1;
    stage.Screen.ShowDrivers();
    EXPECT_EQ(stage.Form->Status2->DeviceText(), "Second Device, 44100 Hz, 128 frames, 9.8 ms");
}

TEST(StatusBars, TheQuestionMarkShowsItsHint) {
    Stage stage;
    stage.Move("StatusBar1", {1015, 12});
    EXPECT_EQ(stage.s.StatusText, "drg Question Mark to Control for Help");
}

TEST(FrmMain, ClosingItUnloadsOnce) {
    Stage stage;
    stage.Form->close();
    EXPECT_EQ(stage.Unloads, 1);
}

TEST(FrmMain, ShowsTheTitleOfTheSession) {
    Stage stage;
    stage.s.Title = "marvolin - friday";
    stage.Screen.ShowTitle();
    EXPECT_EQ(stage.Form->windowTitle(), "marvolin - friday");
}

}  // namespace
}  // namespace marvolin

/// The meter, the recording and the silence in the window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>

#include "audio/recording.h"
#include "fakes/temp_folder.h"
#include "painted_texts.h"
#include "stage.h"
#include "window/controls/level_meter.h"
#include "window/controls/record_button.h"
#include "window/descriptions/accessible.h"
#include "window/forms/status_bars.h"
#include "window/forms/toolbar.h"
#include "window/toolkit/theme.h"

namespace marvolin {
namespace {

using test::PaintWatch;
using test::Stage;
using testing::Contains;
using testing::Not;

/// A window whose recordings go to a folder of the test.
struct StageOfSound : Stage {
    StageOfSound() { Desk.Folder = Own.Path(); }
    LevelMeter& Meter() { return *Form->Bar->Meter; }
    QImage Face(const char* name) { return At(name)->grab().toImage(); }
    QColor MeterAt(int x, int y) { return Face("LevelMeter").pixelColor(x, y); }
    void Hear(int left, int right, bool cutOff = false) {
        Output.Levels = {{left, right}, cutOff};
        Meter().Look(0.04);
        Settle();
    }
    QString Spoken(const char* name) {
        InstallAccessibility();
        return QAccessible::queryAccessibleInterface(At(name))->text(QAccessible::Value);
    }
    test::TempFolder Own;
};

TEST(Meter, LooksWhileSomethingPlaysAndRestsWhenNothingMoves) {
    StageOfSound stage;
    stage.Fill(0);
    EXPECT_FALSE(stage.Meter().Looks());
    stage.Click("Play_0");
    EXPECT_TRUE(stage.Meter().Looks());
    stage.Hear(20000, 20000);
    stage.Click("Play_0");
    stage.Hear(0, 0);
    EXPECT_TRUE(stage.Meter().Looks()) << "what is held still falls";
    stage.Output.Levels = {};
    stage.Meter().Look(60);
    EXPECT_FALSE(stage.Meter().Looks());
    EXPECT_EQ(stage.Meter().Levels().Shown(0), LevelHold::kLowest);
}

TEST(Meter, WhatSoundsWithoutAPlayIsSeenTooAndThenCloselyFollowed) {
    StageOfSound stage;
    EXPECT_FALSE(stage.Meter().Looks());
    stage.Output.Levels = {{32768, 0}, false};
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.Meter().Levels().Shown(0) == 0; }, 5000));
    EXPECT_TRUE(stage.Meter().Looks());
}

TEST(Meter, ItsShapeIsSeenWhileNothingSounds) {
    StageOfSound stage;
    const int height = stage.Meter().height();
    for (const QPoint edge : {QPoint{0, 2}, QPoint{10, 0}, QPoint{0, 20}, QPoint{13, 20}, QPoint{5, height - 1}}) {
        EXPECT_EQ(stage.MeterAt(edge.x(), edge.y()), theme::kFrame) << edge.x() << ", " << edge.y();
    }
}

TEST(Meter, LooksByItself) {
    StageOfSound stage;
    stage.Fill(0);
    stage.Output.Levels = {{32768, 0}, false};
    stage.Click("Play_0");
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.Meter().Levels().Shown(0) == 0; }, 5000));
}

TEST(Meter, ShowsEachChannelInItsBar) {
    StageOfSound stage;
    stage.Hear(32768, 0);
    const int width = stage.Meter().width();
    const int height = stage.Meter().height();
    EXPECT_EQ(stage.MeterAt(3, height - 2), theme::kGreen);
    EXPECT_EQ(stage.MeterAt(3, 8), theme::kRed);
    EXPECT_EQ(stage.MeterAt(3, 12), theme::kAccent);
    EXPECT_EQ(stage.MeterAt(width - 3, height - 2), theme::kSunk);
    stage.Meter().Look(60);
    stage.Hear(0, 8192);  // 12 dB below full scale
    EXPECT_EQ(stage.MeterAt(width - 3, height - 2), theme::kGreen);
    EXPECT_EQ(stage.MeterAt(width - 3, 12), theme::kSunk);
}

TEST(Meter, IsRepaintedOnlyWhenWhatItShowsChanges) {
    StageOfSound stage;
    stage.Hear(20000, 20000);
    PaintWatch watch;
    for (int i = 0; i < 10; ++i) stage.Hear(20000, 20000);
    EXPECT_THAT(watch.Names(), Not(Contains("LevelMeter")));
    stage.Hear(32000, 20000);
    EXPECT_THAT(watch.Names(), Contains("LevelMeter"));
    EXPECT_EQ(watch.Names().size(), 1U);
}

TEST(Meter, TheLightIsOnForTwoSecondsAfterTheSumWasCutOff) {
    StageOfSound stage;
    stage.Hear(32768, 32768);
    EXPECT_EQ(stage.MeterAt(10, 2), theme::kSunk);
    stage.Hear(32768, 32768, true);
    EXPECT_EQ(stage.MeterAt(10, 2), theme::kRed);
    stage.Output.Levels = {};
    stage.Meter().Look(1.9);
    EXPECT_EQ(stage.MeterAt(10, 2), theme::kRed);
    stage.Meter().Look(0.2);
    EXPECT_EQ(stage.MeterAt(10, 2), theme::kSunk);
}

TEST(Meter, IsToldInWordsToThoseWhoAsk) {
    StageOfSound stage;
    EXPECT_EQ(stage.Spoken("LevelMeter"), "left nothing, right nothing");
    stage.Hear(32768, 16384, true);
    EXPECT_EQ(stage.Spoken("LevelMeter"), "left 0 dB, right minus 6 dB, cut off");
    QTest::keyClick(stage.Form.get(), Qt::Key_F12);
    EXPECT_TRUE(stage.Spoken("LevelMeter").startsWith("everything is silent"));
}

TEST(SilenceKey, SilencesAndBringsBack) {
    StageOfSound stage;
    const QImage meter = stage.Face("LevelMeter");
    const QImage stop = stage.Face("PlayStop");
    QTest::keyClick(stage.Form.get(), Qt::Key_F12);
    EXPECT_TRUE(stage.Output.Silent);
    EXPECT_NE(stage.Face("LevelMeter"), meter);
    EXPECT_NE(stage.Face("PlayStop"), stop);
    EXPECT_THAT(test::PaintedTexts(*stage.Form->Status2), Contains("silent"));
    QTest::keyClick(stage.Form.get(), Qt::Key_F12);
    EXPECT_FALSE(stage.Output.Silent);
    EXPECT_EQ(stage.Face("LevelMeter"), meter);
    EXPECT_EQ(stage.Face("PlayStop"), stop);
    EXPECT_THAT(test::PaintedTexts(*stage.Form->Status2), Not(Contains("silent")));
}

TEST(SilenceKey, HeldDownItActsOnceAndWithAModifierNotAtAll) {
    StageOfSound stage;
    QTest::keyPress(stage.Form.get(), Qt::Key_F12);
    QKeyEvent again(QEvent::KeyPress, Qt::Key_F12, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(stage.Form.get(), &again);
    EXPECT_TRUE(stage.Output.Silent);
    QTest::keyClick(stage.Form.get(), Qt::Key_F12, Qt::ControlModifier);
    EXPECT_TRUE(stage.Output.Silent);
}

TEST(SilenceKey, WithShiftItDoesTheSameAsTheClickWithShift) {
    StageOfSound stage;
    QTest::keyClick(stage.Form.get(), Qt::Key_F12, Qt::ShiftModifier);
    EXPECT_TRUE(stage.Output.Silent);
    QTest::keyClick(stage.Form->windowHandle(), Qt::Key_F12, Qt::ShiftModifier);
    EXPECT_FALSE(stage.Output.Silent);
}

/// Takes all keys, as the toolkit's filter does during a drag.
class KeyEater : public QObject {
public:
    KeyEater() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::KeyPress; }
};

TEST(SilenceKey, WorksWhileADragTakesAllOtherKeys) {
    StageOfSound stage;
    const KeyEater drag;
    QWindow* window = stage.Form->windowHandle();
    const QMimeData data;
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &enter);
    QCoreApplication::processEvents();
    QTest::keyClick(window, Qt::Key_F12);
    EXPECT_TRUE(stage.Output.Silent);
    QTest::keyClick(window, Qt::Key_F12);
    EXPECT_FALSE(stage.Output.Silent);
}

TEST(SilenceKey, WorksInEveryWindowAndInFieldsOfText) {
    StageOfSound stage;
    QWidget window;
    QLineEdit field(&window);
    window.show();
    QTest::keyClick(&window, Qt::Key_F12);
    EXPECT_TRUE(stage.Output.Silent);
    QTest::keyClick(&field, Qt::Key_F12);
    EXPECT_FALSE(stage.Output.Silent);
    QTest::keyClick(&field, Qt::Key_F8);
    EXPECT_TRUE(stage.Output.IsRecording());
    EXPECT_EQ(field.text(), "");
}

TEST(SilenceLight, ShiftAndAClickOnTheRedSquareSilencesWithoutStopping) {
    StageOfSound stage;
    stage.Fill(0);
    stage.Click("Play_0");
    const double height = stage.At("PlayStop")->height();
    const auto shiftClick = [&](double share) {
        const QPoint place = stage.InWindow("PlayStop", {20, height * share});
        QTest::mouseClick(stage.Form->windowHandle(), Qt::LeftButton, Qt::ShiftModifier, place);
    };
    shiftClick(0.8);
    EXPECT_TRUE(stage.Output.Silent);
    EXPECT_EQ(stage.s.Run[0].Playing, True);
    shiftClick(0.8);
    EXPECT_FALSE(stage.Output.Silent);
    stage.Click("Play_0");
    shiftClick(0.2);
    EXPECT_FALSE(stage.Output.Silent) << "the green part plays, as ever";
    EXPECT_EQ(stage.s.Run[0].Playing, True);
    stage.Click("PlayStop", {20, height * 0.8});
    EXPECT_EQ(stage.s.Run[0].Playing, False);
    EXPECT_FALSE(stage.Output.Silent);
}

TEST(SilenceLight, TheSecondPressOfADoubleClickHasItsOwnShift) {
    StageOfSound stage;
    stage.Fill(0);
    stage.Click("Play_0");
    const auto click = [&](QEvent::Type press, Qt::KeyboardModifiers modifiers) {
        QWidget& control = *stage.At("PlayStop");
        const QPointF place(20, control.height() * 0.8);
        for (const QEvent::Type type : {press, QEvent::MouseButtonRelease}) {
            const Qt::MouseButtons held = type == press ? Qt::LeftButton : Qt::NoButton;
            QMouseEvent event(type, place, control.mapToGlobal(place), Qt::LeftButton, held, modifiers);
            QCoreApplication::sendEvent(&control, &event);
        }
    };
    click(QEvent::MouseButtonPress, Qt::ShiftModifier);
    click(QEvent::MouseButtonDblClick, Qt::NoModifier);
    EXPECT_TRUE(stage.Output.Silent) << "only the first click had Shift";
    EXPECT_EQ(stage.s.Run[0].Playing, False);
    click(QEvent::MouseButtonPress, Qt::NoModifier);
    click(QEvent::MouseButtonDblClick, Qt::ShiftModifier);
    EXPECT_FALSE(stage.Output.Silent);
}

TEST(SilenceLight, ShiftAndSpaceDoTheSame) {
    StageOfSound stage;
    stage.Fill(0);
    QTest::keyClick(stage.At("PlayStop"), Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_TRUE(stage.Output.Silent);
    EXPECT_EQ(stage.s.Run[0].Playing, False);
    QTest::keyClick(stage.At("PlayStop"), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_FALSE(stage.Output.Silent);
    QTest::keyClick(stage.At("PlayStop"), Qt::Key_Space);
    EXPECT_EQ(stage.s.Run[0].Playing, True);
}

TEST(SilenceLight, SaysHowTheSoundComesBack) {
    StageOfSound stage;
    QTest::keyClick(stage.Form.get(), Qt::Key_F12);
    EXPECT_EQ(stage.s.StatusText, "Silence: F12 brings the sound back");
    stage.Move("PlayStop", {20, 38});
    EXPECT_EQ(stage.s.StatusText, "clk Stop All Sounds; Shift+clk or key F12: Sound back");
}

TEST(RecordControl, AClickRecordsAndAnotherEndsIt) {
    StageOfSound stage;
    const QImage before = stage.Face("Record");
    stage.Click("Record");
    ASSERT_EQ(stage.Output.Paths.size(), 1U);
    EXPECT_TRUE(QString::fromStdString(stage.Output.Paths[0]).startsWith(QString::fromStdString(stage.Own.Path())));
    EXPECT_NE(stage.Face("Record"), before);
    EXPECT_TRUE(stage.s.StatusText.starts_with("Recording into \"marvolin 20"));
    stage.Click("Record");
    EXPECT_FALSE(stage.Output.IsRecording());
    stage.Move("LevelMeter", {3, 3});
    EXPECT_EQ(stage.Face("Record"), before);
}

TEST(RecordControl, TheSecondClickOfADoubleClickAndTheRepeatsOfAKeyDoNothing) {
    StageOfSound stage;
    stage.DoubleClick("Record");
    EXPECT_TRUE(stage.Output.IsRecording());
    EXPECT_EQ(stage.Output.Paths.size(), 1U);
    stage.Move("LevelMeter", {3, 3});
    QTest::keyPress(stage.Form.get(), Qt::Key_F8);
    EXPECT_FALSE(stage.Output.IsRecording());
    QKeyEvent again(QEvent::KeyPress, Qt::Key_F8, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(stage.Form.get(), &again);
    EXPECT_FALSE(stage.Output.IsRecording());
}

TEST(RecordControl, SaysWhereTheFileIs) {
    StageOfSound stage;
    const QString folder = QString::fromStdString(stage.Own.Path()) + "/Recordings";
    stage.Click("Record");
    const QString path = QString::fromStdString(stage.Output.Path);
    EXPECT_TRUE(path.startsWith(folder));
    EXPECT_EQ(stage.At("Record")->toolTip(), "Recording into " + path);
    QTest::keyClick(stage.Form.get(), Qt::Key_F8);
    EXPECT_EQ(stage.s.StatusText, "Recorded 0:00: \"" + path.toStdString() + "\"");
    EXPECT_EQ(stage.At("Record")->toolTip(), "Record what is heard into " + folder);
}

TEST(RecordControl, TimeAndSizeAreShownAndFollowTheRecording) {
    StageOfSound stage;
    QTest::keyClick(stage.Form.get(), Qt::Key_F8);
    EXPECT_THAT(test::PaintedTexts(*stage.Form->Status2), Contains("0:00  0.0 MB"));
    stage.Output.State.Frames = 44100 * 75;
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.s.RecordingText == "1:15  13.2 MB"; }, 5000));
    EXPECT_THAT(test::PaintedTexts(*stage.Form->Status2), Contains("1:15  13.2 MB"));
    EXPECT_EQ(stage.Spoken("Record"), QString::fromStdString("1:15  13.2 MB; into " + stage.Output.Path));
    QTest::keyClick(stage.Form.get(), Qt::Key_F8);
    EXPECT_THAT(test::PaintedTexts(*stage.Form->Status2), Not(Contains("1:15  13.2 MB")));
}

TEST(RecordControl, ADiskThatIsFullEndsItWithOneReport) {
    StageOfSound stage;
    stage.Click("Record");
    stage.Output.State.Failure = "Disk full";
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.s.RecordingFile.empty(); }, 5000));
    WatchRecording(stage.s);
    EXPECT_EQ(stage.Desk.Boxes.size(), 1U);
}

TEST(RecordControl, ALongTimeHasItsRoomBesideTheSessionAndTheLoad) {
    StageOfSound stage;
    stage.s.CurrentFile = "a set with a name that is much longer than its panel.mvn";
    stage.s.RecordingText = "600:00  6350.4 MB";
    EXPECT_THAT(test::PaintedTexts(*stage.Form->Status2), Contains("600:00  6350.4 MB")) << "nothing is cut";
    stage.s.RecordingText = "600:00  gap 999 ms";
    EXPECT_THAT(test::PaintedTexts(*stage.Form->Status2), Contains("600:00  gap 999 ms")) << "nothing is cut";
}

}  // namespace
}  // namespace marvolin

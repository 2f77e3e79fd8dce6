#include <gtest/gtest.h>

#include <QTest>

#include "audio/play_modes.h"
#include "stage.h"

namespace marvolin {
namespace {

using test::PaintWatch;
using test::Stage;

TEST(PlayButton, ALeftClickPlaysAndTheNextStops) {
    Stage stage;
    stage.Fill(1);
    stage.Click("Play_1");
    EXPECT_EQ(stage.s.Run[1].Playing, True);
    EXPECT_EQ(stage.Sound.Count("Play b0 1"), 1);
    stage.Click("Play_1");
    EXPECT_EQ(stage.s.Run[1].Playing, False);
    EXPECT_EQ(stage.Sound.Count("Stop b0"), 1);
}

TEST(PlayButton, ARightPressPausesAndItsReleaseResumes) {
    Stage stage;
    stage.Fill(0);
    stage.Click("Play_0");
    stage.Press("Play_0", {10, 10}, Qt::RightButton);
    EXPECT_EQ(stage.s.Run[0].Paused, True);
    EXPECT_EQ(stage.s.Run[0].Playing, True);
    stage.Release("Play_0", {10, 10}, Qt::RightButton);
    EXPECT_EQ(stage.s.Run[0].Paused, False);
    EXPECT_EQ(stage.Sound.Count("Play b0 1"), 2);
}

TEST(PlayButton, TwoQuickRightClicksPauseTwice) {
    Stage stage;
    stage.Fill(0);
    stage.Click("Play_0");
    const QPoint place = stage.InWindow("Play_0", {10, 10});
    QTest::mouseDClick(stage.Form->windowHandle(), Qt::RightButton, {}, place);
    EXPECT_EQ(stage.Sound.Count("Stop b0"), 2);
    EXPECT_EQ(stage.s.Run[0].Paused, False);
}

TEST(PlayButton, ARowWithoutASampleIgnoresClicks) {
    Stage stage;
    stage.Click("Play_2");
    stage.Click("Play_2", Qt::RightButton);
    EXPECT_EQ(stage.s.Run[2].Playing, False);
    EXPECT_TRUE(stage.Sound.Log.empty());
    EXPECT_TRUE(stage.Desk.Boxes.empty());
}

TEST(PlayButton, TheButtonOfTheSelectionPlaysTheSelectedRows) {
    Stage stage;
    stage.Fill(0);
    stage.Fill(3);
    stage.Fill(2);
    stage.s.Set[0].Selected = True;
    stage.s.Set[3].Selected = True;
    stage.Click("Play_4");
    EXPECT_EQ(stage.s.Run[0].Playing, True);
    EXPECT_EQ(stage.s.Run[2].Playing, False);
    EXPECT_EQ(stage.s.Run[3].Playing, True);
}

TEST(PlayButton, HasADifferentPictureForStoppedPlayingAndPaused) {
    Stage stage;
    stage.Fill(0);
    const QImage stopped = stage.At("Play_0")->grab().toImage();
    stage.Click("Play_0");
    const QImage playing = stage.At("Play_0")->grab().toImage();
    stage.Press("Play_0", {10, 10}, Qt::RightButton);
    const QImage paused = stage.At("Play_0")->grab().toImage();
    stage.Release("Play_0", {10, 10}, Qt::RightButton);
    EXPECT_NE(stopped, playing);
    EXPECT_NE(playing, paused);
    EXPECT_NE(stopped, paused);
}

TEST(PlayButton, ShowsItsHint) {
    Stage stage;
    stage.Move("Play_0", {5, 5});
    EXPECT_EQ(stage.s.StatusText, "clk Toggle Play; rtclk Pause");
}

TEST(PlayStop, ItsTopPlaysAllAndItsBottomStopsAll) {
    Stage stage;
    for (Row row = 0; row < kLoopTracks; ++row) stage.Fill(row);
    const double height = stage.At("PlayStop")->height();
    stage.Click("PlayStop", {20, height * 0.2});
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(stage.s.Run[row].Playing, True);
    stage.Click("PlayStop", {20, height * 0.5});
    EXPECT_EQ(stage.s.Run[0].Playing, True);
    stage.Click("PlayStop", {20, height * 0.8}, Qt::RightButton);
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(stage.s.Run[row].Playing, False);
}

TEST(PlayStop, CountsThePlaceOfTheRelease) {
    Stage stage;
    for (Row row = 0; row < kLoopTracks; ++row) stage.Fill(row);
    const double height = stage.At("PlayStop")->height();
    stage.Press("PlayStop", {20, height * 0.8});
    stage.Release("PlayStop", {20, height * 0.2});
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(stage.s.Run[row].Playing, True);
    stage.Press("PlayStop", {20, height * 0.2});
    stage.Release("PlayStop", {20, height * 0.8});
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(stage.s.Run[row].Playing, False);
    stage.Press("PlayStop", {20, height * 0.2});
    stage.Release("PlayStop", {20, height + 30});
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(stage.s.Run[row].Playing, False);
}

TEST(PlayStop, EachZoneShowsItsHint) {
    Stage stage;
    stage.Move("PlayStop", {20, 4});
    EXPECT_EQ(stage.s.StatusText, "clk Play All Sounds");
    stage.Move("PlayStop", {20, 38});
    EXPECT_EQ(stage.s.StatusText, "clk Stop All Sounds");
}

TEST(LoopIt, ADragUpwardsTakesTheNextModeForEachHundredTwips) {
    Stage stage;
    stage.Drag("LoopIt_0", {0, -7});
    EXPECT_EQ(stage.s.Set[0].PlayMode, kTrack);
    stage.Drag("LoopIt_0", {0, -6});
    EXPECT_EQ(stage.s.Set[0].PlayMode, kTrack);
    stage.Drag("LoopIt_0", {0, 14});
    EXPECT_EQ(stage.s.Set[0].PlayMode, kOneShot);
}

TEST(LoopIt, ItsHintFollowsAModeThatIsChangedElsewhereWhileThePointerIsOnIt) {
    Stage stage;
    stage.Move("LoopIt_1", stage.Middle("LoopIt_1"));
    stage.Settle();
    const std::string before = stage.s.StatusText;
    ASSERT_NE(before.find("Loop (sample loops continuously)"), std::string::npos) << before;
    LoopSetPlayMode(stage.s, 1, kOneShot, true);
    EXPECT_NE(stage.s.StatusText.find("One shot"), std::string::npos) << stage.s.StatusText;
    // A row under whose picture the pointer is not says nothing.
    LoopSetPlayMode(stage.s, 2, kTrack, true);
    EXPECT_NE(stage.s.StatusText.find("One shot"), std::string::npos) << stage.s.StatusText;
}

TEST(LoopIt, ShowsTheChosenModeWhileItIsDragged) {
    Stage stage;
    const QImage loop = stage.At("LoopIt_0")->grab().toImage();
    const QPointF start = stage.Middle("LoopIt_0");
    stage.Press("LoopIt_0", start);
    const QImage pressed = stage.At("LoopIt_0")->grab().toImage();
    stage.Move("LoopIt_0", start - QPointF(0, 14));
    const QImage drum = stage.At("LoopIt_0")->grab().toImage();
    EXPECT_NE(pressed, drum);
    EXPECT_EQ(stage.s.Set[0].PlayMode, kLoop);
    stage.Release("LoopIt_0", start - QPointF(0, 14));
    EXPECT_EQ(stage.s.Set[0].PlayMode, kDrum);
}

TEST(LoopIt, AClickOnAMemberOfABandChangesNothing) {
    Stage stage;
    for (const Row row : std::initializer_list<Row>{0, 1}) {
        stage.s.Run[row].InBand = True;
        stage.s.Run[row].Band = 1;
    }
    stage.s.BandTable[1].First = 0;
    stage.s.BandTable[1].Last = 1;
    stage.s.Set[0].PlayMode = kDrum;
    stage.Click("LoopIt_0");
    EXPECT_EQ(stage.s.Set[0].PlayMode, kDrum);
    EXPECT_EQ(stage.s.Set[1].PlayMode, kLoop);
}

TEST(LoopIt, TheLargeOneOfThePatternTabIsPaintedAgainWhenTheModeOfTheCurrentLoopTrackChanges) {
    Stage stage;
    stage.s.ActiveTab = kPatternTab;
    stage.Screen.ShowTab();
    stage.Settle();
    PaintWatch watch;
    LoopSetPlayMode(stage.s, 0, kDrum, false);
    stage.Settle();
    EXPECT_EQ(watch.Painted.count("LoopIt_5"), 1U);
    watch.Painted.clear();
    LoopSetPlayMode(stage.s, 1, kDrum, false);
    stage.Settle();
    EXPECT_EQ(watch.Painted.count("LoopIt_5"), 0U);
}

TEST(LoopIt, HasAPictureForEachMode) {
    Stage stage;
    std::vector<QImage> pictures;
    for (std::int16_t mode = kOneShot; mode <= kDrum; ++mode) {
        stage.s.Set[2].PlayMode = mode;
        pictures.push_back(stage.At("LoopIt_2")->grab().toImage());
    }
    for (std::size_t a = 0; a < pictures.size(); ++a) {
        for (std::size_t b = a + 1; b < pictures.size(); ++b) EXPECT_NE(pictures[a], pictures[b]) << a << " " << b;
    }
}

TEST(LoopIt, ADoubleClickSetsLoop) {
    Stage stage;
    stage.s.Set[1].PlayMode = kDrum;
    stage.DoubleClick("LoopIt_1");
    EXPECT_EQ(stage.s.Set[1].PlayMode, kLoop);
}

TEST(LoopIt, ARightClickJumpsToTheBeginning) {
    Stage stage;
    stage.Fill(1);
    stage.Click("LoopIt_1", Qt::RightButton);
    EXPECT_EQ(stage.Sound.Count("SetCurrentPosition b0 0"), 1);
}

TEST(LoopIt, TheWheelChangesTheModeByOne) {
    Stage stage;
    stage.Wheel("LoopIt_0", 1);
    EXPECT_EQ(stage.s.Set[0].PlayMode, kTrack);
    stage.Wheel("LoopIt_0", -3);
    EXPECT_EQ(stage.s.Set[0].PlayMode, kOneShot);
}

TEST(Letr, ADoubleClickTogglesThinnable) {
    Stage stage;
    const QImage before = stage.At("Letr_0")->grab().toImage();
    stage.DoubleClick("Letr_0");
    EXPECT_EQ(stage.s.Set[0].Thinnable, False);
    EXPECT_NE(before, stage.At("Letr_0")->grab().toImage());
    stage.DoubleClick("Letr_0");
    EXPECT_EQ(stage.s.Set[0].Thinnable, True);
}

TEST(SndDisp, DrawsTheWaveAndTheNeedles) {
    Stage stage;
    test::FakeSample loud;
    for (std::size_t i = 1; i < loud.Bytes.size(); i += 2) loud.Bytes[i] = i % 4 == 1 ? 0x60 : 0xA0;
    stage.Sound.Samples["/samples/one.WAV"] = loud;
    const QImage empty = stage.At("SndDisp_1")->grab().toImage();
    stage.Fill(1);
    const QImage filled = stage.At("SndDisp_1")->grab().toImage();
    EXPECT_EQ(filled.pixelColor(200, 15), QColor(41, 253, 255));
    stage.s.SndDisp[1].Level = 250;
    const QImage moved = stage.At("SndDisp_1")->grab().toImage();
    EXPECT_NE(empty, filled);
    EXPECT_NE(filled, moved);
}

TEST(SndDisp, ALongSampleIsDrawnInSeveralPaintings) {
    Stage stage;
    test::FakeSample loud;
    loud.Bytes.resize(40'000'000);
    for (std::size_t i = 1; i < loud.Bytes.size(); i += 2) loud.Bytes[i] = i % 4 == 1 ? 0x60 : 0xA0;
    stage.Sound.Samples["/samples/one.WAV"] = loud;
    stage.Fill(1);
    stage.Settle();
    QWidget* display = stage.At("SndDisp_1");
    const QColor wave(41, 253, 255);
    stage.Screen.ShowWaveform(1);
    const QImage first = display->grab().toImage();
    EXPECT_EQ(first.pixelColor(40, 15), wave);
    EXPECT_NE(first.pixelColor(display->width() - 20, 15), wave);
    // The display itself asks for the repaints that are still to come.
    test::PaintWatch watch;
    for (int share = 2; share <= 5; ++share) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return watch.Painted.contains("SndDisp_1"); }, 2000)) << share;
        watch.Painted.clear();
    }
    EXPECT_EQ(display->grab().toImage().pixelColor(display->width() - 20, 15), wave);
}

}  // namespace
}  // namespace marvolin

// Pictures of pad, map and selection, and their repainting when a value changes elsewhere.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QStandardItemModel>
#include <QTreeView>
#include <algorithm>
#include <functional>

#include "hand.h"
#include "parameters/position.h"
#include "performance/map/listener.h"
#include "performance/map/scatter.h"
#include "performance/selection/bands.h"
#include "performance/selection/selection.h"
#include "settings_stage.h"
#include "window/toolkit/theme.h"

namespace marvolin {
namespace {

TEST(Theme, EveryWindowHasTheIconOfTheProgram) {
    const QImage icon = QApplication::windowIcon().pixmap(64).toImage();
    ASSERT_EQ(icon.size(), QSize(64, 64));
    EXPECT_EQ(icon.pixelColor(32, 32), QColor(0xe6, 0xe8, 0xeb));  // the ball
    EXPECT_EQ(icon.pixelColor(18, 18), QColor(0xff, 0x00, 0x00));  // the arc of A
    const QWidget window;
    EXPECT_FALSE(window.windowIcon().isNull());
}

TEST(Theme, TheArrowOfAChosenRowOfATreeIsSeenOnItsGround) {
    QStandardItemModel rows;
    rows.appendRow(new QStandardItem);  // the model owns its rows
    rows.item(0)->appendRow(new QStandardItem);
    QTreeView tree;
    tree.setModel(&rows);
    tree.setHeaderHidden(true);
    tree.resize(200, 100);
    const auto contrast = [&](const QColor& ground) {
        const QRect row = tree.visualRect(rows.index(0, 0));
        const QImage picture = tree.viewport()->grab(QRect(0, row.top(), row.left(), row.height())).toImage();
        double most = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                most = std::max(most, theme::Contrast(picture.pixelColor(x, y), ground));
            }
        }
        return most;
    };
    tree.clearSelection();
    EXPECT_GE(contrast(theme::kSunk), 3);
    tree.setCurrentIndex(rows.index(0, 0));
    EXPECT_GE(contrast(theme::kAccent), 3);
    tree.expand(rows.index(0, 0));
    EXPECT_GE(contrast(theme::kAccent), 3);
}

using test::Settings;

/// The part of the window that shows a control.
QImage Picture(Settings& stage, const char* name) {
    stage.Settle();
    return stage.Form->grab({stage.InWindow(name, {}), stage.At(name)->size()}).toImage();
}

// Where a ball was, a part of the field is painted again.
TEST(PadPictures, APartOfAFieldIsPaintedAsInTheWhole) {
    Settings stage;
    stage.OpenMap();
    for (const char* name : {"Pad", "Map"}) {
        SCOPED_TRACE(name);
        QWidget& field = *stage.At(name);
        for (auto* ball : field.findChildren<QWidget*>()) ball->hide();
        const QImage whole = field.grab().toImage();
        constexpr int kPart = 24;
        for (int y = 0; y + kPart <= field.height(); y += kPart) {
            for (int x = 0; x + kPart <= field.width(); x += kPart) {
                const QRect part(x, y, kPart, kPart);
                EXPECT_EQ(field.grab(part).toImage(), whole.copy(part)) << x << ", " << y;
            }
        }
    }
}

TEST(PadPictures, EachTypeHasItsColourItsBallAndItsTwist) {
    Settings stage;
    std::vector<QImage> balls;
    for (std::int16_t type = 0; type < 4; ++type) {
        SCOPED_TRACE(type);
        PadType_Click(stage.s, type);
        const QImage pad = Picture(stage, "Pad");
        const Colour back = stage.s.PadTable[type].BackColor;
        // A place without lines, wires and ball.
        EXPECT_EQ(pad.pixelColor(100, 30), QColor(back.Red, back.Green, back.Blue));
        balls.push_back(pad.copy(146, 146, 8, 8));
        for (std::size_t other = 0; other + 1 < balls.size(); ++other) EXPECT_NE(balls[other], balls.back()) << other;
    }
    const QImage pan = Picture(stage, "TwistIndicator");
    PadType_Click(stage.s, 2);
    const QImage vol = Picture(stage, "TwistIndicator");
    PadType_Click(stage.s, 0);
    const QImage pitch = Picture(stage, "TwistIndicator");
    EXPECT_NE(pan, vol);
    EXPECT_NE(vol, pitch);
    stage.s.PadTable[0].TwistIcon = kNoTwistIcon;
    PadTwistShow(stage.s, 0);
    const QImage hidden = Picture(stage, "TwistIndicator");
    EXPECT_NE(pitch, hidden);
    EXPECT_NE(pitch.pixel(pitch.width() / 2 - 7, 14), hidden.pixel(hidden.width() / 2 - 7, 14));
}

TEST(PadPictures, TheFieldShowsTheCurve) {
    Settings stage;
    std::vector<QImage> fields;
    for (const PadCurve& curve : kPadCurves) {
        PadFunction_Click(stage.s, curve.Function);
        fields.push_back(Picture(stage, "Pad"));
    }
    EXPECT_NE(fields[0], fields[1]);
    EXPECT_NE(fields[1], fields[2]);
    EXPECT_NE(fields[0], fields[2]);
}

TEST(MapPictures, TheListenerTurnsInStepsOfFiveDegrees) {
    Settings stage;
    stage.OpenMap();
    PosMove(stage.s, 900, 900, kListenerBall, {.Absolute = true, .Apply = false});
    RotateListener(stage.s, 0, Apply::No);
    const QImage ahead = Picture(stage, "PosBall_4");
    RotateListener(stage.s, 4, Apply::No);
    EXPECT_EQ(Picture(stage, "PosBall_4"), ahead);
    RotateListener(stage.s, 5, Apply::No);
    EXPECT_NE(Picture(stage, "PosBall_4"), ahead);
    RotateListener(stage.s, 357, Apply::No);
    EXPECT_EQ(Picture(stage, "PosBall_4"), ahead);
}

TEST(MapPictures, TheHighlightedBallIsInFrontUntilTheNextIsHighlighted) {
    Settings stage;
    stage.OpenMap();
    for (int ball = 0; ball < 2; ++ball)
        PosMove(stage.s, 900.0 - 600 * ball, 900, ball, {.Absolute = true, .Apply = false});
    const QImage plain = Picture(stage, "PosBall_0");
    const auto front = [&] { return stage.At("Map")->children().last()->objectName(); };
    PosSetHighlight(stage.s, 0);
    EXPECT_NE(Picture(stage, "PosBall_0"), plain);
    EXPECT_EQ(front(), "PosBall_0");
    PosSetHighlight(stage.s, 1);
    EXPECT_EQ(Picture(stage, "PosBall_0"), plain);
    EXPECT_EQ(front(), "PosBall_1");
    stage.Click("PosPop");
    EXPECT_EQ(front(), "PosBall_4");
}

TEST(MapPictures, TheListShowsThatAWanderHasEnded) {
    Settings stage;
    stage.OpenMap();
    auto& macros = stage.Find<QComboBox>("PosMacros");
    test::Choose(macros, kMacroWander);
    EXPECT_EQ(stage.s.PosMacro, kMacroWander);
    stage.s.PosMacro = kMacroOff;
    stage.Screen.ShowMapControls();
    EXPECT_EQ(macros.currentText(), "Off");
}

/// Whether a change repaints this control with another picture.
bool Repainted(Settings& stage, const char* name, const std::function<void()>& change) {
    const QImage before = Picture(stage, name);
    test::PaintWatch watch;
    change();
    stage.Settle();
    return watch.Painted.contains(name) && Picture(stage, name) != before;
}

TEST(SelectionPictures, EachIsRepaintedWhenItsValueChangesElsewhere) {
    Settings stage;
    for (int button = 0; button <= kBands; ++button) {
        const std::string name = "SelectorRadio_" + std::to_string(button);
        const auto row = static_cast<Row>(button == 0 ? kBands : button - 1);
        EXPECT_TRUE(Repainted(stage, name.c_str(), [&] { SetSelector(stage.s, row, button != 0); })) << button;
    }
    EXPECT_TRUE(Repainted(stage, "Bands", [&] { SetBand(stage.s, 3, {1, 2}); }));
    for (const char* name : {"Selected_0", "Selected_3"}) {
        EXPECT_TRUE(Repainted(stage, name, [&] { SelectGroup(stage.s, "Toggle"); })) << name;
    }
    EXPECT_TRUE(Repainted(stage, "Thumb_2", [&] { SetCurrentLoop(stage.s, 2, OpenPattern::No); }));
    EXPECT_TRUE(Repainted(stage, "Thumb_2", [&] { SetCurrentLoop(stage.s, 1, OpenPattern::No); }));
}

TEST(SelectionPictures, TheSelectionRowCountsItsLoopTracksAgainWhenABandIsDrawn) {
    Settings stage;
    SetSelector(stage.s, 3, true);
    EXPECT_TRUE(Repainted(stage, "DropDown_4", [&] { SetBand(stage.s, 3, {1, 2}); }));
    EXPECT_TRUE(Repainted(stage, "DropDown_4", [&] { SetBand(stage.s, 3, {}); }));
}

TEST(SelectionPictures, OnlyTheCurrentThumbWearsTheFrameInTheColourOfItsRow) {
    Settings stage;
    for (Row current = 1; current <= 2; ++current) {
        SetCurrentLoop(stage.s, current, OpenPattern::No);
        for (Row row = 0; row < kLoopTracks; ++row) {
            const QImage thumb = Picture(stage, ("Thumb_" + std::to_string(row)).c_str());
            EXPECT_EQ(thumb.pixelColor(1, thumb.height() / 2) == theme::RowColour(row), row == current)
                << current << ", " << row;
        }
    }
}

TEST(SelectionPictures, AFlagIsFilledInTheColourOfItsRowWhileItIsSelected) {
    Settings stage;
    for (const bool on : {true, false}) {
        SelectGroup(stage.s, on ? "All" : "None");
        for (Row row = 0; row < kLoopTracks; ++row) {
            const QImage flag = Picture(stage, ("Selected_" + std::to_string(row)).c_str());
            const QColor ground = flag.pixelColor(flag.width() / 2 + 4, flag.height() / 2 + 5);
            EXPECT_EQ(ground, on ? theme::RowColour(row) : theme::kSunk) << row;
        }
    }
}

TEST(SelectionPictures, ASelectorsButtonIsLitWhileItIsInControl) {
    Settings stage;
    for (int button = 0; button <= kBands; ++button) {
        const std::string name = "SelectorRadio_" + std::to_string(button);
        const auto row = static_cast<Row>(button == 0 ? kBands : button - 1);
        for (const bool on : {false, true}) {
            SetSelector(stage.s, row, on);
            const QImage face = Picture(stage, name.c_str());
            EXPECT_EQ(face.pixelColor(4, face.height() / 2), on ? theme::kAccent : theme::kRaised) << button;
        }
    }
}

TEST(SurfacePictures, EachIsRepaintedWhenItsValueChangesElsewhere) {
    Settings stage;
    EXPECT_TRUE(Repainted(stage, "Pad", [&] { PadType_Click(stage.s, 3); }));
    EXPECT_TRUE(Repainted(stage, "PadBall", [&] { PadType_Click(stage.s, 0); }));
    EXPECT_TRUE(Repainted(stage, "TwistIndicator", [&] { PadType_Click(stage.s, 2); }));
    EXPECT_TRUE(
        Repainted(stage, "ChannelLevels", [&] { PadMove(stage.s, 300, 200, 500, {.Absolute = true, .Apply = true}); }));
    stage.OpenMap();
    for (int ball = 0; ball < 3; ++ball)
        PosMove(stage.s, 900.0 - 600 * ball, 900, ball, {.Absolute = true, .Apply = false});
    PosMove(stage.s, -900, -900, kListenerBall, {.Absolute = true, .Apply = false});
    EXPECT_TRUE(Repainted(stage, "PosBall_4", [&] { RotateListener(stage.s, 90, Apply::No); }));
    EXPECT_TRUE(Repainted(stage, "PosBall_2", [&] { PosSetHighlight(stage.s, 2); }));
    EXPECT_TRUE(Repainted(stage, "PosBall_2", [&] { PosSetHighlight(stage.s, 1); }));
    EXPECT_TRUE(Repainted(stage, "MapSize", [&] { SetMapSize(stage.s, 6); }));
    EXPECT_TRUE(Repainted(stage, "RollOff", [&] { SetRollOff(stage.s, 3); }));
}

}  // namespace
}  // namespace marvolin

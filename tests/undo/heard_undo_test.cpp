#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "audio/reverse.h"
#include "core/undo/undo_step.h"
#include "performance/heard_rig.h"
#include "performance/map/use_3d.h"
#include "persistence/undo/undo_commands.h"

namespace marvolin::test {
namespace {

struct HeardUndo : testing::Test, HeardInstrument {
    HeardUndo() { StartUndo(s); }
    void RemoveFiles() {
        for (Row row = 0; row < kLoopTracks; ++row) {
            std::filesystem::remove(Folder.Path("loop" + std::to_string(row) + ".wav"));
        }
    }
};

TEST_F(HeardUndo, AClearedRowSoundsAgainWithoutItsFileAndTheOthersHaveNoGap) {
    Sound(0, 1000);
    Sound(1, 2000);
    ASSERT_NEAR(Heard().Left, 3000, 3);
    RemoveFiles();
    LoopClearRows(s, 1);
    EXPECT_NEAR(Heard().Left, 1000, 3);
    Undo_Click(s);
    const std::vector<std::int16_t> out = Render(4410);
    EXPECT_GE(*std::min_element(out.begin(), out.end()), 995) << "A sounds in every frame";
    EXPECT_NEAR(Heard().Left, 3000, 3);
    Redo_Click(s);
    EXPECT_NEAR(Heard().Left, 1000, 3);
}

TEST_F(HeardUndo, ARowThatComesBackGoesOnWhereItWas) {
    std::vector<std::int32_t> ramp(4410);
    std::iota(ramp.begin(), ramp.end(), 0);
    Sound(0, ramp, 1);
    Render(1500);
    const std::int32_t place = s.Run[0].Buffer->GetCurrentPosition();
    ASSERT_GT(place, 2000);
    LoopClearRows(s, 0);
    Render(3000);
    Undo_Click(s);
    EXPECT_EQ(s.Run[0].Buffer->GetCurrentPosition(), place);
    const std::vector<std::int16_t> out = Render(600);
    // The ramp tells where in the sample each frame lies.
    EXPECT_NEAR(out[2 * 599], place / 2 + 599, 300);
}

TEST_F(HeardUndo, AReversalIsTakenBackFrameByFrame) {
    std::vector<std::int32_t> ramp(4410);
    std::iota(ramp.begin(), ramp.end(), 0);
    Sound(0, ramp, 1);
    std::vector<std::uint8_t> forwards(8820);
    s.Run[0].Buffer->ReadBuffer(0, forwards);
    {
        const UndoStep step(s, "Reverse of A");
        LoopReverse(s, 0);
    }
    std::vector<std::uint8_t> bytes(8820);
    s.Run[0].Buffer->ReadBuffer(0, bytes);
    ASSERT_NE(bytes, forwards);
    LoopClearRows(s, 0);
    Undo_Click(s);
    s.Run[0].Buffer->ReadBuffer(0, bytes);
    EXPECT_NE(bytes, forwards);
    Undo_Click(s);
    s.Run[0].Buffer->ReadBuffer(0, bytes);
    EXPECT_EQ(bytes, forwards);
}

TEST_F(HeardUndo, WhatWasClearedWithout3dComesBackFromMemoryWith3dAndOnAnotherDevice) {
    Sound(0, 1000);
    Sound(1, 2000);
    LoopClearRows(s, 0);
    std::filesystem::remove(Folder.Path("loop0.wav"));
    Enable3d_Click(s, true);
    ASSERT_TRUE(s.Use3D);
    const double alone = Heard().Left;
    Undo_Click(s);
    EXPECT_EQ(s.Run[0].Loaded, True);
    EXPECT_GT(Heard().Left, alone + 100);
    EXPECT_TRUE(Desk.Boxes.empty());
}

}  // namespace
}  // namespace marvolin::test

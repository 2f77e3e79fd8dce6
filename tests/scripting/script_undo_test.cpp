#include <gtest/gtest.h>

#include "audio/loop_clearing.h"
#include "persistence/undo/undo_commands.h"
#include "scripting/lua_rig.h"
#include "scripting/script_room.h"

namespace marvolin::test {
namespace {

struct ScriptUndo : testing::Test {
    LuaRig Rig;
    Session& s = Rig.s;
    ScriptUndo() { StartUndo(s); }
};

TEST_F(ScriptUndo, WhatAScriptDoesByItselfLeavesTheStepsOfTheHandInReach) {
    LoopClearRows(s, 1);
    LoopClearRows(s, 0);
    Undo_Click(s);
    ASSERT_TRUE(
        Rig.Run("function draw(step)\n"
                "  marvolin.set_pattern('C', 'volume', step, step)\n"
                "  if step < 20 then marvolin.after(100, function() draw(step + 1) end) end\n"
                "end\n"
                "draw(1)"))
        << Rig.Box();
    Rig.Pass(1000);
    ASSERT_EQ(s.Set[2].Pattern[kVolPattern][4], 5) << Rig.Box();
    EXPECT_EQ(UndoText(s), "Clear of B");
    EXPECT_EQ(RedoText(s), "Clear of A");
    Rig.Pass(500);
    Redo_Click(s);
    EXPECT_EQ(s.Run[0].Loaded, False);
    Rig.Pass(500);
    Undo_Click(s);
    Undo_Click(s);
    EXPECT_EQ(s.Run[1].Loaded, True);
    EXPECT_EQ(s.Set[2].Pattern[kVolPattern][4], 5) << "what the script has drawn stays";
}

TEST_F(ScriptUndo, ARunByTheHandIsOneStep) {
    ScriptRoom room;
    room.Attach(s, Rig.Host);
    ASSERT_TRUE(room.Run("marvolin.clear('A') marvolin.clear('B')", "song.mvs")) << Rig.Box();
    ASSERT_EQ(s.Run[0].Loaded, False);
    EXPECT_EQ(UndoText(s), "Run of song.mvs");
    Undo_Click(s);
    EXPECT_EQ(s.Run[0].Loaded, True);
    EXPECT_EQ(s.Run[1].Loaded, True);
    EXPECT_EQ(UndoText(s), "");
}

}  // namespace
}  // namespace marvolin::test

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor_stage.h"
#include "scripting/api/api_page.h"
#include "scripting/api/event_table.h"
#include "scripting/script_words.h"

namespace marvolin {
namespace {

using test::ScriptRig;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kClock = "function OnClock() print('tick') end";

TEST(ScriptRoom, AScriptRunsUnderItsNameAndIsStopped) {
    ScriptRig rig;
    EXPECT_FALSE(rig.Room.Runs());
    EXPECT_EQ(rig.Room.Name(), "");
    EXPECT_TRUE(rig.Room.Run(kClock, "song.mvs"));
    EXPECT_TRUE(rig.Room.Runs());
    EXPECT_EQ(rig.Room.Name(), "song.mvs");
    rig.Tick();
    rig.Room.Stop();
    EXPECT_FALSE(rig.Room.Runs());
    EXPECT_EQ(rig.Room.Name(), "");
    rig.Tick();
    rig.Room.Stop();
    EXPECT_THAT(rig.Lines(), ElementsAre("- song.mvs starts", "  tick", "- song.mvs is stopped"));
    EXPECT_THAT(rig.Desk.Boxes, IsEmpty());
}

TEST(ScriptRoom, ATextThatCannotBeReadLeavesTheScriptThatRuns) {
    ScriptRig rig;
    rig.Room.Run(kClock, "song.mvs");
    EXPECT_FALSE(rig.Room.Run("x = 1\nfor for", "wrong.mvs"));
    EXPECT_EQ(rig.Room.Name(), "song.mvs");
    rig.Tick();
    const ScriptRoom::Failure& failure = rig.Room.LastFailure();
    EXPECT_EQ(failure.Number, 1U);
    EXPECT_EQ(failure.Where, "wrong.mvs");
    EXPECT_EQ(failure.Error.Line, 2);
    EXPECT_EQ(failure.Error.Column, 1);
    EXPECT_THAT(rig.Lines(),
                ElementsAre("- song.mvs starts", "! Error in wrong.mvs: <name> expected near 'for', line 2", "  tick"));
    EXPECT_THAT(rig.Desk.Boxes, IsEmpty());
}

TEST(ScriptRoom, ACheckRunsNothing) {
    ScriptRig rig;
    EXPECT_FALSE(rig.Room.Check("print('run')").has_value());
    EXPECT_THAT(rig.Lines(), IsEmpty());
    EXPECT_FALSE(rig.Room.Runs());
    EXPECT_EQ(rig.Room.Check("x = = 1")->Line, 1);
    EXPECT_EQ(rig.Room.Check(std::string(2'000'000, ' '))->Description, "The text is longer than 1 MB");
    EXPECT_EQ(rig.Room.LastFailure().Number, 0U);
}

TEST(ScriptRoom, AFirstRunThatFailsIsReportedAndNoScriptRuns) {
    ScriptRig rig;
    rig.Room.Run(kClock, "song.mvs");
    EXPECT_FALSE(rig.Room.Run("\nerror('no')", "wrong.mvs"));
    EXPECT_FALSE(rig.Room.Runs());
    EXPECT_EQ(rig.Desk.LastBox(), "Error in code for wrong.mvs: no,  ln:2  col:0");
    EXPECT_THAT(rig.Lines(), ElementsAre("- song.mvs starts", "- song.mvs is stopped", "- wrong.mvs starts",
                                         "! Error in wrong.mvs: no, line 2"));
}

TEST(ScriptRoom, ALoopWithoutEndIsStoppedAndTold) {
    ScriptRig rig;
    rig.Look = 1'000'000;
    EXPECT_FALSE(rig.Room.Run("while true do end", "loop.mvs"));
    EXPECT_FALSE(rig.Room.Runs());
    EXPECT_EQ(rig.Desk.Boxes.size(), 1U);
    EXPECT_EQ(rig.Room.LastFailure().Error.Line, 1);
}

TEST(ScriptRoom, AnEventThatFailsIsSilentAndTheOthersGoOn) {
    ScriptRig rig;
    rig.Room.Run("function OnClock() error('late') end function OnVolChange() end", "song.mvs");
    EXPECT_EQ(rig.Room.Hears(ScriptEvent::OnClock), Hearing::Yes);
    EXPECT_EQ(rig.Room.Hears(ScriptEvent::OnVolChange), Hearing::Yes);
    EXPECT_EQ(rig.Room.Hears(ScriptEvent::OnPanChange), Hearing::No);
    rig.Tick();
    EXPECT_EQ(rig.Room.Hears(ScriptEvent::OnClock), Hearing::Silent);
    EXPECT_EQ(rig.Room.Hears(ScriptEvent::OnVolChange), Hearing::Yes);
    EXPECT_EQ(rig.Room.LastFailure().Where, "OnClock");
    rig.Room.Stop();
    EXPECT_EQ(rig.Room.Hears(ScriptEvent::OnVolChange), Hearing::No);
}

TEST(ScriptRoom, AnEventThatIsAtWorkCountsAsHeard) {
    ScriptRig rig;
    std::vector<Hearing> during;
    rig.Room.OnChange = [&] { during.push_back(rig.Room.Hears(ScriptEvent::OnClock)); };
    rig.Room.Run(kClock, "song.mvs");
    during.clear();
    rig.Tick();
    EXPECT_THAT(during, ElementsAre(Hearing::Yes));
}

TEST(ScriptRoom, AScriptThatEndsItselfRunsNoMore) {
    ScriptRig rig;
    rig.Room.Run("function OnClock() marvolin.stop_script() end", "song.mvs");
    int changes = 0;
    rig.Room.OnChange = [&] { ++changes; };
    rig.Tick();
    EXPECT_FALSE(rig.Room.Runs());
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(rig.Lines().back(), "- song.mvs has ended itself");
    EXPECT_TRUE(rig.Room.Run("marvolin.stop_script()", "short.mvs"));
    EXPECT_FALSE(rig.Room.Runs());
}

TEST(ScriptRoom, AnErrorWithoutALineNamesNone) {
    ScriptRig rig;
    rig.Room.Run(std::string(2'000'000, ' '), "long.mvs");
    EXPECT_THAT(rig.Lines(), ElementsAre("! Error in long.mvs: The text is longer than 1 MB"));
}

TEST(ScriptWords, EveryFunctionAndEveryEventHasAWordThatThePageKnows) {
    const std::string page = ApiPage();
    int events = 0;
    for (const ScriptWord& word : ScriptWords()) {
        SCOPED_TRACE(word.Name);
        EXPECT_TRUE(word.Signature.starts_with(word.Name + "("));
        EXPECT_FALSE(word.Text.empty());
        const bool function = word.Name.starts_with("marvolin.");
        events += function ? 0 : 1;
        const std::string entry = function ? "#### `" + word.Signature + "`" : "| `" + word.Name + "` |";
        EXPECT_NE(page.find(entry), std::string::npos);
    }
    EXPECT_EQ(events, kScriptEvents);
    EXPECT_GT(ScriptWords().size(), 70U);
}

TEST(ScriptWords, AnEventNamesAsManyArgumentsAsItsProcedureGets) {
    const std::array<int, kScriptEvents> counts{2, 2, 2, 3, 3, 3, 5, 3, 3};
    for (const ApiEvent& event : kApiEvents) {
        const auto commas = std::count(event.Parameters.begin(), event.Parameters.end(), ',');
        EXPECT_EQ(commas + 1, counts[static_cast<std::size_t>(event.Which)]) << SignatureOf(event);
        EXPECT_EQ(&ApiEventOf(event.Which), &event);
    }
}

}  // namespace
}  // namespace marvolin

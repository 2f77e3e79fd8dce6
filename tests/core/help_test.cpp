#include "core/help.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ShowHelp, OpensTheHelpViewerOnTheTopic) {
    Instrument i;
    i.s.HelpFile = "/p/Help/marvolin.chm";
    EXPECT_TRUE(ShowHelp(i.s, "ForHelp~~", 17));
    EXPECT_THAT(i.Desk.Log, ElementsAre("ShowHelpTopic 17"));
    EXPECT_TRUE(i.s.HelpShown);
}

TEST(ShowHelp, NeedsAHelpFileAndTheRightName) {
    Instrument i;
    EXPECT_FALSE(ShowHelp(i.s, "ForHelp~~", 17));
    i.s.HelpFile = "/p/Help/marvolin.chm";
    EXPECT_FALSE(ShowHelp(i.s, "forhelp~~", 17));
    EXPECT_FALSE(ShowHelp(i.s, "", 17));
    EXPECT_THAT(i.Desk.Log, IsEmpty());
    EXPECT_FALSE(i.s.HelpShown);
}

TEST(ShowHelp, AFailureIsShownWithItsDescription) {
    Instrument i;
    i.s.HelpFile = "/p/Help/marvolin.chm";
    i.Desk.HelpFails = true;
    EXPECT_FALSE(ShowHelp(i.s, "ForHelp~~", 17));
    EXPECT_EQ(i.Desk.LastBox(), "Error trying to open help file, File not found");
    EXPECT_FALSE(i.s.HelpShown);
}

TEST(IsHelpDrop, IsTrueForTheTagWhetherOrNotHelpCouldBeShown) {
    Instrument i;
    EXPECT_FALSE(IsHelpDrop(i.s, {"PickFile", 0, ""}, 3));
    EXPECT_TRUE(IsHelpDrop(i.s, {"StatusBar1", 0, "ForHelp~~"}, 3));
    EXPECT_THAT(i.Desk.Log, IsEmpty());
    i.s.HelpFile = "/p/Help/marvolin.chm";
    EXPECT_TRUE(IsHelpDrop(i.s, {"StatusBar1", 0, "ForHelp~~"}, 3));
    EXPECT_THAT(i.Desk.Log, ElementsAre("ShowHelpTopic 3"));
}

TEST(CloseHelp, ClosesTheViewerByItsTitle) {
    Instrument i;
    CloseHelp(i.s);
    EXPECT_THAT(i.Desk.Log, ElementsAre("CloseWindowTitled Marvolin Help"));
}

}  // namespace
}  // namespace marvolin

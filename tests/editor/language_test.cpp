#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

#include "editor_stage.h"

namespace marvolin {
namespace {

using testing::ElementsAre;

// Run a second time under a German desktop, where the toolkit takes over a comma and another order.
TEST(Language, ScriptsWriteAndReadNumbersWithAPointAndSortTextsByTheirBytes) {
    if (std::getenv("LOCPATH") != nullptr) {
        EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), std::getenv("LC_ALL")) << "the toolkit has not taken it";
    }
    test::ScriptRig rig;
    rig.Room.Run(
        "print(1.5, ('%.2f'):format(0.25), tonumber('2.5') + 1, 1000.5 .. '')\n"
        "local t = {'b', 'A', 'a', '\xC3\xA4', 'B', 'Z'}\ntable.sort(t)\nprint(table.concat(t), 'Z' < 'a')",
        "song.mvs");
    EXPECT_THAT(rig.Lines(), ElementsAre("- song.mvs starts", "  1.5\t0.25\t3.5\t1000.5", "  ABZab\xC3\xA4\ttrue"));
}

}  // namespace
}  // namespace marvolin

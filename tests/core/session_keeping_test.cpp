#include "core/session_keeping.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "fakes/instrument.h"
#include "fakes/temp_folder.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Keeping : Instrument {
    test::TempFolder Folder;
    std::vector<std::string> Order;
    Keeping() {
        Desk.TempFile = Folder.Touch("VBN1.tmp");
        Store.OnSave = [this] { Order.push_back("save"); };
        Store.OnLoad = [this] { Order.push_back(std::filesystem::exists(Desk.TempFile) ? "load" : "load nothing"); };
    }
    void Keep(const clsSwitchRecord& taken) {
        KeepSessionAcross(s, taken, [this] { Order.push_back("change"); });
    }
};

TEST(KeepSessionAcross, SavesEverythingMakesTheChangeLoadsTheSelectedElementsAndDeletesTheFile) {
    Keeping i;
    clsSwitchRecord taken;
    taken.Put(Element::Vol, true);
    i.Keep(taken);
    EXPECT_THAT(i.Order, ElementsAre("save", "change", "load"));
    EXPECT_THAT(i.Store.Log, ElementsAre("Save " + i.Desk.TempFile + " all everything", "Load " + i.Desk.TempFile));
    EXPECT_EQ(i.Store.Loaded, taken);
    EXPECT_FALSE(std::filesystem::exists(i.Desk.TempFile));
}

TEST(KeepSessionAcross, WithoutATemporaryFileOnlyTheChangeIsMade) {
    Keeping i;
    i.Desk.TempFile = "";
    i.Keep({});
    EXPECT_THAT(i.Order, ElementsAre("change"));
    EXPECT_THAT(i.Store.Log, IsEmpty());
}

TEST(KeepSessionAcross, TheClipboardStaysUnchangedWhateverTheLoadAddsToIt) {
    Keeping i;
    i.s.Clips.ClipStore.resize(2);
    i.s.Clips.ClipStore[1].FileName = "/b.WAV";
    i.s.Clips.ClipTop = 1;
    i.s.Clips.List = {"a", "b"};
    i.s.Clips.Selected = 1;
    i.s.Clips.Components[3] = false;
    i.Store.OnSave = [&] { i.Order.push_back("save " + std::to_string(i.s.Clips.ClipStore.size())); };
    i.Store.OnLoad = [&] {
        // The clipboard is empty, so that there is room for the clips of the file.
        i.Order.push_back("load onto " + std::to_string(i.s.Clips.ClipStore.size()));
        i.s.Clips.ClipStore.resize(7);
        i.s.Clips.ClipTop = 6;
        i.s.Clips.List.resize(7);
    };
    i.Screen.Log.clear();
    i.Keep({});
    EXPECT_THAT(i.Order, ElementsAre("save 2", "change", "load onto 0"));
    ASSERT_EQ(i.s.Clips.ClipStore.size(), 2U);
    EXPECT_EQ(i.s.Clips.ClipStore[1].FileName, "/b.WAV");
    EXPECT_EQ(i.s.Clips.ClipTop, 1);
    EXPECT_THAT(i.s.Clips.List, ElementsAre("a", "b"));
    EXPECT_EQ(i.s.Clips.Selected, 1);
    EXPECT_FALSE(i.s.Clips.Components[3]);
    EXPECT_EQ(i.Screen.Count("ShowClips"), 1);
}

}  // namespace
}  // namespace marvolin

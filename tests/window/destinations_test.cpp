#include <gtest/gtest.h>

#include <QComboBox>

#include "audio/loop_clearing.h"
#include "audio/sample_loading.h"
#include "fakes/temp_folder.h"
#include "stage.h"
#include "window/forms/browse_bins.h"
#include "window/forms/frm_browse.h"

namespace marvolin {
namespace {

struct Destinations : test::Stage {
    Destinations() {
        Screen.Attach(&Window);
        Window.Bins->RefreshDestinations();
    }
    ~Destinations() { Screen.Attach(static_cast<FrmBrowse*>(nullptr)); }
    std::string Text(int bin, int row) {
        return Window.findChild<QComboBox*>(QString("FileDestination_%1").arg(bin))->itemText(row).toStdString();
    }
    test::TempFolder Folder;
    FrmBrowse Window{s};
};

TEST(DestinationList, NamesTheSamplesOfTheLoopTracksHoweverTheyWereLoaded) {
    Destinations lists;
    EXPECT_EQ(lists.Text(0, 2), "C: ");
    lists.DropFiles("SndDisp_2", {lists.Folder.Touch("kick.wav")});
    for (int bin = 0; bin < 3; ++bin) EXPECT_EQ(lists.Text(bin, 2), "C: kick");
    LoopLoad(lists.s, 1, lists.Folder.Path(), (lists.Folder.Touch("bass.wav"), "bass.wav"));
    EXPECT_EQ(lists.Text(0, 1), "B: bass");
    lists.DropControl("LoopRow_0", {"DropDown", 1, ""});
    EXPECT_EQ(lists.Text(2, 0), "A: bass");
    LoopClear(lists.s, 2);
    EXPECT_EQ(lists.Text(1, 2), "C: ");
}

TEST(DestinationList, IsNotFilledAgainWhileAFlagIsDraggedOverABand) {
    Destinations lists;
    lists.s.BandTable[1].First = 0;
    lists.s.BandTable[1].Last = 3;
    for (Row row = 0; row < kLoopTracks; ++row) {
        lists.s.Run[row].InBand = True;
        lists.s.Run[row].Band = 1;
    }
    // A name that the list does not show yet: any refresh would change it.
    lists.s.Set[2].FileName = "/samples/new.wav";
    lists.Drag("ChannelFlag_0", {0, -20});
    EXPECT_EQ(lists.s.Set[3].Channel, 4);
    EXPECT_EQ(lists.Text(0, 2), "C: ");
    lists.Screen.ShowDestinations();
    EXPECT_EQ(lists.Text(0, 2), "C: new");
}

TEST(DestinationList, KeepsItsChoiceWhenANameChanges) {
    Destinations lists;
    lists.s.Bins[1].Destination = 3;
    lists.Screen.ShowDestinations();
    LoopLoad(lists.s, 3, lists.Folder.Path(), (lists.Folder.Touch("hat.wav"), "hat.wav"));
    const auto* list = lists.Window.findChild<QComboBox*>("FileDestination_1");
    EXPECT_EQ(list->currentIndex(), 3);
    EXPECT_EQ(list->currentText(), "D: hat");
}

}  // namespace
}  // namespace marvolin

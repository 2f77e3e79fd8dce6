#include <gtest/gtest.h>

#include <QUrl>
#include <filesystem>
#include <fstream>

#include "browser/destinations.h"
#include "browser/sample_bins.h"
#include "fakes/temp_folder.h"
#include "hand.h"
#include "stage.h"
#include "window/browse_bins.h"
#include "window/folder_tree.h"
#include "window/frm_browse.h"

namespace marvolin {
namespace {

namespace fs = std::filesystem;

struct Browser : test::Stage {
    Browser() {
        fs::create_directories(Folder);
        for (const char* name : {"one.wav", "two.WAV", "three.wav"}) std::ofstream(Folder / name) << "sample";
        for (int bin = 0; bin < 3; ++bin) {
            SetPickDir(s, bin, Folder.string());
            UpdatePickFile(s, bin);
        }
        Window.show();
        Screen.Attach(&Window);
        Window.Bins->RefreshDestinations();
        for (int bin = 0; bin < 3; ++bin) Window.Bins->RefreshBin(bin);
        Settle();
        Sound.Log.clear();
    }
    ~Browser() { Screen.Attach(static_cast<FrmBrowse*>(nullptr)); }
    QWidget& Part(const char* name) { return *Window.findChild<QWidget*>(name); }
    static QPoint RowAt(int row) { return {30, 12 + row * 22}; }
    QImage Bar() { return Part("BrowseStatusBar1").grab().toImage(); }

    test::TempFolder Own;  // of this test alone: others run at the same time
    fs::path Folder = fs::path(Own.Path()) / "marvolin browse test";
    FrmBrowse Window{s};
};

TEST(Browser, AClickLoadsIntoTheDestinationAndPlaysWhenAutoPlayIsOn) {
    Browser browser;
    SetFileDestination(browser.s, 0, 1);
    const std::string name = browser.s.Bins[0].Rows[1].Name;
    QTest::mouseClick(&browser.Part("PickFile_0"), Qt::LeftButton, {}, Browser::RowAt(1));
    EXPECT_EQ(fs::path(browser.s.Set[1].FileName).stem(), name);
    EXPECT_EQ(browser.s.Run[1].Playing, True);
    EXPECT_EQ(browser.s.Bins[0].Selected, 1);
    auto& list = dynamic_cast<QComboBox&>(browser.Part("FileDestination_0"));
    EXPECT_EQ(list.itemText(1).toStdString(), "B: " + name);
}

TEST(Browser, WithoutAutoPlayAClickOnlyLoads) {
    Browser browser;
    SetFileDestination(browser.s, 2, 3);
    QTest::mouseClick(&browser.Part("ClickPlay_2"), Qt::LeftButton, {}, {10, 15});
    EXPECT_EQ(browser.s.Bins[2].ClickPlay, 0);
    QTest::mouseClick(&browser.Part("PickFile_2"), Qt::LeftButton, {}, Browser::RowAt(0));
    EXPECT_EQ(browser.s.Run[3].Loaded, True);
    EXPECT_EQ(browser.s.Run[3].Playing, False);
}

TEST(Browser, ARightClickTogglesTheDestination) {
    Browser browser;
    browser.Fill(0);
    SetFileDestination(browser.s, 0, 0);
    QTest::mouseClick(&browser.Part("PickFile_0"), Qt::RightButton, {}, Browser::RowAt(0));
    EXPECT_EQ(browser.s.Run[0].Playing, True);
    EXPECT_EQ(browser.s.Set[0].FileName, "/samples/one.WAV");
    QTest::mouseClick(&browser.Part("PickFile_0"), Qt::RightButton, {}, Browser::RowAt(0));
    EXPECT_EQ(browser.s.Run[0].Playing, False);
}

TEST(Browser, AClickBelowTheLastRowDoesNothing) {
    Browser browser;
    SetFileDestination(browser.s, 0, 0);
    QTest::mouseClick(&browser.Part("PickFile_0"), Qt::LeftButton, {}, Browser::RowAt(3));
    EXPECT_EQ(browser.s.Run[0].Loaded, False);
}

TEST(Browser, TheRightThirdOfARowBeginsADrag) {
    Browser browser;
    SetFileDestination(browser.s, 1, 0);
    QWidget& list = browser.Part("PickFile_1");
    const auto inside = test::DragOf(list, [&] {
        QTest::mousePress(&list, Qt::LeftButton, {}, {list.width() * 2 / 3 + 2, 12});
    });
    EXPECT_EQ(inside, (DragSource{"PickFile", 1, ""}));
    EXPECT_EQ(browser.s.DragBin, 1);
    const auto beside = test::DragOf(list, [&] {
        QTest::mousePress(&list, Qt::LeftButton, {}, {list.width() * 2 / 3 - 4, 12});
    });
    EXPECT_EQ(beside, std::nullopt);
}

TEST(Browser, InDrgDrpAPressAnywhereOnARowBeginsADragAndAClickLoadsNothing) {
    Browser browser;
    SetFileDestination(browser.s, 0, kDragDestination);
    QWidget& list = browser.Part("PickFile_0");
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        const auto source = test::DragOf(list, [&] { QTest::mousePress(&list, button, {}, Browser::RowAt(2)); });
        EXPECT_EQ(source, (DragSource{"PickFile", 0, ""}));
        EXPECT_EQ(browser.s.Bins[0].Selected, 2);
        QTest::mouseRelease(&list, button, {}, Browser::RowAt(2));
    }
    EXPECT_EQ(browser.s.Run[0].Loaded, False);
    browser.DropControl("LoopRow_2", {"PickFile", 0, ""});
    EXPECT_EQ(fs::path(browser.s.Set[2].FileName).stem(), browser.s.Bins[0].Rows[2].Name);
}

TEST(Browser, CommandsOfTheDestinationListReachAllBins) {
    Browser browser;
    auto& list = dynamic_cast<QComboBox&>(browser.Part("FileDestination_1"));
    test::Choose(list, 7);
    for (std::int16_t bin = 0; bin < 3; ++bin) EXPECT_EQ(browser.s.Bins[bin].Destination, bin);
    test::Choose(list, 8);
    for (int bin = 0; bin < 3; ++bin) EXPECT_EQ(browser.s.Bins[bin].Destination, 4);
    test::Choose(list, 6);
    for (int bin = 0; bin < 3; ++bin) EXPECT_EQ(browser.s.Bins[bin].Destination, 5);
    EXPECT_EQ(list.currentIndex(), 5);
    test::Choose(list, 2);
    EXPECT_EQ(browser.s.Bins[1].Destination, 2);
    EXPECT_EQ(browser.s.Bins[0].Destination, 5);
}

TEST(Browser, AClickOnTheFolderOpensTheTreeAndARightClickClosesIt) {
    Browser browser;
    EXPECT_FALSE(browser.Window.Bins->Tree->isVisible());
    QTest::mouseClick(&browser.Part("PickDir_0"), Qt::LeftButton);
    EXPECT_TRUE(browser.Window.Bins->Tree->isVisible());
    EXPECT_EQ(browser.s.TreeFolder, browser.Folder.string());
    QTest::mouseClick(browser.Window.Bins->Tree->viewport(), Qt::RightButton, {}, {30, 30});
    EXPECT_FALSE(browser.Window.Bins->Tree->isVisible());
}

TEST(Browser, TheTreeOpensAtTheFolderOfTheBin) {
    Browser browser;
    const fs::path deep = browser.Folder / "a" / "b" / "c" / "deep";
    fs::create_directories(deep);
    SetPickDir(browser.s, 0, deep.string());
    QTest::mouseClick(&browser.Part("PickDir_0"), Qt::LeftButton);
    const QTreeView& tree = *browser.Window.Bins->Tree;
    const QString folder = QString::fromStdString(deep.filename().string());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QRect row = tree.visualRect(tree.currentIndex());
        return tree.currentIndex().data().toString() == folder && !row.isEmpty() &&
               tree.viewport()->rect().intersects(row);
    }));
}

TEST(Browser, ALoadHidesTheTree) {
    Browser browser;
    SetFileDestination(browser.s, 0, 0);
    QTest::mouseClick(&browser.Part("PickDir_0"), Qt::LeftButton);
    QTest::mouseClick(&browser.Part("PickFile_0"), Qt::LeftButton, {}, Browser::RowAt(0));
    EXPECT_FALSE(browser.Window.Bins->Tree->isVisible());
}

TEST(Browser, AClickOnAnEmptyListOpensTheTree) {
    Browser browser;
    browser.s.Bins[1].Rows.clear();
    browser.Screen.ShowBin(1);
    QTest::mouseClick(&browser.Part("PickFile_1"), Qt::LeftButton, {}, {40, 40});
    EXPECT_TRUE(browser.Window.Bins->Tree->isVisible());
}

TEST(Browser, AFolderGoesFromButtonToButtonAndFromAFileManager) {
    Browser browser;
    const fs::path other = browser.Folder / "inner";
    fs::create_directories(other);
    std::ofstream(other / "deep.wav") << "sample";
    const auto drop = [&](const char* name, std::unique_ptr<QMimeData> data) {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&browser.Part(name), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&browser.Part(name), &event);
    };
    auto urls = std::make_unique<QMimeData>();
    urls->setUrls({QUrl::fromLocalFile(QString::fromStdString(other.string()))});
    drop("PickDir_0", std::move(urls));
    EXPECT_EQ(browser.s.Bins[0].Folder, other.string());
    ASSERT_EQ(browser.s.Bins[0].Rows.size(), 1U);
    EXPECT_EQ(browser.s.Bins[0].Rows[0].Name, "deep");
    drop("PickDir_2", ToMimeData({"PickDir", 0, ""}));
    EXPECT_EQ(browser.s.Bins[2].Folder, other.string());
    EXPECT_EQ(browser.Part("PickDir_2").toolTip().toStdString(), other.string());
    EXPECT_EQ(browser.s.Bins[1].Folder, browser.Folder.string());
}

TEST(Browser, HintsGoToItsOwnBar) {
    Browser browser;
    const QImage before = browser.Bar();
    const std::string main = browser.s.StatusText;
    const QPointF place = Browser::RowAt(0);
    QMouseEvent move(QEvent::MouseMove, place, browser.Part("PickFile_0").mapToGlobal(place), Qt::NoButton, {}, {});
    QApplication::sendEvent(&browser.Part("PickFile_0"), &move);
    browser.Settle();
    EXPECT_NE(browser.Bar(), before);
    EXPECT_EQ(browser.s.StatusText, main);
}

TEST(Browser, ClosingOnlyHidesUntilTheProgramEnds) {
    Browser browser;
    browser.Window.close();
    EXPECT_FALSE(browser.Window.isVisible());
    browser.Window.show();
    EXPECT_TRUE(browser.Window.isVisible());
    EXPECT_EQ(browser.s.Bins[0].Rows.size(), 3U);
}

TEST(Browser, TenThousandRowsScrollToTheLast) {
    Browser browser;
    SetFileDestination(browser.s, 0, 0);
    browser.s.Bins[0].Rows.assign(10000, BinRow{"sample", "12", ""});
    browser.Screen.ShowBin(0);
    QWidget& list = browser.Part("PickFile_0");
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(browser.s.Bins[0].Selected, 9999);
    EXPECT_GT(list.grab().toImage().width(), 0);
    QTest::keyClick(&list, Qt::Key_PageUp);
    EXPECT_LT(browser.s.Bins[0].Selected, 9999);
    EXPECT_GT(browser.s.Bins[0].Selected, 9900);
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(browser.s.Bins[0].Selected, 0);
}

}  // namespace
}  // namespace marvolin

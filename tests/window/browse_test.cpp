#include <gtest/gtest.h>

#include <QFileSystemModel>
#include <QImage>
#include <QLabel>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "browser/destinations.h"
#include "browser_stage.h"
#include "shown_picture.h"
#include "window/controls/folder_tree.h"
#include "window/toolkit/dialogue_style.h"

namespace marvolin {
namespace {

namespace fs = std::filesystem;

using test::Browser;

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
    const auto inside = test::DragAway(list, list, {list.width() * 2 / 3 + 2, 12});
    EXPECT_EQ(inside, (DragSource{"PickFile", 1, ""}));
    EXPECT_EQ(browser.s.DragBin, 1);
    const auto beside = test::DragAway(list, list, {list.width() * 2 / 3 - 14, 12});
    EXPECT_EQ(beside, std::nullopt);
}

TEST(Browser, InDrgDrpAPressAnywhereOnARowBeginsADragAndAClickLoadsNothing) {
    Browser browser;
    SetFileDestination(browser.s, 0, kDragDestination);
    QWidget& list = browser.Part("PickFile_0");
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        const auto source = test::DragAway(list, list, Browser::RowAt(2), button);
        EXPECT_EQ(source, (DragSource{"PickFile", 0, ""}));
        EXPECT_EQ(browser.s.Bins[0].Selected, 2);
        QTest::mouseClick(&list, button, {}, Browser::RowAt(2));
    }
    EXPECT_EQ(browser.s.Run[0].Loaded, False);
    browser.DropControl("LoopRow_2", {"PickFile", 0, ""});
    EXPECT_EQ(fs::path(browser.s.Set[2].FileName).stem(), browser.s.Bins[0].Rows[2].Name);
}

TEST(Browser, ComingBackToItShowsWhatHasChangedInTheFoldersAndInTheFiles) {
    Browser browser;
    fs::last_write_time(browser.Folder, fs::file_time_type::clock::now() - std::chrono::minutes(1));
    const auto comeBack = [&] {
        browser.Form->activateWindow();
        browser.Settle();
        browser.Window.activateWindow();
        browser.Settle();
    };
    comeBack();
    ASSERT_EQ(browser.s.Bins[0].Rows.size(), 3U);
    const auto three = std::find_if(browser.s.Bins[0].Rows.begin(), browser.s.Bins[0].Rows.end(),
                                    [](const BinRow& row) { return row.Name == "three"; });
    ASSERT_NE(three, browser.s.Bins[0].Rows.end());
    const auto place = static_cast<std::size_t>(three - browser.s.Bins[0].Rows.begin());
    std::ofstream(browser.Folder / "three.wav", std::ios::app) << std::string(5000, 'x');
    comeBack();
    EXPECT_TRUE(QTest::qWaitFor([&] { return browser.s.Bins[2].Rows[place].Size == "4"; }, 5000));
    std::ofstream(browser.Folder / "four.wav") << "sample";
    comeBack();
    EXPECT_EQ(browser.s.Bins[1].Rows.size(), 4U);
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

TEST(Browser, AFolderIsDroppedFromAnotherButtonOrAFileManager) {
    Browser browser;
    const fs::path other = browser.Folder / "inner";
    fs::create_directories(other);
    std::ofstream(other / "deep.wav") << "sample";
    EXPECT_TRUE(browser.DropFolder("PickDir_0", other));
    EXPECT_EQ(browser.s.Bins[0].Folder, other.string());
    ASSERT_EQ(browser.s.Bins[0].Rows.size(), 1U);
    EXPECT_EQ(browser.s.Bins[0].Rows[0].Name, "deep");
    EXPECT_TRUE(browser.DropOn("PickDir_2", {"PickDir", 0, ""}));
    EXPECT_EQ(browser.s.Bins[2].Folder, other.string());
    EXPECT_EQ(browser.Part("PickDir_2").toolTip().toStdString(), other.string());
    EXPECT_EQ(browser.s.Bins[1].Folder, browser.Folder.string());
}

TEST(Browser, HintsAreShownInItsOwnStatusBarAndNameTheSampleUnderThePointer) {
    Browser browser;
    SetFileDestination(browser.s, 0, 1);
    const std::string main = browser.s.StatusText;
    QWidget& list = browser.Part("PickFile_0");
    browser.Hover(list, Browser::RowAt(0));
    EXPECT_TRUE(browser.Shows("one (0k) clk Ld->Dest; rtclk Stp/Ply Dest; rt margin drg to Target"));
    browser.Hover(list, Browser::RowAt(2));
    EXPECT_TRUE(browser.Shows("two (0k) clk Ld->Dest; rtclk Stp/Ply Dest; rt margin drg to Target"));
    SetFileDestination(browser.s, 0, kDragDestination);
    browser.Hover(list, Browser::RowAt(1));
    EXPECT_TRUE(browser.Shows("three (0k) drg to Target"));
    browser.Hover(browser.Part("PickDir_1"), {5, 5});
    EXPECT_TRUE(browser.Shows("clk Open FolderExplorer"));
    browser.Hover(browser.Part("FileDestination_2"), {5, 5});
    EXPECT_TRUE(browser.Shows("slct Destination for Sounds"));
    browser.ClickOn("PickDir_0");
    browser.Hover(*browser.Window.Bins->Tree->viewport(), {5, 5});
    EXPECT_TRUE(browser.Shows("drg Folder to Sample Bin; rtclk to Close"));
    EXPECT_EQ(browser.s.StatusText, main);
}

TEST(Browser, ThePointerShowsWhereAPressWouldBeginADrag) {
    Browser browser;
    SetFileDestination(browser.s, 0, 2);
    QWidget& list = browser.Part("PickFile_0");
    const double margin = list.width() * 2 / 3.0;
    const auto shape = [&](QPointF place) {
        browser.Hover(list, place);
        return list.cursor().shape();
    };
    EXPECT_EQ(shape({margin - 2, 12}), Qt::ArrowCursor);
    EXPECT_EQ(shape({margin + 2, 12}), Qt::OpenHandCursor);
    EXPECT_EQ(shape({margin + 2, 12 + 3 * 22}), Qt::ArrowCursor);  // below the last row
    SetFileDestination(browser.s, 0, kDragDestination);
    EXPECT_EQ(shape({30, 34}), Qt::OpenHandCursor);
    EXPECT_EQ(shape({30, 12 + 3 * 22}), Qt::ArrowCursor);
}

TEST(Browser, EachBinHasItsOwnFolderListAndDestination) {
    Browser browser;
    for (std::int16_t bin = 0; bin < 3; ++bin) {
        const auto folder = browser.Folder / ("bin " + std::to_string(bin));
        std::filesystem::create_directories(folder);
        std::ofstream(folder / ("sample " + std::to_string(bin) + ".wav")) << "sample";
        const std::string number = std::to_string(bin);
        EXPECT_TRUE(browser.DropFolder(("PickDir_" + number).c_str(), folder));
        auto& list = dynamic_cast<QComboBox&>(browser.Part(("FileDestination_" + number).c_str()));
        test::Choose(list, 3 - bin);
    }
    for (int bin = 0; bin < 3; ++bin) {
        const std::string number = std::to_string(bin);
        browser.ClickOn(("PickDir_" + number).c_str(), {10, 10});
        EXPECT_EQ(browser.s.TreeFolder, browser.s.Bins[bin].Folder);
        browser.ClickOn(("PickFile_" + number).c_str(), Browser::RowAt(0));
        EXPECT_EQ(browser.s.Set[3 - bin].FileName,
                  (browser.Folder / ("bin " + number) / ("sample " + number + ".wav")));
    }
}

TEST(Browser, TheGangLoadsIntoTheLoopTracksInControl) {
    Browser browser;
    browser.Click("Selected_0");
    browser.Click("Selected_2");
    auto& list = dynamic_cast<QComboBox&>(browser.Part("FileDestination_0"));
    EXPECT_EQ(list.itemText(4), "> Gang");
    test::Choose(list, 4);
    browser.ClickOn("PickFile_0", Browser::RowAt(1));
    for (Row row = 0; row < 4; ++row) {
        EXPECT_EQ(browser.s.Run[row].Loaded, row % 2 == 0 ? True : False) << row;
        EXPECT_EQ(browser.s.Run[row].Playing, row % 2 == 0 ? True : False) << row;
    }
    browser.ClickOn("PickFile_0", Browser::RowAt(1), Qt::RightButton);
    EXPECT_EQ(browser.s.Run[0].Playing, False);
    EXPECT_EQ(browser.s.Run[2].Playing, False);
}

TEST(Browser, ADestinationListIsAsWideAsTheBoxAutoPlayAndBothAreAboveTheList) {
    Browser b;
    for (const char bin : {'0', '1', '2'}) {
        const auto place = [&](std::string name) { return b.Part((name + "_" + bin).c_str()).geometry(); };
        const QRect folder = place("PickDir");
        const QRect destination = place("FileDestination");
        const QRect play = place("ClickPlay");
        const QRect list = place("PickFile");
        EXPECT_EQ(destination.width(), play.width());
        EXPECT_LT(folder.bottom(), destination.top());
        EXPECT_LT(destination.bottom(), play.top());
        EXPECT_LT(play.bottom(), list.top());
    }
}

TEST(Browser, TheBackgroundOfAListShowsWhetherItsSamplesAreOnlyDragged) {
    Browser browser;
    const auto ground = [&](const char* name) {
        browser.Settle();
        return browser.Part(name).grab().toImage().pixelColor(20, 12 + 5 * 22);
    };
    SetFileDestination(browser.s, 0, 1);
    SetFileDestination(browser.s, 1, kDragDestination);
    EXPECT_EQ(ground("PickFile_0"), QColor(200, 203, 198));
    EXPECT_EQ(ground("PickFile_1"), QColor(227, 232, 223));
    test::Choose(dynamic_cast<QComboBox&>(browser.Part("FileDestination_1")), 4);
    EXPECT_EQ(ground("PickFile_1"), QColor(200, 203, 198));
}

TEST(Browser, AnyButtonDragsInTheRightMarginAndThenLoadsNothing) {
    Browser browser;
    SetFileDestination(browser.s, 0, 0);
    QWidget& list = browser.Part("PickFile_0");
    const QPoint margin{list.width() - 20, 12 + 22};
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        browser.ClickOn("PickDir_0");
        browser.s.Bins[0].Selected = -1;
        const auto source = test::DragAway(list, list, margin, button);
        EXPECT_EQ(source, (DragSource{"PickFile", 0, ""})) << button;
        EXPECT_EQ(browser.s.Bins[0].Selected, 1) << button;
        EXPECT_FALSE(browser.Window.Bins->Tree->isVisible()) << button;
    }
    EXPECT_EQ(browser.s.Run[0].Loaded, False);
    SetFileDestination(browser.s, 0, kDragDestination);
    const auto middle = test::DragAway(list, list, {30, 34}, Qt::MiddleButton);
    EXPECT_EQ(middle, std::nullopt);
}

TEST(Browser, AClickInTheRightMarginLoadsAsAClickDoes) {
    Browser browser;
    SetFileDestination(browser.s, 0, 0);
    QWidget& list = browser.Part("PickFile_0");
    const auto source = test::DragOf(list, [&] {
        QTest::mouseClick(&list, Qt::LeftButton, {}, {list.width() - 20, 12 + 22});
    });
    EXPECT_EQ(source, std::nullopt);
    EXPECT_EQ(fs::path(browser.s.Set[0].FileName).stem(), browser.s.Bins[0].Rows[1].Name);
}

TEST(Browser, AScrolledListLoadsTheRowUnderThePointer) {
    Browser browser;
    for (int i = 0; i < 60; ++i) std::ofstream(browser.Folder / ("x" + std::to_string(i) + ".wav")) << "sample";
    UpdatePickFile(browser.s, 0);
    SetFileDestination(browser.s, 0, 0);
    QWidget& list = browser.Part("PickFile_0");
    for (auto* bar : list.findChildren<QScrollBar*>()) {
        if (bar->orientation() == Qt::Vertical) bar->setValue(10);
    }
    browser.ClickOn("PickFile_0", Browser::RowAt(2));
    EXPECT_EQ(browser.s.Bins[0].Selected, 12);
    EXPECT_EQ(std::filesystem::path(browser.s.Set[0].FileName).stem(), browser.s.Bins[0].Rows[12].Name);
}

TEST(Browser, ADragFromAFolderButtonCopiesItsFolderAndOtherDragsAreIgnored) {
    Browser browser;
    QWidget& button = browser.Part("PickDir_1");
    const auto source = test::DragOf(button, [&] {
        QTest::mousePress(&button, Qt::LeftButton, {}, {10, 10});
        QMouseEvent move(QEvent::MouseMove, QPointF(60, 10), button.mapToGlobal(QPointF(60, 10)), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(&button, &move);
    });
    EXPECT_EQ(source, (DragSource{"PickDir", 1, ""}));
    EXPECT_FALSE(browser.Window.Bins->Tree->isVisible());
    const std::string before = browser.s.Bins[0].Folder;
    browser.s.Bins[0].Selected = 1;
    browser.DropOn("PickDir_0", {"PickFile", 0, ""});
    browser.DropOn("PickDir_0", {"Letr", 2, "4"});
    EXPECT_EQ(browser.s.Bins[0].Folder, before);
}

TEST(Browser, AFolderOfTheTreeDroppedOnAButtonBecomesTheBins) {
    Browser browser;
    const auto inner = browser.Folder / "a folder with a long name";
    std::filesystem::create_directories(inner);
    std::ofstream(inner / "deep.wav") << "sample";
    browser.ClickOn("PickDir_2");
    FolderTree& tree = *browser.Window.Bins->Tree;
    auto& folders = dynamic_cast<QFileSystemModel&>(*tree.model());
    const QModelIndex index = folders.index(QString::fromStdString(inner.string()));
    ASSERT_TRUE(index.isValid());
    EXPECT_TRUE(tree.dragEnabled());
    EXPECT_TRUE(browser.DropOn(browser.Part("PickDir_2"), std::unique_ptr<QMimeData>(folders.mimeData({index}))));
    EXPECT_EQ(browser.s.Bins[2].Folder, inner.string());
    EXPECT_EQ(browser.s.Bins[2].Caption, "a folder w");
    EXPECT_EQ(browser.Part("PickDir_2").toolTip().toStdString(), inner.string());
    ASSERT_EQ(browser.s.Bins[2].Rows.size(), 1U);
    EXPECT_EQ(browser.s.Bins[2].Rows[0].Name, "deep");
    EXPECT_EQ(browser.s.Bins[0].Folder, browser.Folder.string());
}

TEST(Browser, TheTreePaintsTheArrowOfAnOpenFolderAnewWhenSomethingHasComeIntoItOrGone) {
    Browser browser;
    const auto outer = browser.Folder / "open";
    fs::create_directories(outer);
    browser.s.TreeFolder = outer.string();
    FolderTree& tree = *browser.Window.Bins->Tree;
    tree.Open(true);
    const auto& folders = dynamic_cast<const QFileSystemModel&>(*tree.model());
    const auto isCurrent = [&] { return tree.currentIndex() == folders.index(QString::fromStdString(outer.string())); };
    ASSERT_TRUE(QTest::qWaitFor(isCurrent, 5000));
    QTest::keyClick(&tree, Qt::Key_Plus);
    const auto isPainted = [&] { return test::IsShownAsPainted(*tree.window()); };
    const auto look = [&](const char* step) {
        QTest::qWait(200);  // the toolkit reads folders in a thread, and paints by timers
        EXPECT_TRUE(QTest::qWaitFor(isPainted, 2000)) << step;
    };
    for (int times = 0; times < 2; ++times) {
        fs::create_directories(outer / "first");
        look("its first folder");
        fs::remove(outer / "first");
        look("no folder");
        tree.Open(false);
        tree.Open(true);
        look("closed and opened again");
        for (const fs::path& folder : {browser.Folder, outer}) std::ofstream(folder / "new.wav") << "sample";
        look("a file");
        for (const fs::path& folder : {browser.Folder, outer}) fs::remove(folder / "new.wav");
        look("no file");
    }
}

TEST(Browser, TheTreeKnowsTypesByTheNameAloneAndOpensNoFile) {
    Browser browser;
    std::ofstream(browser.Folder / "nameless") << "RIFF....WAVEfmt ";
    browser.ClickOn("PickDir_2");
    auto& folders = dynamic_cast<QFileSystemModel&>(*browser.Window.Bins->Tree->model());
    QAbstractFileIconProvider& pictures = *folders.iconProvider();
    const auto type = [&](const std::filesystem::path& path) {
        return pictures.type(QFileInfo(QString::fromStdString(path.string())));
    };
    EXPECT_EQ(type(browser.Folder / "nameless"), "File");
    EXPECT_EQ(type(browser.Folder / "one.wav"), "WAV File");
    EXPECT_EQ(type(browser.Folder), "Folder");
    EXPECT_EQ(type("/"), "Drive");
    EXPECT_NE(dynamic_cast<FilePictures*>(&pictures), nullptr);
}

TEST(Browser, HasFourTabsOfWhichTwoHoldNoBins) {
    Browser browser;
    const auto& tabs = dynamic_cast<QTabBar&>(browser.Part("Sstab"));
    QStringList captions;
    for (int tab = 0; tab < tabs.count(); ++tab) captions << tabs.tabText(tab);
    EXPECT_EQ(captions, (QStringList{"1-3", "4-6", "7-9", "ClipBrd"}));
    for (int tab = 0; tab < 4; ++tab) {
        browser.OpenTab(tab);
        EXPECT_EQ(browser.Part("PickFile_0").isVisible(), tab == 0) << tab;
        EXPECT_EQ(browser.Part("ClipBoardList").isVisible(), tab == 3) << tab;
    }
}

TEST(Browser, AChangeInAFolderShowsAtTheNextVisit) {
    Browser browser;
    std::ofstream(browser.Folder / "four.wav") << "sample";
    browser.OpenTab(3);
    browser.OpenTab(0);
    EXPECT_EQ(browser.s.Bins[0].Rows.size(), 4U);
    std::ofstream(browser.Folder / "five.wav") << "sample";
    browser.Window.close();
    browser.Window.show();
    EXPECT_EQ(browser.s.Bins[1].Rows.size(), 5U);
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
    browser.s.Bins[0].Rows.assign(10000, BinRow{"sample", "12", "", "sample.wav"});
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

#pragma once
/// \file
/// The browser beside the main window, with a folder of three samples in each of its bins.

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "browser/sample_bins.h"
#include "fakes/temp_folder.h"
#include "hand.h"
#include "stage.h"
#include "window/forms/browse_bins.h"
#include "window/forms/frm_browse.h"

namespace marvolin::test {

struct Browser : Stage {
    Browser() {
        std::filesystem::create_directories(Folder);
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
    void ClickOn(const char* name, QPoint place = {}, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&Part(name), button, {}, place);
    }
    /// Opens a tab by a click: 0 the bins, 3 the clipboard.
    void OpenTab(int tab) {
        auto& tabs = dynamic_cast<QTabBar&>(Part("Sstab"));
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
    }
    /// The pointer moves over a control.
    void Hover(QWidget& part, QPointF place) {
        QMouseEvent move(QEvent::MouseMove, place, part.mapToGlobal(place), Qt::NoButton, {}, {});
        QApplication::sendEvent(&part, &move);
        Settle();
    }
    QImage Bar() { return Part("BrowseStatusBar1").grab().toImage(); }
    /// Whether the browser's status bar shows this text.
    bool Shows(std::string_view hint) {
        const QImage shown = Bar();
        Window.ShowHint("");
        const QImage empty = Bar();
        Window.ShowHint(hint);
        return shown == Bar() && shown != empty;
    }
    /// Drops something on a control of the browser; false when the control refuses it.
    bool DropOn(QWidget& part, std::unique_ptr<QMimeData> data) {
        const QPoint place = part.rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&part, &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&part, &drop);
        return true;
    }
    bool DropOn(const char* name, const DragSource& source) { return DropOn(Part(name), ToMimeData(source)); }
    bool DropFolder(const char* name, const std::filesystem::path& folder) {
        auto urls = std::make_unique<QMimeData>();
        urls->setUrls({QUrl::fromLocalFile(QString::fromStdString(folder.string()))});
        return DropOn(Part(name), std::move(urls));
    }

    TempFolder Own;  // not shared with tests that run at the same time
    std::filesystem::path Folder = std::filesystem::path(Own.Path()) / "marvolin browse test";
    FrmBrowse Window{s};
};

}  // namespace marvolin::test

#include <QFileSystemModel>
#include <QTabBar>
#include <QTreeView>

#include "forms.h"
#include "scene.h"
#include "window/forms/browse_bins.h"
#include "window/forms/browse_clips.h"
#include "window/forms/frm_browse.h"

namespace marvolin::test {

namespace {

constexpr const char* kPageNames[] = {"bins", "empty-4-6", "empty-7-9", "clips"};

struct BrowserScene : Scene {
    explicit BrowserScene(bool playing) {
        if (playing) Play();
        Form = std::make_unique<FrmBrowse>(s);
        Screen.Attach(Form.get());
        Form->show();
        Form->Bins->RefreshDestinations();
        Form->Clips->Refresh();
        for (int bin = 0; bin < 3; ++bin) Form->Bins->RefreshBin(bin);
    }
    ~BrowserScene() { Screen.Attach(static_cast<FrmBrowse*>(nullptr)); }

    std::unique_ptr<FrmBrowse> Form;
};

/// The tree on the folder of the pictures alone: what else the machine's disk holds is not the program's.
void PictureTree(Album& album, BrowserScene& scene) {
    scene.Screen.ShowFolderTree(true);
    auto* tree = scene.Form->findChild<QTreeView*>("FolderTreeview1");
    tree->setRootIndex(dynamic_cast<QFileSystemModel&>(*tree->model()).index(kPictureFolder));
    album.AddWhenQuiet(*scene.Form, "browser-tree");
    scene.Screen.ShowFolderTree(false);
}

}  // namespace

void PictureBrowser(Album& album) {
    for (const bool playing : {true, false}) {
        BrowserScene scene(playing);
        const std::string name = playing ? "browser-" : "browser-empty-";
        auto* tabs = scene.Form->findChild<QTabBar*>("Sstab");
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            scene.Form->ShowHint("slct Destination for Sounds");
            album.Add(*scene.Form, name + kPageNames[page]);
            if (!playing) continue;
            album.AddLists(*scene.Form, "browser");
            album.AddFocused(*scene.Form, "browser");
        }
        if (!playing) continue;
        tabs->setCurrentIndex(0);
        PictureTree(album, scene);
        scene.Form->resize(620, 420);
        album.Add(*scene.Form, "browser-smallest");
    }
}

}  // namespace marvolin::test

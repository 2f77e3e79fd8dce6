#include "fakes/fake_world.h"
#include "forms.h"
#include "performance/map/use_3d.h"
#include "performance/pad/pad_tables.h"
#include "performance/tabs.h"
#include "scene.h"
#include "window/forms/frm_main.h"

namespace marvolin::test {

namespace {

constexpr const char* kTabNames[] = {"pad", "map", "pattern", "options"};
constexpr const char* kSubTabNames[] = {"joystick", "mouse", "scripting", "timing"};

struct MainScene : Scene {
    explicit MainScene(bool playing) : Playing(playing) {
        if (playing) Play();
        Form = std::make_unique<FrmMain>(
            s, FrmMain::Events{nullptr, nullptr, nullptr, [] { return 0.04; }, [this] { return SoundGone; }});
        Screen.Attach(Form.get());
        Form->show();
    }
    ~MainScene() { Screen.Attach(static_cast<FrmMain*>(nullptr)); }
    QWidget& Find(const char* name) { return *Form->findChild<QWidget*>(name); }

    const bool Playing;
    bool SoundGone = false;
    std::unique_ptr<FrmMain> Form;
};

void PictureControls(Album& album, MainScene& scene) {
    if (!scene.Playing) return;
    album.AddLists(*scene.Form, "main");
    album.AddFocused(*scene.Form, "main");
}

void PictureTabs(Album& album, MainScene& scene, const std::string& name) {
    for (std::int16_t tab = 0; tab < kTabs; ++tab) {
        SetTab(scene.s, tab);
        const std::string tabName = name + "-" + kTabNames[tab];
        if (tab != kOptionTab) {
            album.Add(*scene.Form, tabName);
            PictureControls(album, scene);
            continue;
        }
        for (std::int16_t sub = 0; sub < 4; ++sub) {
            scene.s.ActiveSubTab = sub;
            scene.Screen.ShowTab();
            const std::string subName = tabName + "-" + kSubTabNames[sub];
            album.Add(*scene.Form, subName);
            PictureControls(album, scene);
        }
    }
}

void PicturePad(Album& album) {
    MainScene scene(true);
    for (std::int16_t type = 0; type < 5; ++type) {
        scene.s.PadTypeIndex = type;
        scene.Screen.ShowPad();
        scene.Screen.ShowPadBall();
        scene.Screen.ShowTwist();
        album.Add(*scene.Form, "main-pad-type-" + std::to_string(type));
    }
}

void PictureMap(Album& album) {
    MainScene scene(true);
    SetTab(scene.s, kMapTab);
    scene.s.Use3D = true;
    MapEnable(scene.s, true);
    album.Add(*scene.Form, "main-map-on");
    PictureControls(album, scene);
}

void PictureModes(Album& album) {
    MainScene scene(true);
    for (const PlayMode mode : {kOneShot, kLoop, kTrack, kDrum}) {
        for (Row row = 0; row < kRows; ++row) {
            scene.s.Set[row].PlayMode = mode;
            scene.Screen.ShowPlayMode(row);
        }
        album.Add(*scene.Form, "main-mode-" + std::to_string(mode));
    }
    scene.Form->ToggleMode();
    album.Add(*scene.Form, "main-mini");
    scene.Form->ToggleMode();
    scene.SoundGone = true;
    scene.Form->WatchSound();
    album.Add(*scene.Form, "main-device-gone");
}

void PicturePopups(Album& album) {
    MainScene scene(true);
    scene.Screen.ShowSelectList(true);
    album.Add(scene.Find("SlctGroup"), "main-select-list");
    scene.Screen.ShowSelectList(false);
    scene.Screen.ShowQuickLoad();
    scene.Screen.ShowQuickLoadList(true);
    album.Add(scene.Find("QuickLoad"), "main-quick-load");
    scene.Screen.ShowQuickLoadList(false);
    for (const Row row : {Row{1}, kSelectionRow}) {
        scene.s.HistoryRow = row;
        scene.Screen.ShowHistoryList(true);
        album.Add(*scene.Form, "main-history-" + std::to_string(row));
        scene.Screen.ShowHistoryList(false);
    }
}

}  // namespace

void PictureMainWindow(Album& album) {
    {
        MainScene playing(true);
        PictureTabs(album, playing, "main");
    }
    {
        MainScene empty(false);
        PictureTabs(album, empty, "main-empty");
    }
    PicturePad(album);
    PictureMap(album);
    PictureModes(album);
    PicturePopups(album);
}

}  // namespace marvolin::test

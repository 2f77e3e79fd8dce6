#include <QLabel>
#include <QPainter>

#include "fakes/fake_world.h"
#include "forms.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/joystick/joystick_waiting.h"
#include "performance/map/use_3d.h"
#include "performance/pad/pad_tables.h"
#include "performance/tabs.h"
#include "scene.h"
#include "window/controls/level_meter.h"
#include "window/forms/frm_main.h"
#include "window/forms/toolbar.h"
#include "window/toolkit/drag.h"
#include "window/toolkit/theme.h"

namespace marvolin::test {

namespace {

constexpr const char* kTabNames[] = {"pad", "map", "pattern", "options"};
constexpr const char* kSubTabNames[] = {"joystick", "mouse", "scripting", "timing"};

struct MainScene : Scene {
    explicit MainScene(bool playing) : Playing(playing) {
        if (playing) Play();
        Form = std::make_unique<FrmMain>(
            s, FrmMain::Events{nullptr, nullptr, nullptr, [] { return 0.04; }, [this] { return SoundGone; },
                               [] {
                                   return SoundTiming{128, 9.796};
                               }});
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

/// What a set assigns waits, as no joystick is there.
void PictureJoystickAway(Album& album) {
    MainScene scene(true);
    SetTab(scene.s, kOptionTab);
    scene.s.ActiveSubTab = 0;
    scene.Screen.ShowTab();
    JoyUnplug(scene.s);
    JoyAssignAxis(scene.s, kMasterAxis, kAxisRX);
    album.Add(*scene.Form, "main-joystick-away");
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

void PictureSound(Album& album) {
    MainScene scene(true);
    scene.Output.Levels = {{15000, 30000}, false};
    scene.Form->Bar->Meter->Look(0);
    album.Add(*scene.Form, "main-level");
    scene.Output.Levels = {{26000, 32768}, true};
    scene.Form->Bar->Meter->Look(0);
    scene.Output.Path = "/home/player/Recordings/marvolin.wav";
    scene.Output.State.Frames = 754 * 44100;
    scene.s.RecordingFile = scene.Output.Path;
    scene.s.RecordingText = "12:34  133.0 MB";
    scene.Screen.ShowRecording();
    album.Add(*scene.Form, "main-recording");
    scene.Output.Silent = true;
    scene.Screen.ShowSilence();
    album.Add(*scene.Form, "main-silent");
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
    scene.Form->ToggleMode();
    scene.s.HistoryEntries.resize(40, "another sample");
    scene.s.HistoryRow = 2;
    scene.Screen.ShowHistoryList(true);
    album.Add(*scene.Form, "main-mini-history");
}

/// The small pictures that go with the pointer, one below the other.
void PictureDrags(Album& album) {
    MainScene scene(true);
    scene.s.HistoryChoice = 3;
    QPixmap sheet(260, 400);
    sheet.fill(theme::kWindow);
    QPainter p(&sheet);
    int top = 4;
    for (const DragSource& source : {DragSource{drags::kLetr, 0, "Dropper~~0"},
                                     {drags::kLetr, 3, "Dropper~~3"},
                                     {drags::kLetr, 1, kFadeTag},
                                     {drags::kPosBall, 2, kFadeTag},
                                     {drags::kDropDown, 0, ""},
                                     {drags::kHistoryList, 1, ""},
                                     {drags::kPatterns, 0, ""},
                                     {drags::kCloneTime, 2, ""},
                                     {drags::kPatternGraph, 0, ""},
                                     {drags::kTabControl, 0, ""}}) {
        p.drawPixmap(8, top, DragPicture(scene.s, source));
        top += 40;
    }
    p.end();
    QLabel shown;
    shown.setPixmap(sheet);
    shown.adjustSize();
    album.Add(shown, "main-drags");
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
    PictureJoystickAway(album);
    PictureModes(album);
    PictureSound(album);
    PicturePopups(album);
    PictureDrags(album);
}

}  // namespace marvolin::test

#include <QPushButton>

#include "forms.h"
#include "scene.h"
#include "window/forms/frm_save.h"
#include "window/forms/frm_splash.h"
#include "window/forms/frm_start_up_query.h"
#include "window/toolkit/qt_desktop.h"

namespace marvolin::test {

namespace {

void PictureSave(Album& album, bool playing) {
    Scene scene;
    if (playing) scene.Play();
    FrmSave form(scene.s);
    form.Open();
    const std::string name = playing ? "save" : "save-empty";
    album.Add(form, name);
    album.AddLists(form, name);
    album.AddFocused(form, name);
    form.findChild<QToolButton*>("ElementsFold")->click();
    album.Add(form, name + "-unfolded");
    if (!playing) return;
    for (const char* button : {"OpenIt", "SaveItAs"}) {
        album.AddDialogue([&] { form.findChild<QPushButton*>(button)->click(); }, name + "-file-" + button);
    }
}

void PictureBoxes(Album& album) {
    QtDesktop desktop;
    const auto box = [&](BoxStyle style, const std::string& text, const std::string& name) {
        album.AddDialogue([&] { desktop.MessageBox(text, "", style); }, "box-" + name);
    };
    box(BoxStyle::Plain, "There is no folder /samples/gone", "plain");
    box(BoxStyle::Critical, "Error playing loop\nOut of memory", "critical");
    box(BoxStyle::Question, "Are you sure you want to clear all the clips?", "question");
}

}  // namespace

void PictureDialogues(Album& album) {
    PictureSave(album, true);
    PictureSave(album, false);
    PictureBoxes(album);
    {
        FrmSplash splash;
        splash.show();
        album.Add(splash, "splash");
    }
    Scene scene;
    FrmStartUpQuery query(scene.s);
    query.show();
    album.Add(query, "start-up-query");
    album.AddFocused(query, "start-up-query");
}

}  // namespace marvolin::test

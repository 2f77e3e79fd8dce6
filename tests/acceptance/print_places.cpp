// Prints the position of each control of the main window, one per line: "name x y width height", in pixels from the
// window's inner corner; then those of the browser as "browse/name", of the Save/Open dialogue as "save/name", and of
// the window of scripts as "scripts/name". The layout is fixed, so the positions hold in the running program too, while
// the tab of the control is open.

#include <QApplication>
#include <QStackedWidget>
#include <cstdio>

#include "fakes/fake_services.h"
#include "scripting/script_room.h"
#include "window/editor/code_view_module.h"
#include "window/editor/frm_scripts.h"
#include "window/forms/frm_browse.h"
#include "window/forms/frm_main.h"
#include "window/forms/frm_save.h"
#include "window/toolkit/qt_display.h"
#include "window/toolkit/theme.h"

using namespace marvolin;

namespace {

void PrintControls(QWidget& form, const char* prefix) {
    form.show();
    // A page is laid out when it is shown for the first time.
    for (auto* pages : form.findChildren<QStackedWidget*>()) {
        for (int page = pages->count() - 1; page >= 0; --page) pages->setCurrentIndex(page);
    }
    for (const QWidget* control : form.findChildren<QWidget*>()) {
        if (control->objectName().isEmpty() || control->window() != &form) continue;
        const QPoint corner = control->mapTo(&form, QPoint(0, 0));
        std::printf("%s%s %d %d %d %d\n", prefix, qPrintable(control->objectName()), corner.x(), corner.y(),
                    control->width(), control->height());
    }
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    theme::Apply(application);

    QtDisplay display;
    test::FakeServices world;
    Session session{world.For(display)};
    FrmMain form(session, {});
    PrintControls(form, "");
    FrmBrowse browse(session);
    PrintControls(browse, "browse/");
    FrmSave save(session);
    PrintControls(save, "save/");
    std::string error;
    CodeViewMaker* maker = LoadCodeView(MARVOLIN_FOLDER, error);
    if (maker == nullptr) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 1;
    }
    ScriptRoom room;
    FrmScripts scripts(session, room, *maker);
    scripts.resize(FrmScripts::kSize);  // as it is where the screen leaves the room
    PrintControls(scripts, "scripts/");
    return 0;
}

#pragma once
/// \file
/// Every form of the program at once, and every dialogue while it is open.

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <string>

#include "browser_stage.h"
#include "plain_view.h"
#include "scripting/fake_script_control.h"
#include "window/editor/frm_scripts.h"
#include "window/editor/script_questions.h"
#include "window/forms/frm_save.h"
#include "window/forms/frm_splash.h"
#include "window/forms/frm_start_up_query.h"
#include "window/help/help_viewer.h"
#include "window/toolkit/qt_desktop.h"

namespace marvolin::test {

struct AllForms : Browser {
    using Visit = std::function<void(const std::string& form, QWidget& window)>;

    /// Visits each form, and each dialogue under the name "dialogues".
    void Each(const Visit& visit) {
        visit("frmMain", *Form);
        visit("frmBrowse", Window);
        visit("frmSave", Save);
        visit("frmScripts", Scripts);
        visit("frmSplash", Splash);
        visit("frmStartUpQuery", Query);
        visit("frmHelp", Help);
        EachDialogue([&](QWidget& dialogue) { visit("dialogues", dialogue); });
    }

    FrmSave Save{s};
    FakeScriptControl Engine;
    ScriptHost Host{Engine, Desk};
    ScriptRoom Room;
    PlainViews Views;
    FrmScripts Scripts{s, Room, Views};
    FrmSplash Splash;
    FrmStartUpQuery Query{s};
    HelpViewer Help;

private:
    void EachDialogue(const std::function<void(QWidget&)>& visit) {
        s.CurrentFolder = Own.Path() + "/";
        for (const char* opener : {"SaveItAs", "OpenIt"}) {
            WhileOpen(visit, [&] { Save.findChild<QPushButton*>(opener)->click(); });
        }
        QtDesktop desk;
        WhileOpen(visit, [&] { desk.MessageBox("Sure?", "Question", BoxStyle::Question); });
        WhileOpen(visit, [&] { AskUnsaved(Scripts, "song.mvs"); });
    }

    /// Visits the dialogue that `open` opens, and closes it.
    static void WhileOpen(const std::function<void(QWidget&)>& visit, const std::function<void()>& open) {
        QTimer hand;
        hand.callOnTimeout([&] {
            auto* dialogue = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialogue == nullptr) return;
            hand.stop();
            visit(*dialogue);
            dialogue->reject();
        });
        hand.start(0);
        open();
    }
};

}  // namespace marvolin::test

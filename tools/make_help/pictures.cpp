// Draws the pictures of Help from the real controls, with the demo in them: make_help_pictures TEXTS PROGRAMFOLDER.
// They are written into PROGRAMFOLDER/Help/pictures, one for each topic.

#include <QAbstractScrollArea>
#include <QApplication>
#include <QDialog>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTimer>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>

#include "browser/clipboard.h"
#include "browser/sample_bins.h"
#include "headless_world.h"
#include "pages.h"
#include "parameters/position.h"
#include "performance/map/sound_map.h"
#include "performance/map/use_3d.h"
#include "performance/selection/bands.h"
#include "performance/selection/selection.h"
#include "persistence/session_file_store.h"
#include "script_window.h"
#include "window/controls/folder_tree.h"
#include "window/descriptions/described.h"
#include "window/forms/browse_bins.h"
#include "window/forms/browse_clips.h"
#include "window/forms/frm_browse.h"
#include "window/forms/frm_main.h"
#include "window/forms/frm_save.h"
#include "window/forms/frm_splash.h"
#include "window/forms/frm_start_up_query.h"
#include "window/help/help_viewer.h"
#include "window/tabs/tab_control.h"
#include "window/tabs/tab_map.h"
#include "window/toolkit/qt_desktop.h"
#include "window/toolkit/strings.h"
#include "window/toolkit/theme.h"

using namespace marvolin;

namespace {

constexpr int kAround = 46;       // pixels of a control's surroundings in its picture
constexpr QSize kLeast(300, 96);  // of a picture
constexpr int kWidest = 560;      // wider pictures are made smaller

/// Everything that can be pictured.
class Forms {
public:
    Forms(Session& session, const std::string& folder)
        : s(session),
          help_(folder + "/Help/marvolin.chm"),
          main_(session, FrmMain::Events{}),
          browse_(session),
          save_(session),
          scripts_(session, folder),
          query_(session) {
        browse_.Bins->RefreshDestinations();
        for (int bin = 0; bin < kBins; ++bin) browse_.Bins->RefreshBin(bin);
        browse_.Clips->Refresh();
        save_.Refresh();
        for (QWidget* form : All()) form->setVisible(form != &viewer_);
        Settle();
    }

    /// The control with this object name, shown; null when no form has it.
    QWidget* Show(const QString& name) {
        for (QWidget* form : All()) {
            QWidget* found = form->objectName() == name ? form : form->findChild<QWidget*>(name);
            if (found == nullptr) continue;
            // Only now, when the pictures of its page have been drawn.
            if (form == &viewer_ && !viewer_.isVisible()) viewer_.Open(help_, 10023, nullptr);
            Reveal(*found);
            return found;
        }
        return nullptr;
    }

    /// Shows a control of a dialogue while it is open.
    bool InDialogue(const QString& name, const std::function<void(QWidget&)>& picture) {
        return WhileOpen(name, picture, [&] { save_.findChild<QPushButton*>("OpenIt")->click(); }) ||
               WhileOpen(name, picture, [&] { save_.findChild<QPushButton*>("SaveItAs")->click(); }) ||
               WhileOpen(
                   name, picture,
                   [&] { desktop_.MessageBox("Clear all items from clipboard?", "Clear?", BoxStyle::Question); }) ||
               WhileOpen(name, picture, [&] { scripts_.AskUnsaved(); });
    }

    static void Settle() {
        for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
    }

private:
    std::vector<QWidget*> All() { return {&main_, &browse_, &save_, &scripts_.Form(), &splash_, &query_, &viewer_}; }

    void Reveal(QWidget& widget) {
        const QString name = widget.objectName();
        for (QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
            const QStringList tabs{"MixPadPage", "MapPage", "PatternPage", "OptionPage"};
            const auto tab = tabs.indexOf(at->objectName());
            if (tab >= 0) s.ActiveTab = static_cast<std::int16_t>(tab);
            if (at->objectName().startsWith("OptionSubPage_")) {
                s.ActiveSubTab = static_cast<std::int16_t>(at->objectName().back().digitValue());
            }
            if (auto* pages = qobject_cast<QStackedWidget*>(at->parentWidget())) {
                browse_.findChild<QTabBar*>("Sstab")->setCurrentIndex(pages->indexOf(at));
            }
        }
        main_.Tabs->Refresh();
        scripts_.Reveal(name);
        if (name.startsWith("Elements_") && !widget.isVisible()) {
            save_.findChild<QAbstractButton*>("ElementsFold")->click();
        }
        if (name == "SlctGroup") main_.ShowSelectList(true);
        if (name == "QuickLoad") main_.ShowQuickLoad(true);
        if (name == "HistoryList") main_.ShowHistoryList(true);
        if (name == "FolderTreeview1") browse_.Bins->Tree->show();
        Settle();
    }

    static bool WhileOpen(const QString& name, const std::function<void(QWidget&)>& picture,
                          const std::function<void()>& open) {
        bool done = false;
        QTimer hand;
        hand.callOnTimeout([&] {
            const QPointer dialogue = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialogue == nullptr) return;
            hand.stop();
            Settle();
            if (dialogue == nullptr) return;  // it has ended by itself
            QWidget* found = dialogue->objectName() == name ? dialogue : dialogue->findChild<QWidget*>(name);
            if (found != nullptr) picture(*found);
            done = found != nullptr;
            dialogue->reject();
        });
        hand.start(0);
        open();
        return done;
    }

    Session& s;
    const std::string help_;  // the help file
    FrmMain main_;
    FrmBrowse browse_;
    FrmSave save_;
    help::ScriptWindow scripts_;
    FrmSplash splash_;
    FrmStartUpQuery query_;
    HelpViewer viewer_;
    QtDesktop desktop_;
};

/// A control with a frame around it, in its surroundings, which are darker.
QImage PictureOf(QWidget& control) {
    QWidget& form = *control.window();
    const QImage whole = form.grab().toImage();
    const QRect place(control.mapTo(&form, QPoint(0, 0)), control.size());
    QRect shown = place.adjusted(-kAround, -kAround, kAround, kAround);
    if (shown.width() < kLeast.width())
        shown.adjust(-(kLeast.width() - shown.width()) / 2, 0, (kLeast.width() - shown.width()) / 2, 0);
    shown = shown.intersected(whole.rect());
    QImage picture = whole.copy(shown);
    const QRect framed = place.translated(-shown.topLeft());
    if (!framed.contains(picture.rect())) {
        QPainter p(&picture);
        p.setRenderHint(QPainter::Antialiasing);
        const QRegion around = QRegion(picture.rect()) - QRegion(framed.adjusted(-3, -3, 3, 3));
        p.setClipRegion(around);
        p.fillRect(picture.rect(), QColor(0, 0, 0, 120));
        p.setClipping(false);
        p.setPen(QPen(theme::kAccent, 2));
        p.drawRoundedRect(QRectF(framed).adjusted(-3, -3, 3, 3), 5, 5);
    }
    return picture.width() > kWidest ? picture.scaledToWidth(kWidest, Qt::SmoothTransformation) : picture;
}

void Write(QWidget& control, const std::string& path) {
    const QImage picture = PictureOf(control);
    if (picture.isNull() || !picture.save(QString::fromStdString(path)))
        throw std::runtime_error("cannot write " + path);
}

/// A player may have put the demo away; without any the pictures show empty rows.
void LoadDemo(Session& s, const std::string& folder) {
    SessionFileStore store;
    clsSwitchRecord all;
    all.SetSwitch(true);
    for (const char* demo : {"/startup.mvp", "/disabledstartup.mvp"}) {
        if (store.LoadSession(s, folder + demo, SetAsCurrent::No, all, AdoptSwitches::No)) return;
    }
}

/// The demo, with a band, a selection, clips and folders beside it.
void SetUp(Session& s, const std::string& folder, const std::string& sets) {
    LoadDemo(s, folder);
    s.TodayLabel = "Mar 14";
    s.Drivers = {"Primary Sound Driver", "No Sound"};
    SetBand(s, 0, {1, 2});
    s.Set[0].Selected = s.Set[3].Selected = True;
    s.ActiveTab = kPatternTab;  // times and lanes are made while their tab is open
    SetCurrentLoop(s, 1, OpenPattern::No);
    s.Use3D = true;  // the map as it looks while 3D sound is on
    MapEnable(s, true);
    constexpr float kPlaces[][2] = {{0.0F, 0.7F}, {-0.8F, 0.4F}, {0.9F, 0.6F}, {-0.5F, -0.8F}, {0.0F, 0.0F}};
    for (int ball = 0; ball <= kListenerBall; ++ball) {
        PositionSet(s, ball, kPlaces[ball][0], kPlaces[ball][1], {.Apply = false, .StoreBall = true});
    }
    for (const Row row : {Row{0}, Row{1}, Row{2}}) {
        s.Clips.ClipStaging = s.Set[row];
        AddNewClip(s);
    }
    s.HistoryRow = 1;
    s.HistoryEntries = {"<Close>", "<Empty Looptrack>", "<Reverse Looptrack>", "Bass pulse D", "Bass deep D"};
    s.QuickLoadEnabled = true;
    s.QuickLoadRows = {"<Close>", "Friday 001", "Friday 002", "slow one"};
    s.QuickLoadTag = kLeftButton;
    s.CurrentFile = s.DialogueFile = "slow one.mvn";
    s.CurrentFolder = sets + "/";
    s.SaveItEnabled = true;
    s.SaveOpenSwitches[0].SetSwitch(true);
    s.SaveOpenSwitches[1].SetSwitch(true);
    s.StatusText.clear();
}

int Draw(const std::string& texts, const std::string& folder) {
    headless::World world(folder);
    if (!world.Started) throw std::runtime_error("the instrument does not start");
    const std::string sets = (std::filesystem::temp_directory_path() / "Marvolin sets").string();
    std::filesystem::create_directories(sets);
    for (const char* set : {"Friday 001.mvn", "Friday 002.mvn", "slow one.mvn"}) std::ofstream(sets + "/" + set) << set;
    SetUp(world.s, folder, sets);
    const std::string pictures = folder + "/Help/pictures";
    std::filesystem::create_directories(pictures);
    Forms forms(world.s, folder);
    int drawn = 0;
    for (const std::int32_t topic : help::PicturesOf(help::ReadTexts(texts))) {
        int index = -1;
        const std::string control = help::ControlOf(topic, index);
        const QString name = ToQString(ObjectNameOf(control, index));
        const std::string path = pictures + "/" + std::to_string(topic) + ".png";
        if (QWidget* found = forms.Show(name)) {
            Write(*found, path);
            while (QWidget* popup = QApplication::activePopupWidget()) popup->hide();
        } else if (!forms.InDialogue(name, [&](QWidget& part) { Write(part, path); })) {
            // The build goes on: `help_test` names each picture that is missing.
            std::fprintf(stderr, "make_help_pictures: no form has the control %s\n", qPrintable(name));
            continue;
        }
        ++drawn;
    }
    std::filesystem::remove_all(sets);
    std::printf("%d pictures\n", drawn);
    return 0;
}

/// A build has no screen and often no session folder; it need not say so for every picture.
void LeaveOutThePlatform(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (text.startsWith("This plugin does not support") || text.startsWith("QStandardPaths")) return;
    std::fprintf(stderr, "%s\n", qPrintable(text));
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(LeaveOutThePlatform);
    QApplication application(argc, argv);
    QApplication::setApplicationVersion("");
    theme::Apply(application);
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_help_pictures TEXTS PROGRAMFOLDER\n");
        return 2;
    }
    try {
        return Draw(argv[1], std::filesystem::absolute(argv[2]).string());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "make_help_pictures: %s\n", e.what());
        return 1;
    }
}

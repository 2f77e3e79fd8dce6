#include "whole_hand.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QComboBox>
#include <QDialog>
#include <QStackedWidget>
#include <QTreeView>
#include <QWindow>
#include <utility>

#include "browser/bin_gestures.h"
#include "browser/clipboard.h"
#include "browser/destinations.h"
#include "parameters/position.h"
#include "performance/drops/palette.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/map/sound_map.h"
#include "performance/map/use_3d.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "performance/selection/bands.h"
#include "performance/tabs.h"
#include "persistence/quick_load.h"
#include "sequencing/patterns.h"
#include "window/controls/control.h"
#include "window/tabs/tab_mix_pad.h"

namespace marvolin::test {

namespace {

bool IsHandled(const QWidget& widget) {
    return dynamic_cast<const Control*>(&widget) != nullptr || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractSlider*>(&widget) ||
           qobject_cast<const QAbstractItemView*>(&widget) || qobject_cast<const QTabBar*>(&widget);
}

/// The lists that open over the windows.
constexpr const char* kLists[] = {"HistoryList", "SlctGroup", "QuickLoad", "FolderTreeview1"};

QWidget& Pointed(QWidget& widget) {
    auto* scrolled = qobject_cast<QAbstractScrollArea*>(&widget);
    return scrolled == nullptr ? widget : *scrolled->viewport();
}

/// The entry of a list that a press is made on: the folder that a tree shows, or the last entry.
QModelIndex EntryOf(const QAbstractItemView& list) {
    const bool tree = qobject_cast<const QTreeView*>(&list) != nullptr;
    return tree ? list.currentIndex() : list.model()->index(list.model()->rowCount() - 1, 0);
}

}  // namespace

WholeHand::WholeHand() {
    PadGeometryInit(s, TabMixPad::InnerWidth(), TabMixPad::InnerHeight());
    PadListInit(s);
    PadTablesInit(s);
    MapInit(s);
    InitDirectInput(s);
    InitPatternTables(s);
    for (Row row = 0; row < kLoopTracks; ++row) {
        Fill(row);
        LoopTrackSet& set = s.Set[row];
        set.Vol = static_cast<std::int16_t>(100 + row);
        set.Pan = static_cast<std::int16_t>(300 + row);
        set.Hz = static_cast<std::int16_t>(900 + row);
        set.PlayMode = row;  // One Shot, Loop, Track, Drum
        s.SndDisp[row] = {set.Vol, set.Vol, 0};
    }
    SetBand(s, 0, {0, 1});
    s.Set[0].Selected = s.Set[2].Selected = True;
    s.Use3D = true;
    MapEnable(s, true);
    s.Use3D = false;  // the knobs of the pan stay enabled
    for (int ball = 0; ball <= kListenerBall; ++ball) {
        PositionSet(s, ball, static_cast<float>(0.5 * (ball - 2)), 0.75F, {.Apply = false, .StoreBall = true});
    }
    for (Row row = 0; row < 2; ++row) ClipBoardList_DragDrop(s, {drags::kDropDown, row, ""});
    s.History[0] = {(Folder / "one.wav").string()};
    for (const char* set : {"night.mvn", "noon.mvn"}) Own.Touch(set);
    s.CurrentFolder = Own.Path() + "/";
    s.CurrentFile = s.DialogueFile = "night.mvn";
    s.SaveItEnabled = true;
    UpdateQuickLoad(s);
    Screen.Attach(&Save);
    Save.Open();
    s.Bins[0].Destination = kDragDestination;
    s.Bins[1].Destination = 3;
    s.Bins[2].Destination = 4;
    Window.Bins->RefreshDestinations();
    Form->move(0, 0);
    Window.move(0, 0);
    Save.move(0, 0);
    for (Row row = 0; row <= kSelectionRow; ++row) Screen.ShowEnabled(row);
    canceller_.callOnTimeout([this] {
        QDrag::cancel();
        auto* asked = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (asked == nullptr || answering_) return;
        ++dialogues_;
        answering_ = true;
        if (OnDialogue) OnDialogue(*asked);
        answering_ = false;
        asked->reject();
    });
    watch_.Drags = &Drags;
    qApp->installEventFilter(&watch_);
    Settle();
    made_.emplace(s);
}

WholeHand::~WholeHand() {
    Screen.Attach(static_cast<FrmSave*>(nullptr));
    qApp->removeEventFilter(&watch_);
}

bool WholeHand::DragWatch::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::DeferredDelete) return false;
    const auto* drag = dynamic_cast<const QDrag*>(object);
    if (drag == nullptr || drag->mimeData() == nullptr) return false;
    if (const auto source = FromMimeData(*drag->mimeData())) {
        Drags->push_back(*source);
    } else {
        for (const std::string& path : FilePaths(*drag->mimeData())) Drags->push_back({"FolderTreeview1", 0, path});
    }
    return false;
}

std::vector<QWidget*> WholeHand::Controls() {
    Begin();
    std::vector<QWidget*> controls;
    for (QWidget* window : std::initializer_list<QWidget*>{Form.get(), &Window, &Save}) {
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            if (DescribedOf(*widget) == nullptr || !IsHandled(*widget)) continue;
            CloseLists();
            Reveal(*widget);
            if (widget->isVisible() && widget->isEnabled() && SpotOn(*widget).Widget != nullptr) {
                controls.push_back(widget);
            }
        }
    }
    return controls;
}

QWidget& WholeHand::Named(const char* name) {
    QWidget* found = nullptr;
    for (const QWidget* window : std::initializer_list<const QWidget*>{Form.get(), &Window, &Save}) {
        if (found == nullptr) found = window->findChild<QWidget*>(name);
    }
    EXPECT_NE(found, nullptr) << name;
    return *found;
}

void WholeHand::OpenList(QWidget& list) {
    if (list.isVisible()) return;
    const QString name = list.objectName();
    if (name == "HistoryList") {
        DropDown_MouseUp(s, 0, At("DropDown_0")->height() * kTwipsPerPixel);
    } else if (name == "SlctGroup") {
        Screen.ShowSelectList(true);
    } else if (name == "QuickLoad") {
        QuickLoadPop_MouseUp(s, kLeftButton);
    } else if (auto* tree = qobject_cast<QTreeView*>(&list)) {
        PickDir_Click(s, 0);
        // The folders are read in the background.
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                const QRect shown = tree->visualRect(tree->currentIndex());
                return tree->currentIndex().isValid() && tree->viewport()->rect().contains(shown);
            },
            5000));
    }
}

void WholeHand::CloseLists() {
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    Screen.ShowHistoryList(false);
    Screen.ShowFolderTree(false);
}

std::vector<std::string> WholeHand::OpenLists() {
    std::vector<std::string> open;
    for (const char* list : kLists) {
        if (Named(list).isVisible()) open.emplace_back(list);
    }
    return open;
}

std::vector<std::string> WholeHand::Shown() {
    std::vector<std::string> shown = OpenLists();
    for (const QAbstractButton* button : Save.findChildren<QAbstractButton*>()) {
        if (button->isChecked()) shown.push_back(button->objectName().toStdString());
    }
    for (int i = 1; i <= dialogues_; ++i) shown.push_back("dialogue " + std::to_string(i));
    return shown;
}

void WholeHand::Reveal(QWidget& widget) {
    const auto before = std::pair(s.ActiveTab, s.ActiveSubTab);
    for (QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
        const std::string name = at->objectName().toStdString();
        const std::vector<std::string> tabs{"MixPadPage", "MapPage", "PatternPage", "OptionPage"};
        for (std::size_t tab = 0; tab < tabs.size(); ++tab) {
            if (name == tabs[tab]) s.ActiveTab = static_cast<std::int16_t>(tab);
        }
        if (name.starts_with("OptionSubPage_")) s.ActiveSubTab = static_cast<std::int16_t>(name.back() - '0');
        if (auto* pages = qobject_cast<QStackedWidget*>(at->parentWidget())) {
            dynamic_cast<QTabBar&>(Part("Sstab")).setCurrentIndex(pages->indexOf(at));
        }
    }
    if (widget.objectName() == "TabControl" || widget.objectName() == "Tab_2") s.ActiveTab = kPatternTab;
    OpenList(widget);
    const bool element = widget.objectName().startsWith("Elements_");
    if (element && !widget.isVisible()) Save.findChild<QAbstractButton*>("ElementsFold")->click();
    const bool shown = widget.isVisible() && widget.window()->isActiveWindow();
    if (shown && before == std::pair(s.ActiveTab, s.ActiveSubTab)) return;
    widget.window()->activateWindow();
    Screen.ShowTab();
    Settle();
}

Spot WholeHand::SpotOn(QWidget& widget) {
    QWidget& pointed = Pointed(widget);
    QWidget& window = *widget.window();
    if (const auto* list = qobject_cast<QAbstractItemView*>(&widget)) {
        const QRect entry = list->visualRect(EntryOf(*list));
        const QPoint inWindow = pointed.mapTo(&window, QPoint(entry.left() + 20, entry.center().y()));
        if (window.childAt(inWindow) == &pointed) return {&widget, QPointF(inWindow)};
        return {};
    }
    for (const double down : {0.1, 0.5, 0.9, 0.03}) {
        for (const double across : {0.5, 0.02, 0.3, 0.7, 0.98}) {
            const QPointF place(pointed.width() * across, pointed.height() * down);
            const QPoint inWindow = pointed.mapTo(&window, place.toPoint());
            if (window.childAt(inWindow) == &pointed) return {&widget, QPointF(inWindow)};
        }
    }
    return {};
}

void WholeHand::PressAt(const Spot& spot, Qt::MouseButton button, QPointF way) {
    QTest::mousePress(spot.Widget->window()->windowHandle(), button, {}, (spot.Place + way).toPoint());
}

void WholeHand::MoveTo(const Spot& spot, QPointF way) {
    QTest::mouseMove(spot.Widget->window()->windowHandle(), (spot.Place + way).toPoint());
}

void WholeHand::ReleaseAt(const Spot& spot, Qt::MouseButton button, QPointF way) {
    QTest::mouseRelease(spot.Widget->window()->windowHandle(), button, {}, (spot.Place + way).toPoint());
}

void WholeHand::ClickAt(const Spot& spot, Qt::MouseButton button) {
    PressAt(spot, button);
    ReleaseAt(spot, button);
}

void WholeHand::DoubleClickAt(const Spot& spot, Qt::MouseButton button) {
    // The second press goes to what is under the pointer then. A press on a list that opens over the window reaches it
    // by the window, too.
    QWidget* window = spot.Widget->window();
    QPoint place = spot.Place.toPoint();
    if (window->windowType() == Qt::Popup) {
        place = Form->mapFromGlobal(window->mapToGlobal(place));
        window = Form.get();
    }
    QTest::mouseDClick(window->windowHandle(), button, {}, place);
}

void WholeHand::LookAway() {
    for (QWidget* window : std::initializer_list<QWidget*>{Form.get(), &Window, &Save})
        window->setUpdatesEnabled(false);
}

void WholeHand::Begin() {
    CloseLists();
    if (s.MiniMode) Click("ToTop");
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Run[row].Buffer) s.Run[row].Buffer->Stop();
    }
    made_->PutBack(s);
    Screen.ShowTab();
    Screen.ShowPad();
    Screen.ShowMapControls();
    Screen.ShowOptions();
    Screen.ShowJoystick();
    for (int bin = 0; bin < kBins; ++bin) Screen.ShowBin(bin);
    Screen.ShowDestinations();
    Screen.ShowClips();
    FinishDrags();
    Drags.clear();
    Sound.Log.clear();
    Desk.Log.clear();
    Desk.Boxes.clear();
    Forms.Log.clear();
    Store.Log.clear();
    Screen.ShowSaveOpen();
    dialogues_ = 0;
    canceller_.start(0);
}

void WholeHand::FinishDrags() {
    Settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace marvolin::test

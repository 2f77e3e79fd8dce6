#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <algorithm>

#include "invariants.h"
#include "window/descriptions/described.h"
#include "window/forms/frm_main.h"
#include "window/screens/kept_windows.h"
#include "window/screens/program_size.h"

namespace marvolin::hand {

namespace {

std::string Shows(const QWidget& widget, const std::string& shown, const std::string& held) {
    return widget.objectName().toStdString() + " shows " + shown + ", the session has " + held;
}

/// What a list shows as chosen, by its name. Lists that are not in it are looked at by their texts alone.
std::string WrongChoice(const World& world, const QComboBox& list) {
    const Session& s = world.s;
    const QString name = list.objectName();
    const auto differs = [&](int entry) {
        return list.currentIndex() == entry ? ""
                                            : Shows(list, std::to_string(list.currentIndex()), std::to_string(entry));
    };
    if (name == "cboDrivers") return differs(s.Driver);
    if (name == "DragAxisSelect") return differs(s.DragAxis);
    if (name == "PadType") return differs(s.PadTypeIndex);
    if (name == "SetChannel") return differs(s.SetChannelChoice);
    if (name == "PosMacros") return differs(s.PosMacro);
    // It shows what was chosen, also while that waits.
    if (name == "ProgramSize" && !world.Keeper.Waits())
        return differs(static_cast<int>(std::ranges::find(kProgramSizes, world.Keeper.Size()) - kProgramSizes.begin()));
    for (int bin = 0; bin < kBins; ++bin) {
        if (name == QString("FileDestination_%1").arg(bin)) return differs(s.Bins[bin].Destination);
    }
    return "";
}

std::string WrongControl(const World& world, const QWidget& widget) {
    const Described* described = DescribedOf(widget);
    if (described == nullptr) return "";
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    if (button != nullptr && button->isCheckable() && described->HasState() && button->isChecked() != described->On())
        return Shows(widget, button->isChecked() ? "on" : "off", described->On() ? "on" : "off");
    if (const auto* slider = qobject_cast<const QAbstractSlider*>(&widget)) {
        const ControlScale scale = described->Scale();
        if (scale.Step > 0 && slider->value() != static_cast<int>(scale.Now))
            return Shows(widget, std::to_string(slider->value()), std::to_string(scale.Now));
    }
    if (const auto* list = qobject_cast<const QComboBox*>(&widget)) return WrongChoice(world, *list);
    if (widget.objectName() == "ClipBoardList") {
        const auto* clips = qobject_cast<const QListWidget*>(&widget);
        if (clips != nullptr && clips->count() != static_cast<int>(world.s.Clips.List.size()))
            return Shows(widget, std::to_string(clips->count()), std::to_string(world.s.Clips.List.size()));
    }
    return "";
}

std::string WrongPage(World& world) {
    static constexpr const char* kPages[] = {"MixPadPage", "MapPage", "PatternPage", "OptionPage"};
    for (int tab = 0; tab < kTabs; ++tab) {
        const auto* page = world.Main().findChild<QWidget*>(kPages[tab]);
        if (page != nullptr && page->isVisibleTo(page->parentWidget()) != (tab == world.s.ActiveTab))
            return std::string(kPages[tab]) + " is open, the session has tab " + std::to_string(world.s.ActiveTab);
    }
    const std::string title = world.Main().windowTitle().toStdString();
    if (title != world.s.Title && title != world.s.Title + "*")
        return "the window is called " + title + ", the session " + world.s.Title;
    return "";
}

}  // namespace

std::string WrongShown(World& world) {
    if (world.Closed()) return "";
    for (const QPointer<QWidget>& control : world.Controls()) {
        if (control.isNull()) continue;
        const std::string wrong = WrongControl(world, *control);
        if (!wrong.empty()) return wrong;
    }
    return WrongPage(world);
}

// By its title bar, as a player gets hold of it.
std::string WrongPlace(const World& world) {
    for (const QWidget* window : world.Windows()) {
        if (!IsKept(*window) || window->isMinimized() || window->isMaximized()) continue;
        const QRect title(window->frameGeometry().topLeft(), QSize(window->width(), kTitleRoom));
        const auto onIt = [&](const ScreenArea& screen) { return screen.Free.intersects(title); };
        if (std::none_of(world.Screens.begin(), world.Screens.end(), onIt))
            return window->objectName().toStdString() + " is on none of the screens";
    }
    return "";
}

std::string OpenGesture(World& world) {
    const Session& s = world.s;
    if (s.Drag.Dragging != False) return "a drag of a knob is open";
    if (s.Drag.DragPlayModeRow != -1) return "a drag of a play mode is open";
    if (s.SelectDragTag != kNoButton) return "a drag over the selection is open";
    if (s.BandDrag.Lane != -1) return "a drag of a band is open";
    if (s.PatternDrawRow != -1 || s.PatternRandomRow != -1) return "a drawing of a pattern is open";
    if (!s.CursorFree) return "a ball is held";
    // At the end of a drag of the limit, not before.
    if (s.Limit < 4 && static_cast<int>(s.ThinList.size()) > s.Limit) return "more rows sound than the limit allows";
    if (world.Desk.Caged) return "the pointer is kept in a rectangle";
    if (QApplication::mouseButtons() != Qt::NoButton) return "the toolkit knows of a button that is down";
    if (QWidget::mouseGrabber() != nullptr)
        return "the pointer belongs to " + QWidget::mouseGrabber()->objectName().toStdString();
    return "";
}

std::string WrongBox(World& world, const Answers& answers) {
    if (answers.Waiting()) return "something still waits for an answer";
    if (QApplication::activeModalWidget() != nullptr) return "a box is open";
    if (!world.Desk.FaultInABox.empty()) return "a box said: " + world.Desk.FaultInABox;
    if (world.Desk.Ended) return "the program has ended itself";
    if (world.s.BusyPointers != 0) return "the pointer is still the busy one";
    if (QApplication::overrideCursor() != nullptr) return "the shape of the pointer is not put back";
    return "";
}

}  // namespace marvolin::hand

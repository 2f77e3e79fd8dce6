#include "window/tabs/tab_options.h"

#include <QLabel>
#include <QPainter>
#include <QSignalBlocker>
#include <QSlider>

#include "audio/device.h"
#include "audio/output_list.h"
#include "core/help.h"
#include "parameters/knob_gesture.h"
#include "parameters/scroll_events.h"
#include "sequencing/loop_clock.h"
#include "window/controls/choice.h"
#include "window/controls/text_button.h"
#include "window/descriptions/described.h"
#include "window/screens/size_choice.h"
#include "window/tabs/options_joystick.h"
#include "window/tabs/tab_control.h"
#include "window/toolkit/strings.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr QRect kSubPage{306, 40, 704, 266};

QSlider* MakeSlider(QWidget* parent, int low, int high, const QRect& place) {
    auto* slider = new QSlider(Qt::Horizontal, parent);  // belongs to `parent`
    slider->setRange(low, high);
    slider->setGeometry(place);
    return slider;
}

}  // namespace

TabOptions::TabOptions(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    Describe(s, *this, "OptionPage");
    MakeLeftSide();
    MakeSubTabs();
    Refresh();
    RefreshDrivers();
}

void TabOptions::MakeLeftSide() {
    MakeLabel(this, "Sound driver", {20, 14, 200, 18});
    drivers_ = new ChoiceList(s, this, "cboDrivers", -1,
                              [this](int entry) { cboDrivers_Click(s, static_cast<std::int16_t>(entry)); });
    drivers_->setGeometry(20, 36, 266, 30);
    reset_ = new ChoiceBox(s, this, "ResetVars", -1, [this](bool on) { s.ResetVars = on; });
    reset_->setGeometry(20, 84, 266, 26);
    play_ = new ChoiceBox(s, this, "PlayOnLoad", -1, [this](bool on) { s.PlayOnLoad = on; });
    play_->setGeometry(20, 114, 266, 26);
    MakeLabel(this, "Size", {20, 154, 200, 18});
    Size = new SizeChoice(s, this);
    Size->setGeometry(20, 176, 266, 30);
    auto* help = new TextButton(s, this, "OptionHelp",
                                [this] { ShowHelp(s, kHelpDragName, DescriptionOf("OptionHelp").Topic); });
    help->setGeometry(20, 270, 84, 30);
}

void TabOptions::MakeSubTabs() {
    for (int tab = 0; tab < 4; ++tab) {
        auto* caption = new TabButton(s, this, TabStrip::Options, tab);
        caption->setGeometry(kSubPage.left() + tab * 98, kSubPage.top() - 26, 96, 26);
        captions_.push_back(caption);
        auto* page = new QWidget(this);
        Describe(s, *page, "OptionSubPage", tab);
        page->setGeometry(kSubPage);
        pages_[static_cast<std::size_t>(tab)] = page;
    }
    MakeJoystick(pages_[0]);
    MakeMouse(pages_[1]);
    MakeScripting(pages_[2]);
    MakeTiming(pages_[3]);
}

void TabOptions::MakeJoystick(QWidget* page) {
    joystick_ = new OptionsJoystick(s, page);
    joystick_->setGeometry(page->rect());
}

void TabOptions::RefreshJoystick() { joystick_->Refresh(); }

void TabOptions::MakeMouse(QWidget* page) {
    MakeLabel(page, "Knobs follow a drag", {20, 18, 240, 18});
    axis_ = new ChoiceList(s, page, "DragAxisSelect", -1,
                           [this](int entry) { DragAxisSelect_Click(s, static_cast<std::int16_t>(entry)); });
    axis_->addItems(ToQStrings(kDragAxes));
    axis_->setGeometry(20, 40, 240, 30);
    MakeLabel(page, "Update 3d position while moving:", {300, 18, 320, 18});
    for (int member = 0; member < 3; ++member) {
        auto* box = new ChoiceBox(s, page, "PositionUpdate", member,
                                  [this, member](bool on) { s.PositionUpdate[member] = on; });
        box->setGeometry(300, 40 + member * 30, 300, 26);
        update_[static_cast<std::size_t>(member)] = box;
    }
}

void TabOptions::MakeScripting(QWidget* page) {
    constexpr std::array<const char*, 2> kTexts{"Knobs", "Sound map"};
    for (int member = 0; member < 2; ++member) {
        const int top = 18 + member * 84;
        MakeLabel(page, kTexts[static_cast<std::size_t>(member)], {20, top, 120, 18});
        auto* slider = MakeSlider(page, 1, kMostScrollMoves, {20, top + 20, 360, 26});
        Describe(s, *slider, "ScrollSensitivity", member);
        connect(slider, &QSlider::valueChanged, this, [this, member](int value) {
            ScrollSensitivity_Change(s, member, value);
            Refresh();
        });
        sensitivity_[static_cast<std::size_t>(member)] = slider;
        auto* text = new QLabel(page);
        text->setGeometry(20, top + 48, 360, 20);
        sensitivityText_[static_cast<std::size_t>(member)] = text;
    }
}

void TabOptions::MakeTiming(QWidget* page) {
    MakeLabel(page, "Interval of the step clock", {20, 18, 300, 18});
    resolution_ = MakeSlider(page, 1, 100, {20, 38, 360, 26});
    Describe(s, *resolution_, "ResSlider");
    connect(resolution_, &QSlider::valueChanged, this, [this](int value) {
        ResSlider_Change(s, static_cast<std::int16_t>(value));
        Refresh();
    });
    resolutionText_ = new QLabel(page);
    Describe(s, *resolutionText_, "ResReadout");
    resolutionText_->setGeometry(20, 66, 360, 20);
}

void TabOptions::Refresh() {
    reset_->Show(s.ResetVars);
    play_->Show(s.PlayOnLoad);
    axis_->Show(s.DragAxis == 0 ? 0 : 1);
    for (int member = 0; member < 3; ++member) {
        update_[static_cast<std::size_t>(member)]->Show(s.PositionUpdate[member]);
    }
    const QSignalBlocker quietResolution(resolution_);
    resolution_->setValue(s.TimingRes);
    resolutionText_->setText(QString::fromStdString(TimingResText(s)));
    for (std::size_t member = 0; member < 2; ++member) {
        const QSignalBlocker quiet(sensitivity_[member]);
        sensitivity_[member]->setValue(s.ScrollSensitivity[member]);
        sensitivityText_[member]->setText(QString::fromStdString(DescribedOf(*sensitivity_[member])->Hint(0, false)));
    }
    for (std::size_t tab = 0; tab < pages_.size(); ++tab) {
        pages_[tab]->setVisible(static_cast<std::int16_t>(tab) == s.ActiveSubTab);
    }
    for (TabButton* caption : captions_) caption->update();
}

void TabOptions::RefreshDrivers() {
    // A device that comes and goes does not close the list under the hand for nothing.
    drivers_->SetEntries(ToQStrings(ShownOutputs(s)));
    drivers_->Show(s.Driver);
}

void TabOptions::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x22, 0x25, 0x2a));
    p.drawRoundedRect(kSubPage, 6, 6);
}

}  // namespace marvolin

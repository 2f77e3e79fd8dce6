#include "window/tabs/tab_options.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QSlider>

#include "audio/device.h"
#include "core/routines.h"
#include "parameters/knob_gesture.h"
#include "parameters/scroll_events.h"
#include "sequencing/loop_clock.h"
#include "window/controls/choice.h"
#include "window/controls/text_button.h"
#include "window/tabs/options_joystick.h"
#include "window/tabs/tab_control.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr std::array<const char*, 4> kSubTabs{"Joystick", "Mouse", "Scripting", "Timing"};
constexpr QRect kSubPage{306, 40, 704, 266};

void Name(QWidget* widget, const char* name, const QString& label) {
    widget->setObjectName(name);
    widget->setAccessibleName(label);
    widget->setToolTip(label);
}

QLabel* Caption(QWidget* parent, const QString& text, const QRect& place) {
    auto* label = new QLabel(text, parent);
    label->setStyleSheet("color: #9aa2ad; background: transparent;");
    label->setFont(theme::Sans(12));
    label->setGeometry(place);
    return label;
}

QSlider* Gauge(QWidget* parent, const char* name, const QString& label, int low, int high, const QRect& place) {
    auto* slider = new QSlider(Qt::Horizontal, parent);
    Name(slider, name, label);
    slider->setRange(low, high);
    slider->setGeometry(place);
    return slider;
}

QString SensitivityText(int moves) { return QString("Send scroll event every %1 moves").arg(moves); }

void OptionSubTabs_Click(Session& s, std::int16_t tab) {
    s.ActiveSubTab = tab;
    s.World.Screen.ShowTab();
}

}  // namespace

TabOptions::TabOptions(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    setObjectName("OptionPage");
    MakeLeftSide();
    MakeSubTabs();
    Refresh();
    RefreshDrivers();
}

void TabOptions::MakeLeftSide() {
    Caption(this, "Sound driver", {20, 14, 200, 18});
    drivers_ = new QComboBox(this);
    Name(drivers_, "cboDrivers", "Sound driver");
    drivers_->setGeometry(20, 36, 266, 30);
    connect(drivers_, &QComboBox::activated, this,
            [this](int entry) { cboDrivers_Click(s, static_cast<std::int16_t>(entry)); });
    reset_ = new QCheckBox("Reset on Load", this);
    Name(reset_, "ResetVars", "Loading a sample resets the settings of its LoopTrack");
    reset_->setGeometry(20, 84, 266, 26);
    connect(reset_, &QCheckBox::clicked, this, [this](bool on) { s.ResetVars = on; });
    auto* help = new TextButton(s, this, "OptionHelp", "Help", "Help on the options", {}, nullptr);
    help->setGeometry(20, 270, 84, 30);
}

void TabOptions::MakeSubTabs() {
    for (int tab = 0; tab < 4; ++tab) {
        auto* caption = new TabButton(s, this, "OptionSubTab", tab, kSubTabs[static_cast<std::size_t>(tab)],
                                      s.ActiveSubTab, OptionSubTabs_Click);
        caption->setToolTip({});
        caption->setGeometry(kSubPage.left() + tab * 98, kSubPage.top() - 26, 96, 26);
        captions_.push_back(caption);
        auto* page = new QWidget(this);
        page->setObjectName(QString("OptionSubPage_%1").arg(tab));
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
    Caption(page, "Knobs follow a drag", {20, 18, 240, 18});
    axis_ = new ChoiceList(s, page, "DragAxisSelect", "Direction in which knobs are dragged", {},
                           [this](int entry) { DragAxisSelect_Click(s, static_cast<std::int16_t>(entry)); });
    for (std::string_view text : kDragAxes) axis_->addItem(QString::fromUtf8(text.data()));
    axis_->setGeometry(20, 40, 240, 30);
    Caption(page, "Update 3d position while moving:", {300, 18, 320, 18});
    constexpr std::array<const char*, 3> kTexts{"Listener", "Loop", "Listener Rotation"};
    for (int member = 0; member < 3; ++member) {
        auto* box =
            new ChoiceBox(s, page, QString("PositionUpdate_%1").arg(member), kTexts[static_cast<std::size_t>(member)],
                          {}, [this, member](bool on) { s.PositionUpdate[member] = on; });
        box->setToolTip("On: the sound follows the drag. Off: it follows when the drag ends.");
        box->setGeometry(300, 40 + member * 30, 300, 26);
        update_[static_cast<std::size_t>(member)] = box;
    }
}

void TabOptions::MakeScripting(QWidget* page) {
    constexpr std::array<const char*, 2> kTexts{"Knobs", "Sound map"};
    for (int member = 0; member < 2; ++member) {
        const int top = 18 + member * 84;
        Caption(page, kTexts[static_cast<std::size_t>(member)], {20, top, 120, 18});
        auto* slider = Gauge(page, "ScrollSensitivity",
                             QString("Moves an event of the %1").arg(kTexts[static_cast<std::size_t>(member)]), 1, 50,
                             {20, top + 20, 360, 26});
        slider->setObjectName(QString("ScrollSensitivity_%1").arg(member));
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
    Caption(page, "Interval of the step clock", {20, 18, 300, 18});
    resolution_ = Gauge(page, "ResSlider", "Interval of the step clock in milliseconds", 1, 100, {20, 38, 360, 26});
    connect(resolution_, &QSlider::valueChanged, this, [this](int value) {
        ResSlider_Change(s, static_cast<std::int16_t>(value));
        Refresh();
    });
    resolutionText_ = new QLabel(page);
    Name(resolutionText_, "ResReadout", "Interval of the step clock");
    resolutionText_->setGeometry(20, 66, 360, 20);
    for (QWidget* hinted : {static_cast<QWidget*>(resolution_), static_cast<QWidget*>(sensitivity_[0]),
                            static_cast<QWidget*>(sensitivity_[1])}) {
        hinted->setMouseTracking(true);
        hinted->installEventFilter(this);
    }
}

// These show their value for a hint.
bool TabOptions::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        if (object == resolution_) ShowStatus(s, TimingResText(s));
        for (int member = 0; member < 2; ++member) {
            if (object == sensitivity_[static_cast<std::size_t>(member)]) {
                ShowStatus(s, SensitivityText(s.ScrollSensitivity[member]).toStdString());
            }
        }
    }
    return QWidget::eventFilter(object, event);
}

void TabOptions::Refresh() {
    reset_->setChecked(s.ResetVars);
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
        sensitivityText_[member]->setText(SensitivityText(s.ScrollSensitivity[member]));
    }
    for (std::size_t tab = 0; tab < pages_.size(); ++tab) {
        pages_[tab]->setVisible(static_cast<std::int16_t>(tab) == s.ActiveSubTab);
    }
    for (TabButton* caption : captions_) caption->update();
}

void TabOptions::RefreshDrivers() {
    const QSignalBlocker quiet(drivers_);
    drivers_->clear();
    for (const std::string& driver : s.Drivers) drivers_->addItem(QString::fromStdString(driver));
    drivers_->setCurrentIndex(s.Driver);
}

void TabOptions::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x22, 0x25, 0x2a));
    p.drawRoundedRect(kSubPage, 6, 6);
}

}  // namespace marvolin

// The sub-tab of the joystick, and the stick that it sets up.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <QStyleOptionSlider>
#include <array>

#include "core/input_service.h"
#include "hand.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/map/sound_map.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "performance/tabs.h"
#include "stage.h"
#include "window/tabs/tab_mix_pad.h"

namespace marvolin {
namespace {

constexpr int kPollMs = 30;
constexpr std::array<const char*, 5> kButtonLists{"JButton_0", "JButton_1", "JButton_2", "JButton_3", "JButton_4"};
constexpr std::array<const char*, 2> kAxisLists{"JAxis_0", "JAxis_1"};
constexpr std::array<const char*, 3> kSliders{"JoyFactor_0", "JoyFactor_1", "JoyFactor_2"};

struct Page : test::Stage {
    explicit Page(std::vector<std::int32_t> axes = {0, 4, 8, 20}) {
        PadGeometryInit(s, TabMixPad::InnerWidth(), TabMixPad::InnerHeight());
        PadListInit(s);
        PadTablesInit(s);
        MapInit(s);
        if (axes.empty()) Stick.Devices.clear();
        Stick.Axes = std::move(axes);
        InitDirectInput(s);
        Open();
    }
    void Open() {
        Click("Tab_3");
        Click("OptionSubTab_0");
        Settle();
    }
    QComboBox& List(const char* name) { return *dynamic_cast<QComboBox*>(At(name)); }
    QSlider& Slider(const char* name) { return *dynamic_cast<QSlider*>(At(name)); }
    QPointF Handle(const char* name) {
        QSlider& slider = Slider(name);
        QStyleOptionSlider option;
        option.initFrom(&slider);
        option.minimum = slider.minimum();
        option.maximum = slider.maximum();
        option.sliderPosition = option.sliderValue = slider.value();
        option.subControls = QStyle::SC_All;
        return slider.style()
            ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider)
            .center()
            .toPointF();
    }
    void Pull(const char* name, double way) {
        const QPointF from = Handle(name);
        Press(name, from);
        Move(name, from + QPointF(way, 0));
        Release(name, from + QPointF(way, 0));
    }
    /// Text of the nearest label in the line of this control, on its left or right.
    QString LabelAt(const char* name, bool right) {
        const QRect place = At(name)->geometry();
        QString nearest;
        int distance = 1000;
        for (const QLabel* label : At("JoystickPage")->findChildren<QLabel*>()) {
            const QRect at = label->geometry();
            const int gap = right ? at.left() - place.right() : place.left() - at.right();
            if (!label->isVisible() || gap < 0 || gap >= distance || at.center().y() < place.top() ||
                at.center().y() > place.bottom()) {
                continue;
            }
            nearest = label->text();
            distance = gap;
        }
        return nearest;
    }
    void Poll() { dynamic_cast<test::FakeTimers::Timer&>(*s.JoyTimer).OnTick(kPollMs); }
};

TEST(JoystickPage, EachControlIsVisibleAndHasItsCaption) {
    Page page;
    const std::array<const char*, 5> actions{"Move", "Centre", "Twist Centre", "Toggle Rel/Abs", "ToggleTwist"};
    for (std::size_t i = 0; i < actions.size(); ++i) EXPECT_EQ(page.LabelAt(kButtonLists[i], false), actions[i]);
    EXPECT_EQ(page.LabelAt("JAxis_0", false), "Master Vol");
    EXPECT_EQ(page.LabelAt("JAxis_1", false), "Twist");
    const std::array<const char*, 3> factors{"XY Rel:", "XY Abs:", "Twist:"};
    for (std::size_t i = 0; i < factors.size(); ++i) EXPECT_EQ(page.LabelAt(kSliders[i], false), factors[i]);
    const QRect whole = page.Form->rect();
    for (const QWidget* control : page.At("JoystickPage")->findChildren<QWidget*>()) {
        if (!control->isVisible()) continue;
        const QRect place(control->mapTo(page.Form.get(), QPoint(0, 0)), control->size());
        EXPECT_TRUE(whole.contains(place)) << control->objectName().toStdString();
    }
}

TEST(JoystickPage, ChoosingTheNoneThatIsShownFreesTheMasterFromAnAxisThatTheStickLacks) {
    Page page({0, 4});
    page.s.DragAxis = 0;
    page.s.Joy.Axis[0] = kAxisZ;  // as a set names it
    JoyShowAssignments(page.s);
    page.Settle();
    QComboBox& list = page.List("JAxis_0");
    ASSERT_EQ(list.currentText(), "None");
    page.Drag("VolKnob_5", {0, 10});
    EXPECT_EQ(page.s.Set[kMasterRow].Vol, 500);
    page.Wheel("VolKnob_5", -1);
    EXPECT_EQ(page.s.Set[kMasterRow].Vol, 500);
    test::Choose(list, list.currentIndex());
    EXPECT_EQ(page.s.Joy.Axis[0], 0);
    page.Settle();
    page.Wheel("VolKnob_5", -1);
    EXPECT_EQ(page.s.Set[kMasterRow].Vol, 499);
}

TEST(JoystickPage, EachButtonAndNoneCanBeChosenForEachAction) {
    for (int action = 0; action < 5; ++action) {
        Page page;
        QComboBox& list = page.List(kButtonLists[static_cast<std::size_t>(action)]);
        for (int entry = 0; entry < list.count(); ++entry) {
            SCOPED_TRACE(testing::Message() << action << " to " << entry);
            test::Choose(list, entry);
            EXPECT_EQ(page.s.Joy.Button[action], entry);
            EXPECT_EQ(list.currentIndex(), entry);
            for (int other = 0; other < 5; ++other) {
                if (other == action) continue;
                if (entry != kNoButtonEntry) {
                    EXPECT_NE(page.s.Joy.Button[other], entry) << other;
                }
                EXPECT_EQ(page.List(kButtonLists[static_cast<std::size_t>(other)]).currentIndex(),
                          page.s.Joy.Button[other]);
            }
        }
    }
}

TEST(JoystickPage, SeveralActionsCanHaveNone) {
    Page page;
    for (const char* list : kButtonLists) test::Choose(page.List(list), kNoButtonEntry);
    for (const char* list : kButtonLists) EXPECT_EQ(page.List(list).currentText(), "None");
    for (const char* list : kAxisLists) test::Choose(page.List(list), page.List(list).count() - 1);
    for (const char* list : kAxisLists) EXPECT_EQ(page.List(list).currentText(), "None");
}

TEST(JoystickPage, TheAxisListsHoldWhatTheDeviceHas) {
    Page all({0, 4, 8, 12, 16, 20});
    const std::array<std::int16_t, 5> codes{kAxisZ, kAxisRX, kAxisRY, kAxisRZ, kAxisNone};
    for (int use = 0; use < 2; ++use) {
        QComboBox& list = all.List(kAxisLists[static_cast<std::size_t>(use)]);
        ASSERT_EQ(list.count(), 5);
        for (int entry = 0; entry < 5; ++entry) {
            test::Choose(list, entry);
            EXPECT_EQ(all.s.Joy.Axis[use], codes[static_cast<std::size_t>(entry)]);
        }
    }
    Page neither({0, 4});
    for (const char* name : kAxisLists) {
        EXPECT_EQ(neither.List(name).count(), 1) << name;
        EXPECT_EQ(neither.List(name).currentText(), "None") << name;
        EXPECT_TRUE(neither.List(name).isEnabled()) << name;
    }
}

TEST(JoystickPage, TheSlidersReachTheirEndsAndShowTheirValue) {
    for (int factor = 0; factor < 3; ++factor) {
        SCOPED_TRACE(factor);
        Page page;
        const char* name = kSliders[static_cast<std::size_t>(factor)];
        EXPECT_EQ(page.LabelAt(name, true), QString::number(page.s.Joy.Factor[factor]));
        page.Pull(name, 300);
        EXPECT_EQ(page.s.Joy.Factor[factor], 3000);
        EXPECT_EQ(page.LabelAt(name, true), "3000");
        page.Pull(name, -300);
        EXPECT_EQ(page.s.Joy.Factor[factor], 100);
        EXPECT_EQ(page.LabelAt(name, true), "100");
        page.Click(name, page.Handle(name) + QPointF(40, 0));
        EXPECT_EQ(page.s.Joy.Factor[factor], 200);
    }
}

TEST(JoystickPage, ShowsWhatASessionRestores) {
    Page page;
    page.s.Joy.Button = Table<std::int16_t, 5>{{{7, 8, 3, 0, 6}}};
    page.s.Joy.Axis = Table<std::int16_t, 2>{{{kAxisRZ, kAxisRX}}};
    JoyShowAssignments(page.s);
    SetJoyFactor(page.s, 1, 2222);
    const std::array<const char*, 5> shown{"8", "None", "4", "1", "7"};
    for (std::size_t i = 0; i < shown.size(); ++i) EXPECT_EQ(page.List(kButtonLists[i]).currentText(), shown[i]);
    EXPECT_EQ(page.List("JAxis_0").currentText(), "RZ");
    EXPECT_EQ(page.List("JAxis_1").currentText(), "None");  // the device has no such axis
    EXPECT_EQ(page.Slider("JoyFactor_1").value(), 2222);
    EXPECT_EQ(page.LabelAt("JoyFactor_1", true), "2222");
}

TEST(JoystickPage, WithoutAJoystickTheListsAreDisabledAndThePageSaysWhy) {
    Page page(std::vector<std::int32_t>{});
    for (const auto& lists : {std::vector<const char*>(kButtonLists.begin(), kButtonLists.end()),
                              std::vector<const char*>(kAxisLists.begin(), kAxisLists.end())}) {
        for (const char* name : lists) {
            EXPECT_FALSE(page.List(name).isEnabled()) << name;
            EXPECT_EQ(page.List(name).currentIndex(), -1) << name;
            page.Click(name);
            EXPECT_FALSE(page.List(name).view()->isVisible()) << name;
        }
    }
    const auto says = [](Page& at) {
        for (const QLabel* label : at.At("JoystickPage")->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().startsWith("There is no joystick")) return true;
        }
        return false;
    };
    EXPECT_TRUE(says(page));
    EXPECT_EQ(page.s.JoyTimer, nullptr);
    // Factors and relative movement are saved in the session and can be set without a joystick.
    page.Pull("JoyFactor_0", 300);
    EXPECT_EQ(page.s.Joy.Factor[0], 3000);
    for (int tab = 0; tab < 2; ++tab) {
        page.Click(("Tab_" + std::to_string(tab)).c_str());
        const std::string box = "JoyRelative_" + std::to_string(tab);
        page.Click(box.c_str(), {8, page.Middle(box.c_str()).y()});
        EXPECT_EQ(page.s.Joy.Relative[tab], True) << tab;
    }
    Page with;
    EXPECT_FALSE(says(with));
}

TEST(JoystickPage, TheAssignmentsTakeEffect) {
    Page page;
    test::Choose(page.List("JButton_1"), 6);
    test::Choose(page.List("JAxis_0"), 1);
    page.Pull("JoyFactor_0", 300);
    page.Click("Tab_0");
    page.Stick.State.x = 5100;
    page.Poll();
    EXPECT_DOUBLE_EQ(page.s.PadTable[2].X, page.s.Geometry.PadHalfX * 100 * 3 / 4000);
    page.Stick.State.buttons[6] = 0x80;
    page.Poll();
    EXPECT_DOUBLE_EQ(page.s.PadTable[2].X, 0);
    page.Stick.State.z = 6000;
    page.Stick.State.rz = 2000;
    page.Poll();
    EXPECT_EQ(page.s.Set[kMasterRow].Vol, 400);
}

TEST(JoystickPage, KeepsItsChoicesWhileTheJoystickIsLostAndWorksWhenItIsBack) {
    Page page;
    page.Click("Tab_0");
    page.Stick.Failures["GetDeviceStateJoystick"] = input_error::kInputLost;
    page.Stick.State.x = 6000;
    for (int poll = 0; poll < 3; ++poll) page.Poll();
    EXPECT_EQ(page.s.PadTable[2].X, 0);
    EXPECT_TRUE(page.Desk.Boxes.empty());
    page.Open();
    for (const char* name : kButtonLists) EXPECT_TRUE(page.List(name).isEnabled()) << name;
    EXPECT_EQ(page.List("JButton_1").currentText(), "3");
    page.Stick.Failures.clear();
    page.Click("Tab_0");
    page.Poll();
    EXPECT_DOUBLE_EQ(page.s.PadTable[2].X, page.s.Geometry.PadHalfX * 1000 * 0.5 / 4000);
}

TEST(JoystickPage, TheToggleFlipsTheBoxOfItsTab) {
    Page page;
    for (int tab = 0; tab < 2; ++tab) {
        page.Click(("Tab_" + std::to_string(tab)).c_str());
        auto& box = *dynamic_cast<QCheckBox*>(page.At(("JoyRelative_" + std::to_string(tab)).c_str()));
        EXPECT_TRUE(box.isChecked());
        page.Stick.State.buttons[5] = 1;
        page.Poll();
        EXPECT_TRUE(box.isChecked());
        page.Stick.State.buttons[5] = 0;
        page.Poll();
        EXPECT_FALSE(box.isChecked());
    }
}

}  // namespace
}  // namespace marvolin

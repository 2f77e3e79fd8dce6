#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>
#include <map>
#include <set>
#include <stdexcept>

#include "all_forms.h"
#include "instrument/loop_drops.h"
#include "window/controls/control.h"
#include "window/descriptions/accessible.h"
#include "window/descriptions/described.h"

namespace marvolin {
namespace {

using test::AllForms;
using testing::IsEmpty;

/// Calls `act` with each row of the table and each index of its array.
void EachRow(const std::function<void(const std::string& form, const Description& row, int index)>& act) {
    for (const DescriptionTable& table : DescriptionTables()) {
        for (const Description& row : table.Rows) {
            for (int index = row.Range.First; index <= row.Range.Last; ++index) {
                SCOPED_TRACE(ObjectNameOf(row.Name, index));
                act(std::string(table.Form), row, index);
            }
        }
    }
}

QWidget* Find(QWidget& window, const std::string& name) {
    const QString wanted = QString::fromStdString(name);
    return window.objectName() == wanted ? &window : window.findChild<QWidget*>(wanted);
}

/// The widgets of all forms by name. Dialogues are gone again: only their names are kept.
struct Seen {
    std::map<std::string, QWidget*> Widgets;
    std::set<std::string> InDialogues;
};

Seen SeenIn(AllForms& forms) {
    Seen seen;
    forms.Each([&](const std::string& form, QWidget& window) {
        EachRow([&](const std::string& of, const Description& row, int index) {
            const std::string name = ObjectNameOf(row.Name, index);
            QWidget* found = of == form ? Find(window, name) : nullptr;
            if (found == nullptr) return;
            const Described* described = DescribedOf(*found);
            ASSERT_NE(described, nullptr);
            EXPECT_EQ(&described->Row(), &row);
            EXPECT_EQ(described->Index(), index);
            if (form == "dialogues") {
                seen.InDialogues.insert(name);
            } else {
                seen.Widgets[name] = found;
            }
        });
    });
    return seen;
}

bool IsInteractive(const QWidget& widget) {
    return dynamic_cast<const Control*>(&widget) != nullptr || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractSlider*>(&widget) ||
           qobject_cast<const QAbstractItemView*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QTabBar*>(&widget) || widget.acceptDrops();
}

/// Whether the widget is only a part of a control: the scroll bar of a list, the list of a combo box.
bool IsPart(const QWidget& widget) {
    for (const QWidget* above = widget.parentWidget(); above != nullptr; above = above->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(above) || qobject_cast<const QComboBox*>(above) ||
            qobject_cast<const QTabBar*>(above) || qobject_cast<const QLineEdit*>(above) ||
            above->objectName().startsWith("PickFile_")) {
            return true;
        }
    }
    return false;
}

TEST(Descriptions, EveryRowOfTheTableIsAControlOfItsForm) {
    AllForms forms;
    const Seen seen = SeenIn(forms);
    EachRow([&](const std::string& form, const Description& row, int index) {
        const std::string name = ObjectNameOf(row.Name, index);
        EXPECT_TRUE(form == "dialogues" ? seen.InDialogues.contains(name) : seen.Widgets.contains(name)) << name;
    });
}

TEST(Descriptions, EveryControlOfEveryFormHasARow) {
    AllForms forms;
    int controls = 0;
    std::vector<std::string> missing;
    forms.Each([&](const std::string& form, QWidget& window) {
        if (DescribedOf(window) == nullptr) missing.push_back(form);
        for (const QWidget* widget : window.findChildren<QWidget*>()) {
            if (!IsInteractive(*widget) || IsPart(*widget)) continue;
            ++controls;
            if (DescribedOf(*widget) == nullptr) {
                missing.push_back(form + ": " + widget->objectName().toStdString() + ", a " +
                                  widget->metaObject()->className());
            }
        }
    });
    EXPECT_THAT(missing, IsEmpty());
    EXPECT_GT(controls, 190);
}

TEST(Descriptions, AControlHasNameLabelTipAndKeysOfItsRow) {
    AllForms forms;
    for (const auto& [name, widget] : SeenIn(forms).Widgets) {
        SCOPED_TRACE(name);
        const Described& described = *DescribedOf(*widget);
        EXPECT_EQ(widget->objectName().toStdString(), name);
        EXPECT_EQ(widget->accessibleName().toStdString(), described.Label());
        EXPECT_EQ(widget->toolTip().toStdString(), described.Tip());
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
            EXPECT_EQ(button->text().replace("&&", "&").toStdString(), described.Caption());
        }
        if (dynamic_cast<Control*>(widget) != nullptr) {
            EXPECT_FALSE(described.Label().empty());
            EXPECT_EQ(widget->focusPolicy() != Qt::NoFocus, described.Row().Taken != Keys::None);
        }
    }
}

TEST(Descriptions, NoControlHasTwoRows) {
    std::set<std::string> names;
    EachRow([&](const std::string&, const Description& row, int index) {
        EXPECT_TRUE(names.insert(ObjectNameOf(row.Name, index)).second);
        EXPECT_EQ(&DescriptionOf(row.Name, index), &row);
    });
}

TEST(Descriptions, EachNameHasAHelpTopicOfItsOwnButALoopTrackAndItsSamplesShareOne) {
    std::map<std::int32_t, std::set<std::string_view>> names;
    EachRow([&](const std::string&, const Description& row, int) {
        EXPECT_GT(row.Topic, 10000);
        EXPECT_LT(row.Topic, 11000);
        names[row.Topic].insert(row.Name);
    });
    EXPECT_THAT(names[kLoopTrackTopic], testing::ElementsAre("Letr", "LoopRow", "SndDisp"));
    names.erase(kLoopTrackTopic);
    EXPECT_THAT(names[10025], testing::ElementsAre("DropDown", "FindSample"));
    names.erase(10025);
    for (const auto& [topic, sharing] : names) EXPECT_EQ(sharing.size(), 1U) << topic;
}

TEST(Descriptions, ANameThatIsNotInTheTableIsRefused) {
    EXPECT_THROW(DescriptionOf("Play"), std::out_of_range);
    EXPECT_THROW(DescriptionOf("Play", 5), std::out_of_range);
    EXPECT_THROW(DescriptionOf("Limiter", 0), std::out_of_range);
    EXPECT_THROW(DescriptionOf("Unheard"), std::out_of_range);
    QWidget widget;
    EXPECT_EQ(DescribedOf(widget), nullptr);
}

TEST(Descriptions, TextsNameTheRowOfAControl) {
    AllForms forms;
    const auto label = [&](const char* name) { return forms.At(name)->accessibleName().toStdString(); };
    EXPECT_EQ(label("VolKnob_1"), "Volume of LoopTrack B");
    EXPECT_EQ(label("VolKnob_4"), "Volume of the selection");
    EXPECT_EQ(label("VolKnob_5"), "Volume of the master");
    EXPECT_EQ(label("Letr_4"), "Selection, Z");
    EXPECT_EQ(label("TimeDigit_8"), "Swing, tens of seconds");
    EXPECT_EQ(forms.Part("PickFile_2").accessibleName(), "Samples of bin 3");
}

TEST(Descriptions, ATipFollowsWhatItDependsOn) {
    AllForms forms;
    EXPECT_EQ(forms.At("DropDown_1")->toolTip(), "Sample of LoopTrack B");
    forms.Fill(1);
    EXPECT_EQ(forms.At("DropDown_1")->toolTip(), "/samples/one.WAV");
    EXPECT_EQ(forms.At("JoyRelative_0")->toolTip(), "There is no joystick");
    forms.s.JoyEnabled = true;
    forms.Screen.ShowJoystick();
    EXPECT_EQ(forms.At("JoyRelative_0")->toolTip(), "");
}

TEST(Descriptions, ValuesFollowTheSession) {
    AllForms forms;
    const auto value = [&](const char* name) { return DescribedOf(*forms.At(name))->Value(); };
    forms.s.Limit = 3;
    EXPECT_EQ(value("Limiter"), "3");
    forms.s.Set[2].Vol = 120;
    EXPECT_EQ(value("VolKnob_2"), "Vol: 120");
    EXPECT_EQ(value("SndDisp_2"), "Vol: 120");
    forms.s.Set[0].PlayMode = kLoop;
    EXPECT_EQ(value("LoopIt_0"), "Loop (sample loops continuously)");
    EXPECT_EQ(value("LoopIt_5"), "Loop (sample loops continuously)");
    forms.s.StepsShown = 12;
    EXPECT_EQ(value("NSteps"), "12");
    forms.s.TimeText[0] = "000.25";
    EXPECT_EQ(value("TimeDigit_0"), "5");
    EXPECT_EQ(value("TimeDigit_1"), "2");
    forms.s.StatusText = "Ready.";
    EXPECT_EQ(value("StatusBar1"), "Ready.");
    EXPECT_EQ(value("Browse"), "");
}

TEST(Accessibility, EveryControlAnswersWithTheRoleOfItsRowAndADrawnOneWithItsLabel) {
    InstallAccessibility();
    AllForms forms;
    for (const auto& [name, widget] : SeenIn(forms).Widgets) {
        SCOPED_TRACE(name);
        const Described& described = *DescribedOf(*widget);
        QAccessibleInterface* answer = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(answer, nullptr);
        EXPECT_EQ(answer->role(), described.Row().Role);
        // A window answers with its title, and the toolkit's lists answer with the chosen entry.
        if (dynamic_cast<Control*>(widget) == nullptr) continue;
        EXPECT_EQ(answer->text(QAccessible::Name).toStdString(), described.Label());
    }
}

TEST(Accessibility, ADrawnControlAnswersWithItsValueItsHintAndItsKey) {
    InstallAccessibility();
    AllForms forms;
    forms.s.Set[0].Vol = 250;
    QAccessibleInterface& knob = *QAccessible::queryAccessibleInterface(forms.At("VolKnob_0"));
    EXPECT_EQ(knob.text(QAccessible::Value), "Vol: 250");
    EXPECT_EQ(knob.text(QAccessible::Help), "drg Vol -/+; rtdrg Fine; dblclk Toggle Mute");
    EXPECT_EQ(knob.text(QAccessible::Accelerator), "");
    const auto key = [&](const char* name) {
        return QAccessible::queryAccessibleInterface(forms.At(name))->text(QAccessible::Accelerator);
    };
    EXPECT_EQ(key("Play_1"), "B");
    EXPECT_EQ(key("Play_4"), "Z");
}

}  // namespace
}  // namespace marvolin

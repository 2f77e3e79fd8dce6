// Changes are told to assistive technology, and what does not change is not.

#include "window/descriptions/announcer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <string>
#include <utility>
#include <vector>

#include "core/routines.h"
#include "parameters/setters.h"
#include "performance/tabs.h"
#include "stage.h"

namespace marvolin {
namespace {

using test::Stage;
using testing::Contains;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

struct Listening : Stage {
    Listening() {
        Settle();
        Ears.Look();
        heard_.clear();
    }
    /// What is told now.
    std::vector<std::string> Told() {
        Ears.Look();
        return std::exchange(heard_, {});
    }

private:
    void Hear(const QAccessibleEvent& event) {
        const std::string name = event.object()->objectName().toStdString();
        if (event.type() == QAccessible::ValueChanged) {
            const auto& value = static_cast<const QAccessibleValueChangeEvent&>(event);
            heard_.push_back(name + " value " + value.value().toString().toStdString());
        } else if (event.type() == QAccessible::DescriptionChanged) {
            heard_.push_back(name + " words");
        } else if (event.type() == QAccessible::StateChanged) {
            const QAccessible::State changed = static_cast<const QAccessibleStateChangeEvent&>(event).changedStates();
            if (changed.checked) heard_.push_back(name + " checked");
            if (changed.pressed) heard_.push_back(name + " pressed");
            if (changed.selected) heard_.push_back(name + " selected");
        }
    }
    std::vector<std::string> heard_;

public:
    Announcer Ears{[this](const QAccessibleEvent* event) { Hear(*event); }};
};

TEST(Announcer, TellsAValueThatHasChangedOnceAndNothingElse) {
    Listening stage;
    EXPECT_THAT(stage.Told(), IsEmpty());
    LoopVolChangeGang(stage.s, 2, 320, UpdateDisplay::Yes);
    EXPECT_THAT(stage.Told(), UnorderedElementsAre("VolKnob_2 value 320", "VolKnob_2 words", "SndDisp_2 value 320",
                                                   "SndDisp_2 words"));
    EXPECT_THAT(stage.Told(), IsEmpty());
}

TEST(Announcer, TellsWhatIsTickedLitAndOpen) {
    Listening stage;
    stage.Click("Selected_1");
    EXPECT_THAT(stage.Told(), Contains("Selected_1 checked"));
    stage.Fill(0);
    stage.Click("Play_0");
    EXPECT_THAT(stage.Told(), Contains("Play_0 pressed"));
    SetTab(stage.s, kMapTab);
    const std::vector<std::string> told = stage.Told();
    EXPECT_THAT(told, Contains("Tab_0 selected"));
    EXPECT_THAT(told, Contains("Tab_1 selected"));
}

TEST(Announcer, TellsWhatTheStatusLineSays) {
    Listening stage;
    ShowStatus(stage.s, "Not a sample: readme.txt");
    EXPECT_THAT(stage.Told(), UnorderedElementsAre("StatusBar1 words"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(stage.At("StatusBar1"))->text(QAccessible::Description),
              "Not a sample: readme.txt");
}

TEST(Announcer, DoesNotLookWithoutAssistiveTechnology) {
    Stage stage;
    const Announcer ears;
    EXPECT_FALSE(QAccessible::isActive());
    EXPECT_FALSE(ears.Looks());
    QAccessible::setActive(true);
    EXPECT_TRUE(ears.Looks());
    QAccessible::setActive(false);
    EXPECT_FALSE(ears.Looks());
}

}  // namespace
}  // namespace marvolin

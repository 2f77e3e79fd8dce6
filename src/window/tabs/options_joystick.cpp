#include "window/tabs/options_joystick.h"

#include <QLabel>
#include <QSignalBlocker>

#include "performance/joystick/joystick_setup.h"
#include "window/controls/choice.h"
#include "window/descriptions/described.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

constexpr int kColumn = 232;  // pixels from column to column
constexpr int kTop = 34;
constexpr int kPitch = 36;

}  // namespace

OptionsJoystick::OptionsJoystick(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    Describe(s, *this, "JoystickPage");
    MakeLists();
    MakeSliders();
    none_ = MakeLabel(this, "There is no joystick. Plug one in: it works at once.",
                      {kColumn + 16, kTop + 3 * kPitch + 14, 400, 40});
    none_->setWordWrap(true);
    Refresh();
}

void OptionsJoystick::MakeLists() {
    MakeLabel(this, "Buttons", {14, 8, 200, 18});
    for (int i = 0; i < 5; ++i) {
        const auto action = static_cast<std::size_t>(i);
        const int y = kTop + i * kPitch;
        MakeLabel(this, ToQString(kJoyActions[action]), {14, y + 4, 100, 22});
        buttons_[action] = new ChoiceList(
            s, this, "JButton", i, [this, i](int entry) { JButton_Click(s, i, static_cast<std::int16_t>(entry)); });
        buttons_[action]->setGeometry(116, y, 92, 28);
    }
    MakeLabel(this, "Axes", {kColumn + 16, 8, 200, 18});
    for (int i = 0; i < 2; ++i) {
        const auto use = static_cast<std::size_t>(i);
        const int y = kTop + i * kPitch;
        MakeLabel(this, ToQString(kJoyAssignments[use]), {kColumn + 16, y + 4, 80, 22});
        axes_[use] = new ChoiceList(s, this, "JAxis", i,
                                    [this, i](int entry) { JAxis_Click(s, i, static_cast<std::int16_t>(entry)); });
        axes_[use]->setGeometry(kColumn + 96, y, 92, 28);
    }
}

void OptionsJoystick::MakeSliders() {
    MakeLabel(this, "Reach of the stick", {2 * kColumn, 8, 230, 18});
    for (int i = 0; i < 3; ++i) {
        const auto factor = static_cast<std::size_t>(i);
        const int y = kTop + i * kPitch;
        MakeLabel(this, ToQString(kJoyFactors[factor]), {2 * kColumn, y + 4, 60, 22});
        auto* slider = new QSlider(Qt::Horizontal, this);  // belongs to the page
        Describe(s, *slider, "JoyFactor", i);
        slider->setRange(kJoyFactorLow, kJoyFactorHigh);
        slider->setSingleStep(10);
        slider->setPageStep(100);
        slider->setGeometry(2 * kColumn + 62, y + 2, 124, 26);
        auto* value = MakeLabel(this, "", {2 * kColumn + 194, y + 4, 44, 22});
        connect(slider, &QSlider::valueChanged, this, [this, i](int reach) {
            SetJoyFactor(s, i, static_cast<std::int16_t>(reach));
            values_[static_cast<std::size_t>(i)]->setText(QString::number(s.Joy.Factor[i]));
        });
        factors_[factor] = slider;
        values_[factor] = value;
    }
}

void OptionsJoystick::Refresh() {
    for (int i = 0; i < 5; ++i) {
        ChoiceList& list = *buttons_[static_cast<std::size_t>(i)];
        list.SetEntries(ToQStrings(s.Joy.ButtonNames));
        list.Show(s.Joy.ButtonChoice[i]);
        list.setEnabled(s.JoyEnabled);
    }
    for (int i = 0; i < 2; ++i) {
        ChoiceList& list = *axes_[static_cast<std::size_t>(i)];
        list.SetEntries(ToQStrings(s.Joy.AxisNames));
        list.Show(s.Joy.AxisChoice[i]);
        list.setEnabled(s.JoyEnabled);
    }
    for (int i = 0; i < 3; ++i) {
        const QSignalBlocker quiet(factors_[static_cast<std::size_t>(i)]);
        factors_[static_cast<std::size_t>(i)]->setValue(s.Joy.Factor[i]);
        values_[static_cast<std::size_t>(i)]->setText(QString::number(s.Joy.Factor[i]));
    }
    none_->setVisible(!s.JoyEnabled);
}

}  // namespace marvolin

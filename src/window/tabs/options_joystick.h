#pragma once

#include <QSlider>
#include <QWidget>
#include <array>

#include "core/session.h"

namespace marvolin {

class ChoiceList;

/// The sub-tab "Joystick": what buttons and axes do, and how far the stick reaches.
class OptionsJoystick : public QWidget {
public:
    OptionsJoystick(Session& session, QWidget* parent);
    /// Lists, choices, sliders and their enabled states.
    void Refresh();

private:
    void MakeLists();
    void MakeSliders();

    Session& s;
    std::array<ChoiceList*, 5> buttons_{};
    std::array<ChoiceList*, 2> axes_{};
    std::array<QSlider*, 3> factors_{};
    std::array<QWidget*, 3> values_{};
    QWidget* none_ = nullptr;
};

}  // namespace marvolin

#pragma once

#include <QLabel>
#include <QSlider>
#include <QWidget>
#include <array>

#include "core/session.h"

namespace marvolin {

class ChoiceList;

/// The sub-tab "Joystick": what buttons and axes do, and the reach of the stick.
class OptionsJoystick : public QWidget {
public:
    OptionsJoystick(Session& session, QWidget* parent);
    /// Shows lists, choices, sliders and their enabled states again.
    void Refresh();

private:
    void MakeLists();
    void MakeSliders();

    Session& s;
    std::array<ChoiceList*, 5> buttons_{};
    std::array<ChoiceList*, 2> axes_{};
    std::array<QSlider*, 3> factors_{};
    std::array<QLabel*, 3> values_{};
    QLabel* none_ = nullptr;
};

}  // namespace marvolin

#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "core/session.h"

class QLabel;
class QSlider;

namespace marvolin {

class ChoiceBox;
class ChoiceList;
class OptionsJoystick;
class SizeChoice;
class TabButton;

/// The page "Optn": the sound driver, "Reset on Load", "Play after a drop", "Size", and the sub-tabs Joystick, Mouse,
/// Scripting, Timing.
class TabOptions : public QWidget {
public:
    TabOptions(Session& session, QWidget* parent);
    /// Shows the options of the session again.
    void Refresh();
    void RefreshDrivers();
    void RefreshJoystick();

    SizeChoice* Size = nullptr;  // owned by the toolkit

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void MakeLeftSide();
    void MakeSubTabs();
    void MakeJoystick(QWidget* page);
    void MakeMouse(QWidget* page);
    void MakeScripting(QWidget* page);
    void MakeTiming(QWidget* page);

    Session& s;
    // Owned by the toolkit.
    ChoiceList* drivers_ = nullptr;
    ChoiceBox* reset_ = nullptr;
    ChoiceBox* play_ = nullptr;
    ChoiceList* axis_ = nullptr;
    std::array<ChoiceBox*, 3> update_{};
    OptionsJoystick* joystick_ = nullptr;
    std::array<QSlider*, 2> sensitivity_{};
    std::array<QLabel*, 2> sensitivityText_{};
    QSlider* resolution_ = nullptr;
    QLabel* resolutionText_ = nullptr;
    std::vector<TabButton*> captions_;
    std::array<QWidget*, 4> pages_{};
};

}  // namespace marvolin

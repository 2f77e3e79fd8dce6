#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <string>

#include "performance/joystick/joystick_setup.h"
#include "performance/map/sound_map.h"
#include "performance/map/use_3d.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "performance/tabs.h"
#include "stage.h"
#include "window/tabs/tab_mix_pad.h"

namespace marvolin::test {

/// The window with pad, map and joystick as after the start.
struct Settings : Stage {
    explicit Settings(bool stick = true) {
        PadGeometryInit(s, TabMixPad::InnerWidth(), TabMixPad::InnerHeight());
        PadListInit(s);
        PadTablesInit(s);
        MapInit(s);
        if (!stick) Stick.Devices.clear();
        InitDirectInput(s);
        Settle();
    }
    void OpenMap() {
        s.Use3D = true;
        MapEnable(s, true);
        SetTab(s, kMapTab);
        Settle();
    }
    void OpenJoystick() {
        SetTab(s, kOptionTab);
        auto& page = *At("JoystickPage");
        for (int tab = 0; tab < 4 && !page.isVisible(); ++tab) Click(("OptionSubTab_" + std::to_string(tab)).c_str());
        ASSERT_TRUE(page.isVisible());
    }
    template <typename Widget>
    Widget& Find(const std::string& name) {
        return *Form->findChild<Widget*>(QString::fromStdString(name));
    }
};

}  // namespace marvolin::test

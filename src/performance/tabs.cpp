#include "performance/tabs.h"

#include "core/loops/loop_views.h"

namespace marvolin {

void SetTab(Session& s, std::int16_t tab) {
    if (tab < 0 || tab >= kTabs) return;
    s.ActiveTab = tab;
    s.World.Screen.ShowTab();
    TabControl_Changed(s);
}

void OptionSubTabs_Click(Session& s, std::int16_t tab) {
    s.ActiveSubTab = tab;
    s.World.Screen.ShowTab();
}

void TabControl_Changed(Session& s) { PatternsRefresh(s); }

}  // namespace marvolin

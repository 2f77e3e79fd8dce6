#include "core/help.h"

#include <string>

namespace marvolin {

bool ShowHelp(Session& s, std::string_view name, std::int32_t topic) {
    if (s.HelpFile.empty() || name != kHelpDragName) return false;
    try {
        s.World.Desk.ShowHelpTopic(topic);
    } catch (const RuntimeError& e) {
        s.World.Desk.Report(std::string("Error trying to open help file, ") + e.what());
        return false;
    }
    s.HelpShown = true;
    return true;
}

bool IsHelpDrop(Session& s, const DragSource& source, std::int32_t topic) {
    if (!IsHelpDrag(source)) return false;
    ShowHelp(s, kHelpDragName, topic);
    return true;
}

void CloseHelp(Session& s) { s.World.Desk.CloseWindowTitled(std::string(kHelpTitle)); }

}  // namespace marvolin

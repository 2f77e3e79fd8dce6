#include "check/check_components.h"

#include <algorithm>
#include <string>
#include <vector>

#include "check/dll_version.h"

namespace marvolin {

namespace {

constexpr std::string_view kSoundAddress = "https://openal-soft.org";

bool IsGood(CDLLVersion& info, const Component& component) {
    std::string version(component.Version);
    info.LoadFileInfo(std::string(component.File), std::string(component.Library), version);
    return info.FileRegistrationInfo() == "OK";
}

std::string Joined(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) list += (list.empty() ? "" : "; ") + name;
    return list;
}

}  // namespace

bool CheckComponents(Session& s, TypeLibraries& system) {
    CDLLVersion info(system);
    bool directX = true;
    std::vector<std::string> failed;
    for (const Component& component : kRequiredComponents) {
        if (IsGood(info, component)) continue;
        if (&component == &kRequiredComponents.front()) {
            directX = false;
            continue;
        }
        // One library may do the work of several components.
        const std::string name = system.PlayersName(std::string(component.File));
        if (std::find(failed.begin(), failed.end(), name) == failed.end()) failed.push_back(name);
    }
    if (!directX) {
        // The text is fixed; which library it is about is told by the address.
        const std::string address = system.Address(std::string(kRequiredComponents.front().File));
        s.World.Desk.MessageBox("DirectX 7.0a or higher not correctly installed. Get this component at " +
                                    (address.empty() ? std::string(kSoundAddress) : address),
                                "DirectX 7.0a missing", BoxStyle::Critical);
    }
    if (!failed.empty()) {
        s.World.Desk.MessageBox("Crucial file(s) not properly installed. File(s): " + Joined(failed) +
                                    ". Run mvlDiag.exe and send mvlDiag.txt in bug reports.",
                                "Missing Files", BoxStyle::Critical);
    }
    s.ScriptAvailable = IsGood(info, kScriptComponent);
    return directX && failed.empty();
}

}  // namespace marvolin

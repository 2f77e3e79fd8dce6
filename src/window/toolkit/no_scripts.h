#pragma once

#include "core/script_events.h"

namespace marvolin {

/// Script events while no script can run: all are ignored.
class NoScripts : public ScriptEvents {
public:
    void Call(ScriptEvent, std::span<const double>) override {}
    void ReportScriptError(std::string_view) override {}
};

}  // namespace marvolin

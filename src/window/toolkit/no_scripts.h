#pragma once

#include "core/script_events.h"

namespace marvolin {

/// An instrument without a script: there is no procedure to call.
class NoScripts : public ScriptEvents {
public:
    void Call(ScriptEvent, std::span<const double>) override {}
    void ReportScriptError(std::string_view) override {}
};

}  // namespace marvolin

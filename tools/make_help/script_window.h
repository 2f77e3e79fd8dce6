#pragma once
/// \file
/// The window of scripts for the pictures of Help: with an example that runs.

#include <memory>
#include <string>

#include "core/session.h"
#include "scripting/lua_script.h"
#include "scripting/script_host.h"
#include "scripting/script_room.h"
#include "window/editor/frm_scripts.h"

namespace marvolin::help {

class ScriptWindow {
public:
    /// `folder` is that of the program, where the window's module and the examples are. Raises `std::runtime_error`
    /// when the module cannot be loaded.
    ScriptWindow(Session& session, const std::string& folder);

    FrmScripts& Form() { return *form_; }
    /// Shows what is hidden until it is asked for: the list of examples, the bar for searching.
    void Reveal(const QString& name);
    /// Asks about a text that is not saved, as "New" does.
    void AskUnsaved();

private:
    ScriptRoom room_;
    LuaScript lua_;
    ScriptHost host_;
    std::unique_ptr<FrmScripts> form_;
};

}  // namespace marvolin::help

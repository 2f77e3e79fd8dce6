#pragma once
/// \file
/// An instrument on fakes whose scripts run on Lua.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/session.h"
#include "fakes/fake_display.h"
#include "fakes/fake_services.h"
#include "scripting/lua_script.h"
#include "scripting/script_host.h"

namespace marvolin::test {

/// What a rig may have in the place of its own.
struct LuaRigParts {
    Display* Screen = nullptr;                         ///< instead of the one that logs
    LuaClock Clock = {};                               ///< instead of the one that goes on at each look
    const FakeSample* Sample = nullptr;                ///< instead of one of a second
    std::function<void(std::string_view)> Print = {};  ///< instead of noting the lines
    std::function<void()> Ended = {};                  ///< the script has ended itself
};

/// Samples in rows A and B, pad and map laid out. The engine's clock goes on at each look.
struct LuaRig : FakeServices {
    std::int64_t Now = 0;      ///< ns
    std::int64_t Look = 1000;  ///< ns that a look at the clock takes
    std::vector<std::string> Printed;
    FakeDisplay Screen;
    LuaScript Engine;
    ScriptHost Host{Engine, Desk};
    Session s;

    explicit LuaRig(const LuaRigParts& parts = {});
    ~LuaRig();

    /// The services of a session whose events reach Lua, shown on `screen`.
    Services Scripted(Display& screen);
    /// Runs a text as the script "song.mvs".
    bool Run(const std::string& text) { return RunScript(s, Host, text, "song.mvs"); }
    /// Runs a text, and returns what it prints; the box when it fails.
    std::string Prints(const std::string& text);
    /// The text of the last box, without "Error in code for ".
    std::string Box() const;
    /// Puts a sample of one second into a row.
    void Fill(Row row, const std::string& path);
    /// Lets so many milliseconds pass, with a tick of the timer of delayed calls every 10.
    void Pass(std::int32_t milliseconds);
};

}  // namespace marvolin::test

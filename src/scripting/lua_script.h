#pragma once
/// \file
/// Lua 5.4 as the engine of scripts. The library is loaded when it is first asked for; without it no script runs, and
/// everything else does.
///
/// A script sees plain Lua and the table `marvolin`, nothing of the system. One event may take 20 ms, the first run of
/// a text 1 s, the script 32 MB; what takes more ends with an error. Altogether a script gets about half of the time.

#include <memory>
#include <string>

#include "core/session.h"
#include "scripting/api/api.h"
#include "scripting/lua_budget.h"
#include "scripting/lua_library.h"
#include "scripting/lua_state.h"
#include "scripting/script_control.h"
#include "scripting/script_rest.h"

namespace marvolin {

/// The clock of the system, in nanoseconds.
std::int64_t SteadyNanoseconds();

/// The Lua engine. It is attached to the session that its scripts play.
class LuaScript : public ScriptControl, private ScriptCode, private ApiEngine {
public:
    struct Options {
        LuaClock Clock = SteadyNanoseconds;
        std::function<void(std::string_view)> Print = {};  ///< gets each line that a script prints
        std::function<void()> Ended = {};                  ///< the script has ended itself
        const char* Library = kLuaFile;
    };
    explicit LuaScript(Options options);
    LuaScript() : LuaScript(Options{}) {}
    LuaScript(const LuaScript&) = delete;
    LuaScript& operator=(const LuaScript&) = delete;

    /// The session that scripts play. It must be set before a text is taken, and outlive the engine's use.
    void Attach(Session& s) { session_ = &s; }

    bool Available() override;
    void AddCode(const std::string& text) override;
    void Check(const std::string& text) override;
    void Reset() override;
    bool IsResting() override { return rest_.Owed(options_.Clock()) > ScriptRest::kBeforeClock; }
    ScriptCode& CodeObject() override { return *this; }
    const ScriptError& Error() const override { return error_; }

    /// Bytes that the script holds; 0 without one.
    std::size_t Memory() const;

private:
    bool Defines(std::string_view procedure) override;
    void Run(std::string_view procedure, std::span<const double> arguments) override;
    bool After(std::int32_t milliseconds) override;
    void AtEnd() override;
    void EndScript() override;

    [[noreturn]] void Fail(const ScriptError& error);
    std::shared_ptr<LuaState> StateFor(const std::string& text);
    void CallAtEnd(LuaState& state);
    void Tick(std::int32_t milliseconds);
    void RunDue(LuaState& state);
    void TellOfDelayed(LuaState& state);
    void ChargeFrom(std::int64_t begin);

    Options options_;
    std::shared_ptr<const LuaLibrary> lua_;
    bool asked_ = false;  ///< the library has been looked for
    Session* session_ = nullptr;
    ScriptError error_;
    ScriptRest rest_;
    std::shared_ptr<LuaState> state_;  ///< null without a text; a call under way holds it, too
    LuaState* ending_ = nullptr;       ///< the text whose last function is at work; null for none
    std::unique_ptr<PeriodicTimer> timer_;
};

}  // namespace marvolin

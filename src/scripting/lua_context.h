#pragma once
/// \file
/// What the functions that Lua calls reach: each state leads to its context.
///
/// A failure of Lua leaves C++ functions without destroying their objects. A function that Lua calls, and that calls
/// Lua in turn, therefore holds nothing with a destructor; what needs one is held here, or in a function of its own
/// that raises nothing and returns before Lua is called.

#include <deque>
#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "core/session.h"
#include "scripting/api/api.h"
#include "scripting/delayed_calls.h"
#include "scripting/lua_budget.h"
#include "scripting/lua_library.h"
#include "scripting/script_control.h"

namespace marvolin {

/// Names of the texts that Lua runs, as they stand in its messages: the player's script, and the part of the library
/// that is written in Lua.
inline constexpr std::string_view kScriptChunk = "=script";
inline constexpr std::string_view kLibraryChunk = "=library";

/// The context of a state.
struct LuaContext {
    LuaContext(const LuaLibrary& lua, LuaClock clock, Session& session, ApiEngine& engine)
        : Lua(lua), Budget(lua, std::move(clock)), s(session), Engine(engine) {}

    const LuaLibrary& Lua;
    LuaBudget Budget;
    Session& s;
    ApiEngine& Engine;
    std::function<void(std::string_view)> Print;
    lua_State* Running = nullptr;   ///< the thread whose function of the API is at work; null for none
    ScriptError Error;              ///< the last failure
    std::string Failure;            ///< of the function of the API that has just ended
    std::string Scratch;            ///< a text being made
    std::deque<ApiAnswer> Answers;  ///< of the functions of the API that are at work, the outermost first
    std::size_t Depth = 0;          ///< how many of them are in use
    DelayedCalls Delayed;           ///< by references to functions in Lua's registry
    std::set<std::string> Told;     ///< places and words of the failures of delayed calls that have been reported
    std::int64_t NextLine = 0;      ///< ns: from here on a failure of them that is not new has a line on the console
    int AtEnd = LUA_NOREF;          ///< the function to be called when the script ends, in Lua's registry
    bool AskedEnd = false;          ///< the call of the API under way wants its first argument called then
    std::int32_t AskedDelay = -1;   ///< ms: the call of the API under way wants its second argument called; -1 not
};

/// The context of a state or of one of its coroutines.
inline LuaContext& ContextOf(lua_State* L) { return **static_cast<LuaContext**>(lua_getextraspace(L)); }

/// Raises the error of a broken budget.
inline int RaiseBroken(lua_State* L) {
    LuaContext& context = ContextOf(L);
    context.Scratch = context.Budget.Words();
    return context.Lua.Raise(L, context.Scratch);
}

}  // namespace marvolin

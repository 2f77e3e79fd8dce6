#pragma once
/// \file
/// A text that Lua has taken, with all that it has made. Whatever is done to it is done in Lua's protected mode; the
/// functions here raise nothing.

#include <span>
#include <string>
#include <string_view>

#include "scripting/lua_context.h"

namespace marvolin {

/// One state of Lua.
class LuaState {
public:
    LuaState(const LuaLibrary& lua, LuaClock clock, Session& session, ApiEngine& engine);
    ~LuaState();
    LuaState(const LuaState&) = delete;
    LuaState& operator=(const LuaState&) = delete;

    // Each of these is true when it has gone well; else `Context.Error` describes the failure.

    /// Puts the script's library into the state.
    bool Open();
    /// Reads the text.
    bool Check(const std::string& text);
    /// Reads the text and runs its top level.
    bool Load(const std::string& text);
    /// Calls a procedure, if there is one of this name.
    bool Call(std::string_view procedure, std::span<const double> arguments);
    /// Calls a function that was kept for later, and lets it go.
    bool CallKept(int reference);

    /// Whether a global of this name is a function.
    bool Defines(std::string_view procedure);
    /// Whether some call of Lua is under way.
    bool IsRunning() const { return calls_ > 0; }

    LuaContext Context;

private:
    struct Work;
    static int Explain(lua_State* L);
    static int ReadText(lua_State* L);
    static int LoadText(lua_State* L);
    static int CallProcedure(lua_State* L);
    static int CallReference(lua_State* L);
    static int LookFor(lua_State* L);
    bool Protected(lua_CFunction function, Work& work, std::int64_t time);
    void TakeFailure(lua_State* L, int status, const LuaBudget::Allowance& used);

    const LuaLibrary& lua_;
    lua_State* main_ = nullptr;
    int calls_ = 0;
};

}  // namespace marvolin

#include "scripting/lua_state.h"

#include <utility>

#include "scripting/lua_calls.h"
#include "scripting/lua_messages.h"
#include "scripting/lua_sandbox.h"

namespace marvolin {

/// What a function in protected mode works on, and what it finds.
struct LuaState::Work {
    std::string_view Text = {};
    std::span<const double> Arguments = {};
    int Reference = LUA_NOREF;
    bool Found = false;
};

LuaState::LuaState(const LuaLibrary& lua, LuaClock clock, Session& session, ApiEngine& engine)
    : Context(lua, std::move(clock), session, engine), lua_(lua), main_(Context.Budget.MakeState()) {
    if (main_ != nullptr) *static_cast<LuaContext**>(lua_getextraspace(main_)) = &Context;
}

LuaState::~LuaState() {
    Context.Budget.LimitMemory(false);
    if (main_ != nullptr) lua_.lua_close(main_);
}

bool LuaState::Open() {
    Work none;
    if (main_ == nullptr) {
        Context.Error = {"not enough memory", 0, 0};
        return false;
    }
    const bool open = Protected(OpenSandbox, none, kFirstRunTime);
    Context.Budget.LimitMemory(true);
    return open;
}

bool LuaState::Check(const std::string& text) {
    Work work{.Text = text};
    if (Protected(ReadText, work, kFirstRunTime)) return true;
    Context.Error.Column = ColumnOf(Context.Error, text);
    return false;
}

bool LuaState::Load(const std::string& text) {
    Work work{.Text = text};
    if (Protected(LoadText, work, kFirstRunTime)) return true;
    if (!work.Found) Context.Error.Column = ColumnOf(Context.Error, text);
    return false;
}

bool LuaState::Call(std::string_view procedure, std::span<const double> arguments) {
    Work work{.Text = procedure, .Arguments = arguments};
    return Protected(CallProcedure, work, kEventTime);
}

bool LuaState::CallKept(int reference) {
    Work work{.Reference = reference};
    return Protected(CallReference, work, kEventTime);
}

bool LuaState::Defines(std::string_view procedure) {
    Work work{.Text = procedure};
    return Protected(LookFor, work, kEventTime) && work.Found;
}

bool LuaState::Protected(lua_CFunction function, Work& work, std::int64_t time) {
    // A call from inside a function of the API stands on the thread of the script that runs it.
    lua_State* const L = Context.Running != nullptr ? Context.Running : main_;
    if (lua_.lua_checkstack(L, 4) == 0) {
        Context.Error = {"stack overflow", 0, 0};
        return false;
    }
    const LuaBudget::Allowance around = Context.Budget.Begin(time);
    ++calls_;
    const int top = lua_.lua_gettop(L);
    lua_.PushFunction(L, Explain);
    lua_.PushFunction(L, function);
    lua_.lua_pushlightuserdata(L, &work);
    const int status = lua_.lua_pcallk(L, 1, 0, top + 1, 0, nullptr);
    --calls_;
    const bool broken = Context.Budget.IsBroken();
    const LuaBudget::Allowance used = Context.Budget.End(around);
    if (status != LUA_OK || broken) TakeFailure(L, status, used);
    lua_.lua_settop(L, top);
    // The hook may have been set to every instruction.
    if (broken) Context.Budget.Restore(L);
    return status == LUA_OK && !broken;
}

void LuaState::TakeFailure(lua_State* L, int status, const LuaBudget::Allowance& used) {
    if (used.What != Exhausted::Nothing) {
        const bool explained = status == LUA_ERRRUN && used.Line == 0;
        const std::int32_t line = explained ? Context.Error.Line : used.Line;
        Context.Error = {LuaBudget::Words(used), line, 0};
    } else if (status == LUA_ERRMEM || status == LUA_ERRERR) {
        std::size_t length = 0;
        const bool isText = lua_.lua_type(L, -1) == LUA_TSTRING;
        const char* const text = isText ? lua_.lua_tolstring(L, -1, &length) : "error in error handling";
        Context.Error = TakenApart(text);
    }
}

/// Lua's message handler: notes the failure while the place of it is still known.
int LuaState::Explain(lua_State* L) {
    LuaContext& context = ContextOf(L);
    const LuaLibrary& lua = context.Lua;
    std::size_t length = 0;
    if (lua.lua_type(L, 1) == LUA_TSTRING || lua.lua_type(L, 1) == LUA_TNUMBER) {
        const char* const text = lua.lua_tolstring(L, 1, &length);
        context.Error = TakenApart({text, length});
    } else {
        context.Error = {};
        context.Error.Description.append("an error that is a ").append(lua.lua_typename(L, lua.lua_type(L, 1)));
    }
    if (context.Error.Line == 0) context.Error.Line = ScriptLine(lua, L);
    return 1;
}

/// Leaves the text on top, as a function.
int LuaState::ReadText(lua_State* L) {
    const LuaLibrary& lua = ContextOf(L).Lua;
    auto& work = *static_cast<Work*>(lua.lua_touserdata(L, 1));
    const int status = lua.luaL_loadbufferx(L, work.Text.data(), work.Text.size(), kScriptChunk.data(), "t");
    if (status != LUA_OK) return lua.lua_error(L);
    work.Found = true;
    return 1;
}

int LuaState::LoadText(lua_State* L) {
    const LuaLibrary& lua = ContextOf(L).Lua;
    ReadText(L);
    lua.lua_callk(L, 0, 0, 0, nullptr);
    return 0;
}

int LuaState::LookFor(lua_State* L) {
    const LuaLibrary& lua = ContextOf(L).Lua;
    auto& work = *static_cast<Work*>(lua.lua_touserdata(L, 1));
    lua.lua_rawgeti(L, LUA_REGISTRYINDEX, LUA_RIDX_GLOBALS);
    lua.PushText(L, work.Text);
    lua.lua_rawget(L, -2);
    work.Found = lua.IsFunction(L, -1);
    return 1;
}

int LuaState::CallProcedure(lua_State* L) {
    const LuaLibrary& lua = ContextOf(L).Lua;
    const auto& work = *static_cast<Work*>(lua.lua_touserdata(L, 1));
    LookFor(L);
    if (!work.Found) return 0;
    for (const double argument : work.Arguments) PushNumber(lua, L, argument);
    lua.lua_callk(L, static_cast<int>(work.Arguments.size()), 0, 0, nullptr);
    return 0;
}

int LuaState::CallReference(lua_State* L) {
    const LuaLibrary& lua = ContextOf(L).Lua;
    const auto& work = *static_cast<Work*>(lua.lua_touserdata(L, 1));
    lua.lua_rawgeti(L, LUA_REGISTRYINDEX, work.Reference);
    lua.luaL_unref(L, LUA_REGISTRYINDEX, work.Reference);
    lua.lua_callk(L, 0, 0, 0, nullptr);
    return 0;
}

}  // namespace marvolin

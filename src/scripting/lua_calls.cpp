#include "scripting/lua_calls.h"

#include <cmath>
#include <exception>
#include <optional>
#include <tuple>
#include <utility>

#include "audio/ds_error.h"
#include "core/errors.h"
#include "scripting/api/api_arguments.h"
#include "scripting/api/api_table.h"

namespace marvolin {

namespace {

/// What Lua has on its stack as an argument. Reads only.
ApiGiven GivenAt(const LuaLibrary& lua, lua_State* L, int index) {
    ApiGiven given;
    given.TypeName = lua.lua_typename(L, lua.lua_type(L, index));
    switch (lua.lua_type(L, index)) {
        case LUA_TNONE:
            break;
        case LUA_TNUMBER:
            given.What = ApiGiven::Kind::Number;
            given.Number = lua.lua_tonumberx(L, index, nullptr);
            break;
        case LUA_TBOOLEAN:
            given.What = ApiGiven::Kind::Flag;
            given.Number = lua.lua_toboolean(L, index);
            break;
        case LUA_TSTRING:
            given.What = ApiGiven::Kind::Text;
            given.Text = lua.lua_tolstring(L, index, &given.Length);
            break;
        case LUA_TFUNCTION:
            given.What = ApiGiven::Kind::Function;
            break;
        case LUA_TNIL:
            given.What = ApiGiven::Kind::Nil;
            break;
        default:
            given.What = ApiGiven::Kind::Other;
            break;
    }
    return given;
}

std::string WordsOf(const std::exception& error) {
    if (const auto* sound = dynamic_cast<const SoundError*>(&error)) return std::string(DSErrorText(sound->Number()));
    return error.what();
}

/// Reads the arguments and carries out the function. False with `Failure` set when something is wrong.
bool Perform(LuaContext& context, lua_State* L, const ApiFunction& function, ApiAnswer& answer) noexcept {
    const bool slow = function.Speed == Pace::Slow;
    bool charged = true;
    lua_State* const around = context.Running;
    context.Running = L;
    // Not yet in the context: an event inside this call may have failures of its own.
    std::string failure;
    try {
        std::array<ApiGiven, kMostParameters> given;
        const auto count = static_cast<std::size_t>(context.Lua.lua_gettop(L));
        for (std::size_t i = 0; i < kMostParameters; ++i) given[i] = GivenAt(context.Lua, L, static_cast<int>(i) + 1);
        const ApiValues values = CheckedValues(function, given, count);
        if (slow && !context.Budget.BeginSlow()) {
            throw ApiFault("a script may load at most " + std::to_string(kSlowCalls) +
                           " samples and sets in one event");
        }
        charged = !slow;
        ApiCall call(context.s, context.Engine, values, answer);
        std::optional<UndoStep> step;
        if (function.TakesBack) step.emplace(context.s, "", *function.TakesBack, UndoKind::Script);
        function.Act(call);
    } catch (const std::exception& error) {
        failure = std::string(function.Name) + ": " + WordsOf(error);
    } catch (...) {
        failure = std::string(function.Name) + ": internal error";
    }
    if (!charged) context.Budget.EndSlow();
    context.Running = around;
    context.Failure = std::move(failure);
    return context.Failure.empty();
}

void PushItem(const LuaLibrary& lua, lua_State* L, const ApiAnswer::Item& item) {
    switch (item.What) {
        case ApiAnswer::Kind::Nil:
            return lua.lua_pushnil(L);
        case ApiAnswer::Kind::Flag:
            return lua.lua_pushboolean(L, item.Number != 0 ? 1 : 0);
        case ApiAnswer::Kind::Text:
            return lua.PushText(L, item.Text);
        case ApiAnswer::Kind::Number:
            return PushNumber(lua, L, item.Number);
    }
}

/// The answer of a call at this depth. Answers of calls further in are behind it, so it stays valid.
ApiAnswer& AnswerAt(LuaContext& context, std::size_t depth) noexcept {
    while (context.Answers.size() <= depth) context.Answers.emplace_back();
    context.Answers[depth].Count = 0;
    return context.Answers[depth];
}

/// Keeps the function that is the second argument until it is due.
void KeepForLater(LuaContext& context, lua_State* L) {
    const std::int32_t delay = std::exchange(context.AskedDelay, -1);
    context.Lua.lua_pushvalue(L, 2);
    context.Delayed.Add(delay, context.Lua.luaL_ref(L, LUA_REGISTRYINDEX));
}

/// Keeps the function that is the first argument until the script ends.
void KeepForEnd(LuaContext& context, lua_State* L) {
    context.AskedEnd = false;
    context.Lua.luaL_unref(L, LUA_REGISTRYINDEX, std::exchange(context.AtEnd, LUA_NOREF));
    context.Lua.lua_pushvalue(L, 1);
    context.AtEnd = context.Lua.luaL_ref(L, LUA_REGISTRYINDEX);
}

/// The function behind every member of `marvolin`.
int CallApi(lua_State* L) {
    LuaContext& context = ContextOf(L);
    if (context.Budget.IsBroken()) return RaiseBroken(L);
    const auto& function = *static_cast<const ApiFunction*>(context.Lua.lua_touserdata(L, lua_upvalueindex(1)));
    ApiAnswer& answer = AnswerAt(context, context.Depth);
    ++context.Depth;
    const bool done = Perform(context, L, function, answer);
    --context.Depth;
    if (!done) return context.Lua.Raise(L, context.Failure);
    if (context.AskedDelay >= 0) KeepForLater(context, L);
    if (context.AskedEnd) KeepForEnd(context, L);
    // Lua has room for so many in every function that it calls.
    static_assert(std::tuple_size_v<decltype(answer.Items)> <= LUA_MINSTACK);
    for (std::size_t i = 0; i < answer.Count; ++i) PushItem(context.Lua, L, answer.Items[i]);
    return static_cast<int>(answer.Count);
}

}  // namespace

void PushApi(lua_State* L) {
    const LuaLibrary& lua = ContextOf(L).Lua;
    lua.lua_createtable(L, 0, 0);
    for (const ApiSubject& subject : ApiSubjects()) {
        for (const ApiFunction& function : subject.Functions) {
            lua.PushText(L, function.Name);
            lua.lua_pushlightuserdata(L, const_cast<ApiFunction*>(&function));
            lua.lua_pushcclosure(L, CallApi, 1);
            lua.lua_rawset(L, -3);
        }
    }
}

void PushNumber(const LuaLibrary& lua, lua_State* L, double number) {
    constexpr double kExact = 9007199254740992.0;  // up to here every whole number has its own double
    if (std::floor(number) == number && std::abs(number) <= kExact) {
        lua.lua_pushinteger(L, static_cast<lua_Integer>(number));
    } else {
        lua.lua_pushnumber(L, number);
    }
}

void PrintLine(const LuaContext& context, std::string_view line) noexcept {
    try {
        if (context.Print) context.Print(line);
    } catch (...) {
        return;
    }
}

}  // namespace marvolin

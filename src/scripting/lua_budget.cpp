#include "scripting/lua_budget.h"

#include <cstdlib>
#include <utility>

#include "scripting/lua_context.h"
#include "scripting/lua_messages.h"

namespace marvolin {

namespace {

constexpr int kInstructionsACheck = 200;
constexpr int kMostCollections = 3;  // in one call

std::string Milliseconds(std::int64_t nanoseconds) { return std::to_string(nanoseconds / 1'000'000) + " ms"; }

}  // namespace

LuaBudget::Allowance LuaBudget::Begin(std::int64_t length) {
    const Allowance around = now_;
    now_ = {};
    now_.Length = length;
    now_.End = clock_() + length;
    return around;
}

LuaBudget::Allowance LuaBudget::End(const Allowance& around) { return std::exchange(now_, around); }

bool LuaBudget::IsBroken() {
    if (now_.What != Exhausted::Nothing) return true;
    if (ended_) {
        now_.What = Exhausted::Ended;
    } else if (clock_() > now_.End) {
        now_.What = Exhausted::Time;
    }
    return now_.What != Exhausted::Nothing;
}

std::string LuaBudget::Words(const Allowance& used) {
    switch (used.What) {
        case Exhausted::Time:
            return "The script ran longer than " + Milliseconds(used.Length);
        case Exhausted::Memory:
            return "The script needs more than " + std::to_string(kScriptMemory / 1024 / 1024) + " MB of memory";
        case Exhausted::Text:
            return "The script made a text longer than " + std::to_string(kLongestLuaText / 1024) + " KB";
        case Exhausted::Ended:
            return "The script was ended";
        case Exhausted::Nothing:
            break;
    }
    return "";
}

bool LuaBudget::BeginSlow() {
    if (++now_.SlowCalls > kSlowCalls) return false;
    now_.SlowSince = clock_();
    return true;
}

void LuaBudget::EndSlow() { now_.End += clock_() - now_.SlowSince; }

lua_State* LuaBudget::MakeState() {
    main_ = lua_.lua_newstate(Allocate, this);
    if (main_ != nullptr) Restore(main_);
    return main_;
}

void LuaBudget::Restore(lua_State* L) { lua_.lua_sethook(L, OnCount, LUA_MASKCOUNT, kInstructionsACheck); }

void LuaBudget::OnCount(lua_State* L, lua_Debug*) {
    LuaContext& context = ContextOf(L);
    if (!context.Budget.IsBroken()) return;
    // From here on at every instruction, so that trapping the error is of no use.
    context.Lua.lua_sethook(L, OnCount, LUA_MASKCOUNT, 1);
    RaiseBroken(L);
}

// The place of the failure is noted here: for an error of memory Lua calls no handler.
void LuaBudget::NoteLine() {
    if (const std::int32_t line = ScriptLine(lua_, main_)) now_.Line = line;
}

bool LuaBudget::Grants(const void* block, std::size_t kind, std::size_t before, std::size_t after) {
    if (!limited_ || after <= before) return true;
    if (block == nullptr && kind == LUA_TSTRING && after > kLongestLuaText + 64) {
        now_.What = Exhausted::Text;
        NoteLine();
        return false;
    }
    if (used_ + (after - before) <= kScriptMemory) {
        refusals_ = 0;
        return true;
    }
    // Lua frees what it can after the first refusal, which takes long, and asks again.
    if (++refusals_ < 2 && ++now_.Collections <= kMostCollections) return false;
    now_.What = Exhausted::Memory;
    NoteLine();
    return false;
}

void* LuaBudget::Allocate(void* self, void* block, std::size_t before, std::size_t after) {
    auto& budget = *static_cast<LuaBudget*>(self);
    const std::size_t held = block == nullptr ? 0 : before;  // of a new block Lua says its kind instead
    if (after == 0) {
        std::free(block);
        budget.used_ -= held;
        return nullptr;
    }
    if (!budget.Grants(block, before, held, after)) return nullptr;
    void* const moved = std::realloc(block, after);
    if (moved == nullptr) return after <= held ? block : nullptr;
    budget.used_ = budget.used_ - held + after;
    return moved;
}

}  // namespace marvolin

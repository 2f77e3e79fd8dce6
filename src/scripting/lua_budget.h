#pragma once
/// \file
/// What a script may use up: time by the call, memory and length of a text altogether.
///
/// Lua asks after every few instructions whether the time is over, and the functions written here ask, too. A budget
/// that is broken stays broken until the call ends: a script that traps the error gets it again at its next
/// instruction.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>

#include "scripting/lua_library.h"

namespace marvolin {

inline constexpr std::int64_t kEventTime = 20'000'000;          // ns
inline constexpr std::int64_t kFirstRunTime = 1'000'000'000;    // ns
inline constexpr std::size_t kScriptMemory = 32 * 1024 * 1024;  // bytes
inline constexpr std::size_t kLongestLuaText = 256 * 1024;      // bytes
inline constexpr std::size_t kLongestScript = 1024 * 1024;      // bytes
inline constexpr int kSlowCalls = 8;                            // samples and sets that one call may load

/// Nanoseconds of a clock that never goes back.
using LuaClock = std::function<std::int64_t()>;

/// What breaks a budget.
enum class Exhausted : std::uint8_t { Nothing, Time, Memory, Text, Ended };

/// The budget of one script.
class LuaBudget {
public:
    LuaBudget(const LuaLibrary& lua, LuaClock clock) : lua_(lua), clock_(std::move(clock)) {}
    LuaBudget(const LuaBudget&) = delete;
    LuaBudget& operator=(const LuaBudget&) = delete;

    /// What one call into the script has left.
    struct Allowance {
        std::int64_t Length = 0;  ///< ns
        std::int64_t End = std::numeric_limits<std::int64_t>::max();
        Exhausted What = Exhausted::Nothing;
        int SlowCalls = 0;           ///< those made so far
        std::int64_t SlowSince = 0;  ///< ns, of the slow call under way
        int Collections = 0;         ///< of garbage, because the memory was at its end
        std::int32_t Line = 0;       ///< where the memory came to its end; 0 unknown
    };
    /// Begins a call that may take `length` ns, and returns the allowance of the call around it.
    Allowance Begin(std::int64_t length);
    /// Ends it. Returns its allowance.
    Allowance End(const Allowance& around);

    /// Whether the budget is broken; looks at the clock.
    bool IsBroken();
    /// What the player is told of an allowance that is used up.
    static std::string Words(const Allowance& used);
    std::string Words() const { return Words(now_); }
    /// Lets a thread run at its usual pace again, after its call has ended.
    void Restore(lua_State* L);
    /// The script is being forgotten: whatever of it still runs ends at its next instruction.
    void EndAll() { ended_ = true; }
    bool HasEnded() const { return ended_; }
    /// Begins something slow that the script may do a few times in one call. It is not part of the call's time; the
    /// script rests for it afterwards. False when it has done so too often.
    bool BeginSlow();
    void EndSlow();

    /// Makes a state with this budget; null without memory.
    lua_State* MakeState();
    /// Whether the limits of memory hold yet; not while the state is set up.
    void LimitMemory(bool on) { limited_ = on; }
    std::size_t Used() const { return used_; }

    /// Lua's hook: raises the error of a broken budget.
    static void OnCount(lua_State* L, lua_Debug*);

private:
    static void* Allocate(void* self, void* block, std::size_t before, std::size_t after);
    bool Grants(const void* block, std::size_t kind, std::size_t before, std::size_t after);
    void NoteLine();

    const LuaLibrary& lua_;
    LuaClock clock_;
    lua_State* main_ = nullptr;
    Allowance now_;
    std::size_t used_ = 0;
    int refusals_ = 0;  ///< without success in between
    bool limited_ = false;
    bool ended_ = false;
};

}  // namespace marvolin

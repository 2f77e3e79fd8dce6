#include "scripting/lua_script.h"

#include <chrono>
#include <set>
#include <string>
#include <utility>

#include "core/errors.h"
#include "scripting/lua_calls.h"
#include "scripting/script_host.h"

namespace marvolin {

namespace {

constexpr std::uint32_t kScriptFailed = 1;  // number of the error that a failing script raises
// A script whose failures all differ would be told of without end.
constexpr std::size_t kMostTold = 20;
constexpr std::int64_t kBetweenRepeats = 1'000'000'000;  // ns, of lines on the console about failures told before

/// Whether a failure of a delayed call has not been told yet; from now on it has. Such a call asks for itself again,
/// and would fail a hundred times a second.
bool IsNews(std::set<std::string>& told, const ScriptError& error) {
    if (told.size() >= kMostTold) return false;
    return told.insert(std::to_string(error.Line) + " " + error.Description).second;
}

}  // namespace

std::int64_t SteadyNanoseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

LuaScript::LuaScript(Options options) : options_(std::move(options)) {}

bool LuaScript::Available() {
    if (!asked_) lua_ = LoadLua(options_.Library);
    asked_ = true;
    return lua_ != nullptr;
}

std::size_t LuaScript::Memory() const { return state_ ? state_->Context.Budget.Used() : 0; }

void LuaScript::Fail(const ScriptError& error) {
    error_ = error;
    throw RuntimeError(kScriptFailed, error.Description);
}

/// A state with the library, ready to read the text.
std::shared_ptr<LuaState> LuaScript::StateFor(const std::string& text) {
    if (!Available()) Fail({"Lua 5.4 is not installed. Its package is liblua5.4-0", 0, 0});
    if (session_ == nullptr) throw NoObjectError();
    if (text.size() > kLongestScript) {
        Fail({"The text is longer than " + std::to_string(kLongestScript / 1024 / 1024) + " MB", 0, 0});
    }
    ApiEngine& engine = *this;
    const auto state = std::make_shared<LuaState>(*lua_, options_.Clock, *session_, engine);
    state->Context.Print = options_.Print;
    if (!state->Open()) Fail(state->Context.Error);
    return state;
}

void LuaScript::Check(const std::string& text) {
    const std::shared_ptr<LuaState> state = StateFor(text);
    if (!state->Check(text)) Fail(state->Context.Error);
}

void LuaScript::AddCode(const std::string& text) {
    Reset();
    const std::shared_ptr<LuaState> state = StateFor(text);
    state_ = state;
    if (state->Load(text) || state_ != state) return;
    const ScriptError error = state->Context.Error;
    Reset();
    Fail(error);
}

void LuaScript::Reset() {
    // Behind a box that its last call has opened another text may begin.
    if (ending_) ending_->Context.Budget.EndAll();
    if (!state_) return;
    const std::shared_ptr<LuaState> state = std::exchange(state_, nullptr);
    if (timer_) timer_->SetEnabled(false);
    rest_.Forgive();
    CallAtEnd(*state);
    // What still runs of it holds it until it has ended.
    state->Context.Budget.EndAll();
}

void LuaScript::CallAtEnd(LuaState& state) {
    const int last = std::exchange(state.Context.AtEnd, LUA_NOREF);
    if (last == LUA_NOREF) return;
    const bool busy = std::exchange(session_->ScriptBusy, true);
    LuaState* const around = std::exchange(ending_, &state);
    const bool done = state.CallKept(last);
    ending_ = around;
    if (!done && !state.Context.Budget.HasEnded()) {
        error_ = state.Context.Error;
        session_->World.Scripts.ReportScriptError("at_end");
    }
    session_->ScriptBusy = busy;
}

void LuaScript::ChargeFrom(std::int64_t begin) {
    const std::int64_t now = options_.Clock();
    rest_.Charge(now, now - begin);
}

bool LuaScript::Defines(std::string_view procedure) { return state_ && state_->Defines(procedure); }

void LuaScript::Run(std::string_view procedure, std::span<const double> arguments) {
    const std::shared_ptr<LuaState> state = state_;
    if (!state) return;
    // An event inside another one belongs to the time of that one.
    const bool outermost = !state->IsRunning();
    const std::int64_t begin = options_.Clock();
    const bool done = state->Call(procedure, arguments);
    if (outermost && state == state_) ChargeFrom(begin);
    if (done) return;
    // A script that was ended meanwhile has not failed.
    if (state == state_) Fail(state->Context.Error);
}

void LuaScript::AtEnd() {
    if (state_) state_->Context.AskedEnd = true;
}

bool LuaScript::After(std::int32_t milliseconds) {
    if (!state_) return true;  // it is ending, and nothing will be called
    if (!state_->Context.Delayed.HasRoom()) return false;
    if (!timer_) {
        timer_ = session_->World.Timers.Create([this](std::int32_t elapsed) { Tick(elapsed); });
        timer_->SetInterval(kDelayInterval);
    }
    if (state_->Context.Delayed.Empty()) timer_->SetEnabled(true);
    state_->Context.AskedDelay = milliseconds;
    return true;
}

void LuaScript::EndScript() {
    const bool runs = state_ != nullptr;
    StopScript(*session_);
    ClearScriptEvents(*session_);
    Reset();
    if (runs && options_.Ended) options_.Ended();
}

void LuaScript::Tick(std::int32_t milliseconds) {
    const std::shared_ptr<LuaState> state = state_;
    if (!state || !session_->ScriptEnabled) {
        timer_->SetEnabled(false);
        return;
    }
    state->Context.Delayed.Pass(milliseconds);
    if (session_->ScriptBusy || rest_.Owed(options_.Clock()) > ScriptRest::kBeforeDelayed) return;
    session_->ScriptBusy = true;
    const std::int64_t begin = options_.Clock();
    RunDue(*state);
    if (state == state_) ChargeFrom(begin);
    session_->ScriptBusy = false;
    if (state == state_ && state->Context.Delayed.Empty()) timer_->SetEnabled(false);
}

// What does not fit into the time of one event waits for the next tick.
void LuaScript::RunDue(LuaState& state) {
    const std::int64_t end = options_.Clock() + kEventTime;
    while (options_.Clock() <= end) {
        const std::optional<int> due = state.Context.Delayed.TakeDue();
        if (!due) return;
        const bool done = state.CallKept(*due);
        if (&state != state_.get()) return;
        if (done) continue;
        TellOfDelayed(state);
    }
}

// A box for what is new; of the rest a line once a second, so that the player sees that it fails still.
void LuaScript::TellOfDelayed(LuaState& state) {
    LuaContext& context = state.Context;
    error_ = context.Error;
    const std::int64_t now = options_.Clock();
    const bool news = IsNews(context.Told, error_);
    if (!news && now < context.NextLine) return;
    context.NextLine = now + kBetweenRepeats;
    if (news) return session_->World.Scripts.ReportScriptError("after");
    const std::string line = error_.Line > 0 ? ", line " + std::to_string(error_.Line) : "";
    PrintLine(context, "Error in after: " + error_.Description + line);
}

}  // namespace marvolin

#include "scripting/lua_script.h"

#include <chrono>
#include <set>
#include <string>

#include "core/errors.h"
#include "scripting/script_host.h"

namespace marvolin {

namespace {

constexpr std::uint32_t kScriptFailed = 1;  // number of the error that a failing script raises
// A script whose failures all differ would be told of without end.
constexpr std::size_t kMostTold = 20;

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
    state_.reset();
    Fail(state->Context.Error);
}

void LuaScript::Reset() {
    if (!state_) return;
    // What still runs of it holds it until it has ended.
    state_->Context.Budget.EndAll();
    state_.reset();
    if (timer_) timer_->SetEnabled(false);
    rest_.Forgive();
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

bool LuaScript::After(std::int32_t milliseconds) {
    if (!state_ || !state_->Context.Delayed.HasRoom()) return false;
    if (!timer_) {
        timer_ = session_->World.Timers.Create([this](std::int32_t elapsed) { Tick(elapsed); });
        timer_->SetInterval(kDelayInterval);
    }
    if (state_->Context.Delayed.Empty()) timer_->SetEnabled(true);
    state_->Context.AskedDelay = milliseconds;
    return true;
}

void LuaScript::EndScript() {
    StopScript(*session_);
    ClearScriptEvents(*session_);
    Reset();
    if (options_.Ended) options_.Ended();
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
        error_ = state.Context.Error;
        if (IsNews(state.Context.Told, error_)) session_->World.Scripts.ReportScriptError("after");
    }
}

}  // namespace marvolin

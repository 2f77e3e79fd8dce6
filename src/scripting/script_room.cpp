#include "scripting/script_room.h"

#include "core/errors.h"
#include "core/undo/undo_step.h"

namespace marvolin {

void ScriptRoom::Attach(Session& s, ScriptHost& host) {
    session_ = &s;
    host_ = &host;
    host.OnError = [this](std::string_view where, const ScriptError& error) { TakeError(where, error); };
}

std::optional<ScriptError> ScriptRoom::Check(const std::string& text) {
    try {
        host_->MyScript.Check(text);
        return std::nullopt;
    } catch (const RuntimeError&) {
        return host_->MyScript.Error();
    }
}

bool ScriptRoom::Run(const std::string& text, const std::string& name) {
    if (const std::optional<ScriptError> wrong = Check(text)) {
        TakeError(name, *wrong);
        return false;
    }
    const UndoStep step(*session_, "Run of " + name);
    if (Runs()) Note(name_ + " is stopped");
    Note(name + " starts");
    name_ = name;
    const bool taken = RunScript(*session_, *host_, text, name);
    for (int event = 0; event < kScriptEvents; ++event) defined_[event] = session_->EventWanted[event] != 0;
    Changed();
    return taken;
}

void ScriptRoom::Stop() {
    if (!Runs()) return;
    Note(name_ + " is stopped");
    EndScript(*session_, *host_);
    Changed();
}

bool ScriptRoom::Runs() const { return session_ != nullptr && session_->ScriptEnabled; }

const std::string& ScriptRoom::Name() const {
    static const std::string kNone;
    return Runs() ? name_ : kNone;
}

Hearing ScriptRoom::Hears(ScriptEvent event) const {
    const auto row = static_cast<std::int32_t>(event);
    if (!Runs() || !defined_[row]) return Hearing::No;
    // An event is not wanted while it is at work.
    return session_->EventWanted[row] != 0 || session_->ScriptBusy ? Hearing::Yes : Hearing::Silent;
}

void ScriptRoom::Print(std::string_view line) {
    Console.Add(ConsoleLine::Kind::Printed, line);
    Changed();
}

void ScriptRoom::EndedItself() { Note(name_ + " has ended itself"); }

void ScriptRoom::TakeError(std::string_view where, const ScriptError& error) {
    failure_ = {failure_.Number + 1, std::string(where), error};
    std::string text = "Error in " + failure_.Where + ": " + error.Description;
    if (error.Line > 0) text += ", line " + std::to_string(error.Line);
    Console.Add(ConsoleLine::Kind::Error, text);
    Changed();
}

void ScriptRoom::Note(std::string_view text) {
    Console.Add(ConsoleLine::Kind::Note, text);
    Changed();
}

void ScriptRoom::Changed() {
    if (OnChange) OnChange();
}

}  // namespace marvolin

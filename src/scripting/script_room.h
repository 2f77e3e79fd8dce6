#pragma once
/// \file
/// What the window of scripts and the main window know of the script that runs.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "scripting/script_console.h"
#include "scripting/script_host.h"

namespace marvolin {

/// Whether a script hears an event.
enum class Hearing : std::uint8_t {
    No,  ///< no script runs, or it does not define the event
    Yes,
    Silent,  ///< the event has failed, and is no longer sent
};

/// The room in which scripts are run by hand: at most one at a time, under its name. It keeps the console.
class ScriptRoom {
public:
    /// An error of a script, as it was reported.
    struct Failure {
        std::uint64_t Number = 0;  ///< counts the failures from 1; 0 when there was none
        std::string Where;         ///< the script, or the event or "after"
        ScriptError Error;
    };

    /// Takes session and host, which must outlive its use.
    void Attach(Session& s, ScriptHost& host);

    /// Reads the text without running it: what is wrong with it, or nothing. The script that runs goes on.
    std::optional<ScriptError> Check(const std::string& text);
    /// Runs a text under `name`, in the place of the one that runs. False when it cannot be read, which only the
    /// console tells, and then the other one goes on; or when its first run fails, which is reported, and then none
    /// runs.
    bool Run(const std::string& text, const std::string& name);
    /// Stops the script that runs.
    void Stop();

    bool Runs() const;
    /// Name of the script that runs; "" when none does.
    const std::string& Name() const;
    Hearing Hears(ScriptEvent event) const;
    const Failure& LastFailure() const { return failure_; }

    /// A line that the script prints.
    void Print(std::string_view line);
    /// The script that runs has ended itself.
    void EndedItself();

    ScriptConsole Console;
    /// Runs when any of the above may have changed, a new line of the console included; from inside an event of the
    /// script, too. It must not raise and should only take note.
    std::function<void()> OnChange;

private:
    void TakeError(std::string_view where, const ScriptError& error);
    void Note(std::string_view text);
    void Changed();

    Session* session_ = nullptr;
    ScriptHost* host_ = nullptr;
    std::string name_;
    Failure failure_;
    Table<bool, kScriptEvents> defined_;
};

}  // namespace marvolin

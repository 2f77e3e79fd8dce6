#pragma once
/// \file
/// The engine that runs the player's scripts, as the host uses it. Behind it stands Lua (scripting/lua_script.h).

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace marvolin {

/// What the engine says of the last failure of a script.
struct ScriptError {
    std::string Description;
    std::int32_t Line = 0;    ///< of the script's text, from 1; 0 when unknown
    std::int32_t Column = 0;  ///< within the line, from 1; 0 when unknown
};

/// The procedures that a text defines, called by their names.
class ScriptCode {
public:
    virtual ~ScriptCode() = default;
    /// Whether there is a procedure of this name now.
    virtual bool Defines(std::string_view procedure) = 0;
    /// Calls a procedure; one that is not defined is not called. Raises `RuntimeError` when it fails, which
    /// `ScriptControl::Error` then describes.
    virtual void Run(std::string_view procedure, std::span<const double> arguments) = 0;
};

/// A script engine. It holds one text at a time.
class ScriptControl {
public:
    virtual ~ScriptControl() = default;
    /// Whether the engine is installed on this system.
    virtual bool Available() = 0;
    /// Takes `text` in the place of the previous one, and runs its top level once. Raises `RuntimeError` when the
    /// text cannot be read or fails, which `Error` then describes; the engine is then without a text.
    virtual void AddCode(const std::string& text) = 0;
    /// Reads `text` as `AddCode` does, and neither runs nor keeps it. Raises `RuntimeError` when it cannot be read,
    /// which `Error` then describes.
    virtual void Check(const std::string& text) = 0;
    /// Calls what the text has left to be called at its end, then forgets it and all that it has made. From inside a procedure: once that procedure has ended.
    virtual void Reset() = 0;
    /// Whether the script has lately taken so much time that `OnClock` is to be left out.
    virtual bool IsResting() = 0;
    /// The procedures of the text.
    virtual ScriptCode& CodeObject() = 0;
    /// The last failure.
    virtual const ScriptError& Error() const = 0;
};

}  // namespace marvolin

#pragma once
/// \file
/// What can be taken back, as all folders announce it. Behind it stands `UndoSteps` (persistence/undo/undo_steps.h).

#include <cstdint>
#include <string>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// What a step may change. Nothing else comes back with it: what a fade or the hand moves meanwhile is no part of it.
enum class UndoScope : std::uint8_t {
    Rows,        ///< the LoopTracks with all that belongs to them, bands and palettes
    Patterns,    ///< their patterns and numbers of steps
    Selection,   ///< selection flags, bands, selectors
    Clips,       ///< the clipboard
    Everything,  ///< rows, clips, and what else a set replaces: options, pad, 3D, bins, the names of the set
};

/// How a step follows the one before it.
enum class UndoKind : std::uint8_t {
    Single,  ///< a step of its own
    Run,     ///< one step with the one right before it if that has the same text, as of a key that is held
    Script,  ///< no step: what a script changes by itself. Inside a step of the hand it is part of that.
};

/// The steps that can be taken back and done again.
class UndoHistory {
public:
    virtual ~UndoHistory() = default;

    /// A step begins. Inside another one it is part of that, which takes over `text` if it has none of its own.
    virtual void Begin(Session& s, std::string_view text, UndoScope scope, UndoKind kind) = 0;
    /// The step that began last has ended. A step that changed nothing leaves no trace. Raises nothing.
    virtual void End(Session& s) noexcept = 0;
    /// A drag begins, which will be one step up to its `EndDrag`. Steps in between stand beside it. A drag that is
    /// still open ends first.
    virtual void BeginDrag(Session& s, std::string_view text, UndoScope scope) = 0;
    /// The drag has ended; nothing when none was open.
    virtual void EndDrag(Session& s) noexcept = 0;

    /// The text of the step that `TakeBack` takes back; "" for none.
    virtual std::string Last() const = 0;
    /// The text of the step that `DoAgain` does again; "" for none.
    virtual std::string Next() const = 0;
    /// Takes the last step back, and says so in the status line. Errors of the service are shown as everywhere.
    virtual void TakeBack(Session& s) = 0;
    /// Does the step again that was taken back last.
    virtual void DoAgain(Session& s) = 0;

    /// Gives up the memory of the oldest sample that is only here and in no row; it comes back from its file. False
    /// when there is none.
    virtual bool GiveUpOldest(Session& s) = 0;
};

/// A step, for as long as it lives. Does nothing while the session keeps no history.
class UndoStep {
public:
    explicit UndoStep(Session& s, std::string_view text = "", UndoScope scope = UndoScope::Rows,
                      UndoKind kind = UndoKind::Single)
        : s_(s), history_(s.Undo) {
        if (history_) history_->Begin(s, text, scope, kind);
    }
    ~UndoStep() {
        if (history_) history_->End(s_);
    }
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;

private:
    Session& s_;
    std::shared_ptr<UndoHistory> history_;
};

/// Begins a drag that can be taken back as one step.
inline void BeginUndoDrag(Session& s, std::string_view text, UndoScope scope) {
    if (s.Undo) s.Undo->BeginDrag(s, text, scope);
}
/// Ends it; nothing when none is open.
inline void EndUndoDrag(Session& s) {
    if (s.Undo) s.Undo->EndDrag(s);
}

}  // namespace marvolin

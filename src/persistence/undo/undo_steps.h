#pragma once
/// \file
/// The steps that can be taken back, newest first, and those that can be done again.

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "core/undo/undo_step.h"
#include "persistence/undo/undo_record.h"

namespace marvolin {

inline constexpr std::size_t kUndoDepth = 50;  ///< steps that can be taken back
/// Of samples that are in no row any more. The samples of the oldest steps beyond it come back from their files.
inline constexpr std::size_t kMostUndoBytes = std::size_t{1} << 30;

/// The time that ends a run of equal steps. Never goes back.
using UndoClock = std::function<std::chrono::steady_clock::time_point()>;
/// After a pause of this length the next key begins a step of its own.
inline constexpr std::chrono::milliseconds kUndoRunPause{1000};

/// The history of a session, in memory.
class UndoSteps final : public UndoHistory {
public:
    explicit UndoSteps(std::size_t mostBytes = kMostUndoBytes, UndoClock clock = std::chrono::steady_clock::now)
        : mostBytes_(mostBytes), clock_(std::move(clock)) {}

    void Begin(Session& s, std::string_view text, UndoScope scope, UndoKind kind) override;
    void End(Session& s) noexcept override;
    void BeginDrag(Session& s, std::string_view text, UndoScope scope) override;
    void EndDrag(Session& s) noexcept override;
    std::string Last() const override;
    std::string Next() const override;
    void TakeBack(Session& s) override;
    void DoAgain(Session& s) override;
    bool GiveUpOldest(Session& s) override;

private:
    /// A step or drag under way.
    struct Gesture {
        std::string Text;
        UndoKind Kind = UndoKind::Single;
        UndoLimits Limits;
        UndoSnapshot Before;
    };
    using Steps = std::deque<UndoRecord>;

    void Open(Session& s, std::string_view text, UndoScope scope, UndoKind kind);
    void Close(Session& s, Gesture& open);
    /// A snapshot or record. When memory ends the oldest samples and then the oldest steps give way to it.
    template <typename Make>
    auto MakeRoomFor(Session& s, Make make);
    UndoSnapshot NewSnapshot(Session& s, const UndoLimits& limits);
    bool DropOldest();
    /// Gives the whole history up, and says why.
    void Forget(Session& s, const char* why) noexcept;
    void Push(Session& s, UndoRecord step);
    void Move(Session& s, Steps& from, Steps& to, const char* words);
    void LimitMemory(const Session& s);

    std::size_t mostBytes_;
    UndoClock clock_;
    std::chrono::steady_clock::time_point pushed_;  ///< when the last step was added
    int depth_ = 0;
    UndoRecord* exchanged_ = nullptr;  ///< the step that is being exchanged with what is there
    std::optional<Gesture> step_;
    std::optional<Gesture> drag_;
    std::optional<UndoSnapshot> aside_;  ///< what there was before a script changed something during a drag
    Steps back_;                         ///< the last one is taken back next
    Steps again_;                        ///< the last one is done again next
};

}  // namespace marvolin

#include "persistence/undo/undo_steps.h"

#include <set>
#include <utility>

#include "core/routines.h"

namespace marvolin {

namespace {

constexpr const char* kNoMemory = "No memory is left to keep what can be taken back; what was kept is forgotten";
constexpr const char* kDraws = "Nothing is taken back while the mouse draws";
constexpr const char* kFailed = "That could not be taken back whole; what was kept is forgotten";

std::string NamesOfWaiting(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

UndoLimits Both(const UndoLimits& a, const UndoLimits& b) {
    return {a.Rows | b.Rows, a.Rest | b.Rest, a.Clips || b.Clips};
}

}  // namespace

void UndoSteps::Begin(Session& s, std::string_view text, UndoScope scope, UndoKind kind) {
    if (exchanging_) return;
    try {
        if (depth_ == 0) {
            Open(s, text, scope, kind);
        } else if (step_) {
            Widen(s, step_->Before, LimitsOf(scope));
            step_->Limits = Both(step_->Limits, LimitsOf(scope));
            if (step_->Text.empty()) step_->Text = text;
        }
    } catch (const std::exception&) {
        Forget(s, kNoMemory);
    }
    ++depth_;
}

void UndoSteps::Open(Session& s, std::string_view text, UndoScope scope, UndoKind kind) {
    if (kind == UndoKind::Script) {
        if (drag_) aside_ = TakeSnapshot(s, drag_->Limits);
        return;
    }
    if (drag_) Close(s, *drag_);
    step_ = Gesture{std::string(text), kind, LimitsOf(scope), TakeSnapshot(s, LimitsOf(scope))};
}

void UndoSteps::End(Session& s) noexcept {
    if (exchanging_ || depth_ == 0 || --depth_ > 0) return;
    try {
        if (step_) {
            Close(s, *step_);
            if (drag_) drag_->Before = TakeSnapshot(s, drag_->Limits);
        } else if (drag_ && aside_) {
            LeaveOut(s, drag_->Before, *aside_);
        }
    } catch (const std::exception&) {
        Forget(s, kNoMemory);
    }
    step_.reset();
    aside_.reset();
}

void UndoSteps::BeginDrag(Session& s, std::string_view text, UndoScope scope) {
    if (exchanging_ || depth_ > 0) return;
    EndDrag(s);
    try {
        drag_ = Gesture{std::string(text), UndoKind::Single, LimitsOf(scope), TakeSnapshot(s, LimitsOf(scope))};
    } catch (const std::exception&) {
        Forget(s, kNoMemory);
    }
}

void UndoSteps::EndDrag(Session& s) noexcept {
    if (exchanging_ || !drag_) return;
    try {
        Close(s, *drag_);
    } catch (const std::exception&) {
        Forget(s, kNoMemory);
    }
    drag_.reset();
}

void UndoSteps::Forget(Session& s, const char* why) noexcept {
    back_.clear();
    again_.clear();
    step_.reset();
    drag_.reset();
    aside_.reset();
    try {
        ShowStatus(s, why);
        s.World.Screen.ShowUndo();
    } catch (const std::exception&) {
        return;  // what cannot be said is forgotten all the same
    }
}

void UndoSteps::Close(Session& s, Gesture& open) {
    UndoRecord step = MakeRecord(s, open.Before, open.Limits);
    if (step.Empty()) return;
    step.Text = open.Text;
    step.Kind = open.Kind;
    Push(s, std::move(step));
}

void UndoSteps::Push(Session& s, UndoRecord step) {
    // What has been taken back before is no part of the run.
    const bool run =
        again_.empty() && !back_.empty() && step.Kind != UndoKind::Single && back_.back().Kind == step.Kind;
    again_.clear();
    const bool joined = run && back_.back().Text == step.Text && Join(back_.back(), step);
    if (!joined) back_.push_back(std::move(step));
    if (joined && ChangesNothing(s, back_.back())) back_.pop_back();
    if (back_.size() > kUndoDepth) back_.pop_front();
    LimitMemory(s);
    s.World.Screen.ShowUndo();
}

std::string UndoSteps::Last() const { return back_.empty() ? "" : back_.back().Text; }
std::string UndoSteps::Next() const { return again_.empty() ? "" : again_.back().Text; }

void UndoSteps::TakeBack(Session& s) {
    if (depth_ > 0 || exchanging_) return;
    if (drag_) return ShowStatus(s, kDraws);
    if (back_.empty()) return ShowStatus(s, "There is nothing to take back");
    Move(s, back_, again_, "Taken back: ");
}

void UndoSteps::DoAgain(Session& s) {
    if (depth_ > 0 || exchanging_) return;
    if (drag_) return ShowStatus(s, kDraws);
    if (again_.empty()) return ShowStatus(s, "There is nothing to do again");
    Move(s, again_, back_, "Done again: ");
}

void UndoSteps::Move(Session& s, Steps& from, Steps& to, const char* words) {
    struct Exchanging {
        explicit Exchanging(bool& flag) : Flag(flag) { Flag = true; }
        ~Exchanging() { Flag = false; }
        Exchanging(const Exchanging&) = delete;
        Exchanging& operator=(const Exchanging&) = delete;
        bool& Flag;
    };
    // A list that is open shows what is about to change.
    s.World.Screen.ShowHistoryList(false);
    s.World.Screen.ShowSelectList(false);
    std::vector<std::string> waiting;
    try {
        to.push_back(std::move(from.back()));
        from.pop_back();
        const Exchanging guard(exchanging_);
        waiting = Exchange(s, to.back());
    } catch (const std::exception&) {
        // The instrument is between two states, and no step fits it any more.
        return Forget(s, kFailed);
    }
    LimitMemory(s);
    std::string text = words + to.back().Text;
    if (!waiting.empty()) {
        text += (s.DSReady ? "; could not come back: " : "; waits for a device: ") + NamesOfWaiting(waiting);
    }
    ShowStatus(s, text);
    s.World.Screen.ShowUndo();
}

void UndoSteps::LimitMemory(const Session& s) {
    std::set<const KeptSample*> counted;
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Run[row].Buffer) counted.insert(s.Run[row].Buffer->Keep().get());
    }
    std::size_t bytes = 0;
    const auto count = [&](UndoRecord& step) {
        std::size_t own = 0;
        for (const auto& [sample, size] : KeptBytes(step)) {
            if (counted.insert(sample).second) own += size;
        }
        bytes += own;
        if (bytes > mostBytes_ && own > 0) GiveUpSamples(step);
    };
    for (auto step = back_.rbegin(); step != back_.rend(); ++step) count(*step);
    for (auto step = again_.rbegin(); step != again_.rend(); ++step) count(*step);
}

}  // namespace marvolin

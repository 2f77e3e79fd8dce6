#include "persistence/undo/undo_steps.h"

#include <algorithm>
#include <new>
#include <set>
#include <utility>

#include "browser/clipboard.h"
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

bool IsInARow(const Session& s, const KeptSample* sample) {
    return std::any_of(s.Run.begin(), s.Run.end(),
                       [&](const LoopTrackRun& run) { return run.Buffer && run.Buffer->Keep().get() == sample; });
}

}  // namespace

template <typename Make>
auto UndoSteps::MakeRoomFor(Session& s, Make make) {
    for (;;) {
        try {
            return make();
        } catch (const std::bad_alloc&) {
            if (!GiveUpOldest(s) && !DropOldest()) throw;
        }
    }
}

void UndoSteps::Begin(Session& s, std::string_view text, UndoScope scope, UndoKind kind) {
    if (exchanged_ != nullptr) return;
    try {
        if (depth_ == 0) {
            Open(s, text, scope, kind);
        } else if (step_) {
            MakeRoomFor(s, [&] { Widen(s, step_->Before, LimitsOf(scope)); });
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
        if (drag_) aside_ = NewSnapshot(s, drag_->Limits);
        return;
    }
    if (drag_) Close(s, *drag_);
    step_ = Gesture{std::string(text), kind, LimitsOf(scope), NewSnapshot(s, LimitsOf(scope))};
}

void UndoSteps::End(Session& s) noexcept {
    if (exchanged_ != nullptr || depth_ == 0 || --depth_ > 0) return;
    try {
        if (step_) {
            Close(s, *step_);
            if (drag_) drag_->Before = NewSnapshot(s, drag_->Limits);
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
    if (exchanged_ != nullptr || depth_ > 0) return;
    EndDrag(s);
    try {
        drag_ = Gesture{std::string(text), UndoKind::Single, LimitsOf(scope), NewSnapshot(s, LimitsOf(scope))};
    } catch (const std::exception&) {
        Forget(s, kNoMemory);
    }
}

void UndoSteps::EndDrag(Session& s) noexcept {
    if (exchanged_ != nullptr || !drag_) return;
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
    UndoRecord step = MakeRoomFor(s, [&] { return MakeRecord(s, open.Before, open.Limits); });
    if (step.Empty()) return;
    step.Text = open.Text;
    step.Kind = open.Kind;
    Push(s, std::move(step));
}

void UndoSteps::Push(Session& s, UndoRecord step) {
    // What has been taken back before is no part of the run.
    const auto now = clock_();
    const bool soon = now - std::exchange(pushed_, now) < kUndoRunPause;
    const bool run =
        soon && again_.empty() && !back_.empty() && step.Kind != UndoKind::Single && back_.back().Kind == step.Kind;
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
    if (depth_ > 0 || exchanged_ != nullptr) return;
    if (drag_) return ShowStatus(s, kDraws);
    if (back_.empty()) return ShowStatus(s, "There is nothing to take back");
    Move(s, back_, again_, "Taken back: ");
}

void UndoSteps::DoAgain(Session& s) {
    if (depth_ > 0 || exchanged_ != nullptr) return;
    if (drag_) return ShowStatus(s, kDraws);
    if (again_.empty()) return ShowStatus(s, "There is nothing to do again");
    Move(s, again_, back_, "Done again: ");
}

void UndoSteps::Move(Session& s, Steps& from, Steps& to, const char* words) {
    struct Exchanging {
        Exchanging(UndoRecord*& place, UndoRecord& step) : Place(place) { Place = &step; }
        ~Exchanging() { Place = nullptr; }
        Exchanging(const Exchanging&) = delete;
        Exchanging& operator=(const Exchanging&) = delete;
        UndoRecord*& Place;
    };
    // A list that is open shows what is about to change.
    s.World.Screen.ShowHistoryList(false);
    s.World.Screen.ShowSelectList(false);
    std::vector<std::string> waiting;
    try {
        to.push_back(std::move(from.back()));
        from.pop_back();
        const Exchanging guard(exchanged_, to.back());
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
    const bool lacksRoom = to.back().Clips && to.back().Clips->LacksRoom();
    ShowStatus(s, text);
    s.World.Screen.ShowUndo();
    if (lacksRoom) ReportFullClipBoard(s);
}

void UndoSteps::LimitMemory(const Session& s) {
    std::set<const KeptSample*> counted;
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Run[row].Buffer) counted.insert(s.Run[row].Buffer->Keep().get());
    }
    std::size_t bytes = 0;
    const auto count = [&](UndoRecord& step) {
        std::size_t own = 0;
        for (const KeptSample* sample : KeptBy(step)) {
            if (counted.insert(sample).second) own += sample->Memory();
        }
        bytes += own;
        if (bytes > mostBytes_ && own > 0) GiveUpSamples(step);
    };
    for (auto step = back_.rbegin(); step != back_.rend(); ++step) count(*step);
    for (auto step = again_.rbegin(); step != again_.rend(); ++step) count(*step);
}

bool UndoSteps::GiveUpOldest(Session& s) {
    const KeptSample* oldest = nullptr;
    const auto consider = [&](const std::shared_ptr<KeptSample>& sample) {
        if (oldest == nullptr && sample && !IsInARow(s, sample.get())) oldest = sample.get();
    };
    const auto considerStep = [&](const UndoRecord& step) {
        if (&step == exchanged_) return;
        for (const RowState& row : step.Rows) consider(row.Sample);
        for (const UnheardSample& waits : step.Unheard) consider(waits.Sample);
    };
    for (const UndoRecord& step : back_) considerStep(step);
    for (const UndoRecord& step : again_) considerStep(step);
    // At last what the gesture under way replaces.
    for (const std::optional<Gesture>* open : {&drag_, &step_}) {
        if (!*open) continue;
        for (const RowState& row : (*open)->Before.Rows) consider(row.Sample);
    }
    if (oldest == nullptr) return false;
    for (Steps* steps : {&back_, &again_}) {
        for (UndoRecord& step : *steps) GiveUp(step, oldest);
    }
    for (std::optional<Gesture>* open : {&drag_, &step_}) {
        if (*open) GiveUp((*open)->Before, oldest);
    }
    return true;
}

bool UndoSteps::DropOldest() {
    Steps& steps = back_.empty() ? again_ : back_;
    if (steps.empty()) return false;
    steps.pop_front();
    return true;
}

UndoSnapshot UndoSteps::NewSnapshot(Session& s, const UndoLimits& limits) {
    return MakeRoomFor(s, [&] { return TakeSnapshot(s, limits); });
}

}  // namespace marvolin

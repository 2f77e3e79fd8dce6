#include "audio/openal/schedule.h"

#include <algorithm>
#include <limits>

namespace marvolin {

namespace {

constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

}  // namespace

Schedule::Schedule(std::size_t room) : room_(room) {
    starts_.reserve(room);
    others_.reserve(room);
}

bool Schedule::After(const Entry& a, const Entry& b) {
    return a.What.Frame != b.What.Frame ? a.What.Frame > b.What.Frame : a.Order > b.Order;
}

std::int64_t Schedule::First(const Heap& heap) { return heap.empty() ? kNever : heap.front().What.Frame; }

void Schedule::Add_rt(const Call& call) noexcept {
    Heap& heap = IsStart(call) ? starts_ : others_;
    heap.push_back({added_++, call});
    std::push_heap(heap.begin(), heap.end(), After);
}

const Call* Schedule::Due_rt(std::int64_t position) noexcept {
    const std::int64_t start = First(starts_);
    if (start <= position) startedAt_ = position;
    // Where something starts, everything that is due is heard with it.
    const bool mayChange = startedAt_ == position || start - position >= kShortestPiece;
    if (start > position && (First(others_) > position || !mayChange)) return nullptr;
    return Earliest_rt();
}

const Call* Schedule::Earliest_rt() noexcept {
    if (starts_.empty() && others_.empty()) return nullptr;
    const bool start = others_.empty() || (!starts_.empty() && After(others_.front(), starts_.front()));
    due_ = start ? &starts_ : &others_;
    return &due_->front().What;
}

void Schedule::Drop_rt() noexcept {
    std::pop_heap(due_->begin(), due_->end(), After);
    due_->pop_back();
}

int Schedule::Piece_rt(std::int64_t position, int left) const noexcept {
    const std::int64_t end = position + std::min(left, kLongestPiece);
    const std::int64_t start = First(starts_);
    const std::int64_t cut = std::min(end, start > position ? start : position + kShortestPiece);
    const std::int64_t change = std::max(First(others_), position + kShortestPiece);
    const bool room = change < cut && cut - change >= kShortestPiece;
    return static_cast<int>((room ? change : cut) - position);
}

}  // namespace marvolin

#include "persistence/undo/clip_splice.h"

#include <algorithm>
#include <iterator>

#include "browser/clipboard.h"

namespace marvolin {

namespace {

template <typename Value>
std::vector<Value> Part(const std::vector<Value>& from, std::size_t first, std::size_t count) {
    const auto begin = from.begin() + static_cast<std::ptrdiff_t>(first);
    return {begin, begin + static_cast<std::ptrdiff_t>(count)};
}

/// Replaces `count` values from `first` on; what was there goes into `put`.
template <typename Value>
void ExchangeIn(std::vector<Value>& values, std::size_t first, std::size_t count, std::vector<Value>& put) {
    std::vector<Value> taken = Part(values, first, count);
    const auto at = values.begin() + static_cast<std::ptrdiff_t>(first);
    values.insert(values.erase(at, at + static_cast<std::ptrdiff_t>(count)), std::make_move_iterator(put.begin()),
                  std::make_move_iterator(put.end()));
    put = std::move(taken);
}

template <typename Value>
void Append(std::vector<Value>& to, std::vector<Value>& from) {
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
    from.clear();
}

/// Takes what is beyond the first `count` values away.
template <typename Value>
std::vector<Value> CutOff(std::vector<Value>& values, std::size_t count) {
    std::vector<Value> end = Part(values, count, values.size() - count);
    values.resize(count);
    return end;
}

}  // namespace

ClipSplice::ClipSplice(const ClipRun& before, const ClipBoardState& now) {
    const std::vector<LoopTrackSet>& was = before.Clips;
    const std::vector<LoopTrackSet>& is = now.ClipStore;
    const std::size_t shorter = std::min(was.size(), is.size());
    while (first_ < shorter && was[first_] == is[first_] && before.Texts[first_] == now.List[first_]) ++first_;
    std::size_t last = 0;
    while (first_ + last < shorter && was[was.size() - 1 - last] == is[is.size() - 1 - last] &&
           before.Texts[was.size() - 1 - last] == now.List[is.size() - 1 - last]) {
        ++last;
    }
    count_ = is.size() - first_ - last;
    other_.Clips = Part(was, first_, was.size() - first_ - last);
    other_.Texts = Part(before.Texts, first_, was.size() - first_ - last);
}

void ClipSplice::Exchange(Session& s) {
    ClipBoardState& clips = s.Clips;
    first_ = std::min(first_, clips.ClipStore.size());
    count_ = std::min(count_, clips.ClipStore.size() - first_);
    constexpr std::size_t kMost = kMostClips;
    const std::size_t room = kMost - std::min(kMost, clips.ClipStore.size() - count_);
    const std::size_t coming = std::min(other_.Clips.size(), room);
    ClipRun noRoom{CutOff(other_.Clips, coming), CutOff(other_.Texts, coming)};
    ExchangeIn(clips.ClipStore, first_, count_, other_.Clips);
    ExchangeIn(clips.List, first_, count_, other_.Texts);
    Append(other_.Clips, noRoom_.Clips);
    Append(other_.Texts, noRoom_.Texts);
    noRoom_ = std::move(noRoom);
    count_ = coming;
    clips.ClipTop = static_cast<std::int16_t>(static_cast<int>(clips.ClipStore.size()) - 1);
    clips.Selected = -1;
    s.World.Screen.ShowClips();
}

}  // namespace marvolin

#pragma once
/// \file
/// The elements of a session that can be saved and opened one by one.

#include <array>
#include <cstdint>
#include <string_view>

namespace marvolin {

/// The sixteen elements of a session, in the order in which a file names them.
enum class Element : std::uint8_t {
    LoopTrack,
    Freq,
    FreqPattern,
    Vol,
    VolPattern,
    Pan,
    PanPattern,
    Position,
    CrossFader,
    PickLists,
    General,
    ThreeD,
    Bands,
    PlayState,
    ClipBoard,
    HistoryLists,
};
inline constexpr int kElements = 16;

/// Names of the elements in a file, by their number.
inline constexpr std::array<std::string_view, kElements> kElementNames{
    "LoopTrack",  "Freq",      "FreqPattern", "Vol",    "VolPattern", "Pan",       "PanPattern", "Position",
    "CrossFader", "PickLists", "General",     "ThreeD", "Bands",      "PlayState", "ClipBoard",  "HistoryLists"};

/// Sixteen switches that select the elements of a session to save or open. All are off at first.
class clsSwitchRecord {
public:
    bool Get(Element element) const { return on_[static_cast<std::size_t>(element)]; }
    void Put(Element element, bool value) { on_[static_cast<std::size_t>(element)] = value; }
    /// Sets all sixteen to `value`.
    void SetSwitch(bool value) { on_.fill(value); }
    /// Makes each switch of `result` the AND of those of `a` and `b`.
    static void AndSwitch(const clsSwitchRecord& a, const clsSwitchRecord& b, clsSwitchRecord& result) {
        for (std::size_t i = 0; i < a.on_.size(); ++i) result.on_[i] = a.on_[i] && b.on_[i];
    }
    /// Whether the section of the LoopTracks is written: always. The one place that could decide otherwise.
    bool SaveLoopComponent() const { return true; }
    friend bool operator==(const clsSwitchRecord&, const clsSwitchRecord&) = default;

private:
    std::array<bool, kElements> on_{};
};

/// A record with all sixteen switches on.
inline clsSwitchRecord AllSwitches() {
    clsSwitchRecord all;
    all.SetSwitch(true);
    return all;
}

/// Rows of `SaveOpenSwitches`, and of the two lists that edit them.
enum SwitchRow : std::uint8_t { kWhenSaving = 0, kWhenOpening = 1 };

}  // namespace marvolin

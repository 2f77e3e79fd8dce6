#pragma once
/// \file
/// What the hand can change in a session: taken, compared and put back.

#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "core/session.h"

namespace marvolin::test {

/// What is set now, by names such as "A.Vol".
using Facts = std::map<std::string, std::string>;
Facts FactsOf(const Session& s);
/// The names whose values differ, with the new values: "A.Vol 20".
std::vector<std::string> Changed(const Facts& before, const Facts& after);

/// The fields that a gesture may change.
inline auto HandFields(Session& s) {
    return std::tie(
        s.Set, s.BandTable, s.SelectionControlled, s.SelectWork, s.SelectDragTag, s.BandDrag, s.CurrentLoop, s.ThinList,
        s.Limit, s.Drag, s.DragAxis, s.FadeStep, s.SndDisp, s.PatternDrawRow, s.PatternRandomRow, s.GraphColumns,
        s.StepsShown, s.TimeText, s.PercentText, s.PadTable, s.PadTypeIndex, s.SetChannelChoice, s.CursorFree,
        s.BallHolds, s.MapRange, s.ListenerX, s.ListenerY, s.ListenerAngle, s.BallPos, s.PosHighlight,
        s.BallHighlighted, s.PosMacro, s.PositionUpdate, s.MapSize, s.RollOff, s.Joy, s.ScrollSensitivity, s.TimingRes,
        s.HistoryRow, s.HistoryChoice, s.HistoryEntries, s.LoopDropTarget, s.Bins, s.DragBin, s.TreeFolder, s.Clips,
        s.ActiveTab, s.ActiveSubTab, s.ResetVars, s.PlayOnLoad, s.StatusText, s.ReadoutText, s.ChannelVol, s.ChannelPan,
        s.ChannelHz, s.History, s.SaveOpenSwitches, s.SelectionsOnlySetting, s.EmptyBlankSetting, s.SessionName,
        s.CurrentFolder, s.CurrentFile, s.DialogueFile, s.SaveItEnabled, s.QuickLoadTag, s.TwistPosition);
}

template <typename>
struct ValuesOf;
template <typename... Ts>
struct ValuesOf<std::tuple<Ts&...>> {
    using Type = std::tuple<Ts...>;
};

/// A state of the session to begin from again.
class HandState {
public:
    explicit HandState(Session& s) : kept_(HandFields(s)), runs_(RunsOf(s)) {}
    void PutBack(Session& s) const;

private:
    struct RunState {
        Boolean Playing, Paused;
        std::int16_t FadeState;
        double FadeValue;
        std::int16_t FadeTarget;
        Boolean InBand;
        std::int16_t Band;
    };
    static Table<RunState, kRows> RunsOf(const Session& s);

    ValuesOf<decltype(HandFields(std::declval<Session&>()))>::Type kept_;
    Table<RunState, kRows> runs_;
};

}  // namespace marvolin::test

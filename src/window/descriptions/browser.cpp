#include "window/descriptions/browser.h"

#include "browser/clipboard.h"
#include "browser/destinations.h"
#include "browser/sample_bins.h"
#include "core/drag_source.h"
#include "window/descriptions/parts.h"

namespace marvolin {

namespace {

const SampleBin& BinOf(const Situation& at) { return at.State.Bins[at.Index]; }

std::string FolderTip(const Situation& at) { return BinOf(at).Folder; }

/// Name and size of the sample under the pointer, and what the mouse does here.
std::string SampleHint(const Situation& at) {
    const SampleBin& bin = BinOf(at);
    if (bin.Rows.empty()) return "clk Choose a Folder for this Bin";
    if (at.Part == kDragOnlyPart) return "Drg Drp: drg to a LoopTrack; or slct a LoopTrack above, then clk loads";
    if (at.Part < 0 || static_cast<std::size_t>(at.Part) >= bin.Rows.size()) return "";
    const BinRow& sample = bin.Rows[static_cast<std::size_t>(at.Part)];
    return sample.Name + " (" + sample.Size + "k) " +
           (bin.Destination == kDragDestination ? "drg to Target"
                                                : "clk Ld->Dest; rtclk Stp/Ply Dest; rt margin drg to Target");
}

constexpr std::array<const char*, kDestinations + 1> kDestinationHints{
    "slct Destination for Sounds",
    "clk on a Sample loads it into LoopTrack A",
    "clk on a Sample loads it into LoopTrack B",
    "clk on a Sample loads it into LoopTrack C",
    "clk on a Sample loads it into LoopTrack D",
    "> Gang: clk on a Sample loads it into all LoopTracks in control",
    "Drg Drp: clk on a Sample loads nothing; drg it to a LoopTrack",
    "Drg Drp (All): sets all three Bins to Drg Drp",
    "Distribute (All): Bin 1 loads into A, Bin 2 into B, Bin 3 into C",
    "Gang (All): all three Bins load into all LoopTracks in control"};
std::string DestinationHint(const Situation& at) { return OfEntry(kDestinationHints, at.Part); }
std::string ChosenSample(const Situation& at) {
    const SampleBin& bin = BinOf(at);
    const auto row = static_cast<std::size_t>(bin.Selected);
    return bin.Selected < 0 || row >= bin.Rows.size() ? "no sample chosen" : bin.Rows[row].Name;
}

std::string ComponentCaption(const Situation& at) {
    return std::string(kComponentTexts[static_cast<std::size_t>(at.Index)]);
}

std::string BrowserBarHint(const Situation& at) { return at.Part == kHelpPanel ? kHelpPanelHint : ""; }

constexpr Indices kBinIndices{0, kBins - 1};

constexpr Description kBrowserTable[] = {
    {.Name = "frmBrowse", .Topic = 10120, .Role = QAccessible::Window},
    {.Name = "Sstab",
     .Hint = "clk Open Tab: 1-3 the Sample Bins, ClipBrd the Clipboard",
     .Topic = 10121,
     .Role = QAccessible::PageTabList,
     .Taken = Keys::Choose},
    {.Name = "BrowsePages", .Topic = 10122, .Role = QAccessible::LayeredPane},
    {.Name = drags::kPickDir,
     .Range = kBinIndices,
     .Label = "Folder of bin {number}",
     .Tip = FolderTip,
     .Hint = "clk Open FolderExplorer",
     .Topic = 10123,
     .Role = QAccessible::Button,
     .Taken = Keys::Press | Keys::Carry,
     .Value = FolderTip},
    {.Name = "FileDestination",
     .Range = kBinIndices,
     .Label = "Destination of bin {number}",
     .Tip = kLabelAsTip,
     .Hint = {DestinationHint, kDestinationHints[0]},
     .Topic = 10124,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "ClickPlay",
     .Range = kBinIndices,
     .Caption = kClickPlayText,
     .Tip = "Starts the LoopTrack after loading into it",
     .Hint = "clk On: the LoopTrack plays at once when a Sample loads into it",
     .Topic = 10125,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = drags::kPickFile,
     .Range = kBinIndices,
     .Label = "Samples of bin {number}",
     .Hint =
         {SampleHint,
          "drg to Target; clk Ld->Dest; rtclk Stp/Ply Dest; rt margin drg to Target; clk Choose a Folder for this Bin"},
     .Topic = 10126,
     .Role = QAccessible::List,
     .Taken = Keys::Choose | Keys::Press | Keys::Carry,
     .Value = ChosenSample},
    {.Name = "FolderTreeview1",
     .Label = "Folders",
     .Hint = "drg Folder to Sample Bin; rtclk to Close",
     .Topic = 10127,
     .Role = QAccessible::Tree,
     .Taken = Keys::Choose | Keys::Press | Keys::Escape},
    {.Name = drags::kClipBoardList,
     .Label = "Clipboard of LoopTracks",
     .Hint = "drg Copy to LoopTrack; rtdrg Copy by Element",
     .Topic = 10128,
     .Role = QAccessible::List,
     .Taken = Keys::Choose | Keys::Delete | Keys::Carry},
    {.Name = "Components",
     .Range = {0, static_cast<int>(kComponentTexts.size()) - 1},
     .Caption = ComponentCaption,
     .Hint = "clk On: a right drag of a Clip copies this",
     .Topic = 10129,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "Trash",
     .Caption = "Trash",
     .Label = "Trash for clips",
     .Tip = kLabelAsTip,
     .Hint = "drop Clip here to Trash it",
     .Topic = 10130,
     .Role = QAccessible::Graphic},
    {.Name = "ClearClip",
     .Caption = "Clear all",
     .Label = "Removes all clips, after a question",
     .Tip = kLabelAsTip,
     .Hint = "clk Remove all Clips; you are asked first",
     .Topic = 10131,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "BrowseStatusBar1",
     .Label = "Hints",
     .Tip = kHelpPanelTip,
     .Hint = {BrowserBarHint, kHelpPanelHint},
     .Topic = 10132,
     .Role = QAccessible::StatusBar},
};

}  // namespace

std::span<const Description> BrowserDescriptions() { return kBrowserTable; }

}  // namespace marvolin

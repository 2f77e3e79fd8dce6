#include "scripting/api/sets.h"

#include <algorithm>

#include "core/files/paths.h"
#include "persistence/quick_load.h"
#include "persistence/save_open.h"

namespace marvolin {

namespace {

// The first row of the list is "<Close>".
std::size_t SetCount(const Session& s) {
    return s.QuickLoadRows.size() - std::min<std::size_t>(s.QuickLoadRows.size(), 1);
}

void SetName(ApiCall& call) {
    const auto number = static_cast<std::size_t>(call.ShortAt(0));
    if (number > SetCount(call.s)) return call.ReturnNothing();
    call.ReturnText(call.s.QuickLoadRows[number]);
}

void LoadSet(ApiCall& call) {
    Session& s = call.s;
    UpdateQuickLoad(s);
    const auto named = std::find(s.QuickLoadRows.begin() + 1, s.QuickLoadRows.end(), call.TextAt(0));
    if (named == s.QuickLoadRows.end()) {
        throw ApiFault("QuickLoad has no set \"" + std::string(call.TextAt(0)) + "\"");
    }
    // By value: the load of a set can rebuild the list.
    const std::string file = s.QuickLoadFiles[static_cast<std::size_t>(named - s.QuickLoadRows.begin())];
    call.ReturnFlag(OpenBesideDialogue(s, JoinPath(s.CurrentFolder, file)));
}

constexpr ApiFunction kSetsFunctions[] = {
    {.Name = "set_count",
     .Returns = "a number",
     .Text = "How many sets QuickLoad lists. The list is read anew, for set_name as well.",
     .Example = "assert(marvolin.set_count() == 0)",
     .Act =
         [](ApiCall& call) {
             UpdateQuickLoad(call.s);
             call.Return(static_cast<double>(SetCount(call.s)));
         }},
    {.Name = "set_name",
     .Parameters = {Whole("number", 1, 32000)},
     .Returns = "a name, or nil when there are not so many",
     .Text = "The name of a set in the list of QuickLoad, counted from 1.",
     .Example = "assert(marvolin.set_name(1) == nil)",
     .Act = SetName},
    {.Name = "load_set",
     .Parameters = {Text("name")},
     .Returns = "true when it was loaded, false after a message",
     .Text = "Loads a set by its name in the list of QuickLoad, with the elements chosen for opening.",
     .Errors = "A name that is not in the list. At most 8 samples and sets may be loaded in one event.",
     .Example = "assert(not pcall(marvolin.load_set, 'no such set'))",
     .Act = LoadSet,
     .Speed = Pace::Slow,
     .TakesBack = UndoScope::Everything},
    {.Name = "current_set",
     .Returns = "a file name, \"\" for none",
     .Text = "The file of the current set.",
     .Example = "assert(marvolin.current_set() == '')",
     .Act = [](ApiCall& call) { call.ReturnText(call.s.CurrentFile); }},
};

}  // namespace

std::span<const ApiFunction> SetsFunctions() { return kSetsFunctions; }

}  // namespace marvolin

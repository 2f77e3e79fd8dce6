#include "scripting/api/samples.h"

#include "audio/loop_clearing.h"
#include "audio/reverse.h"
#include "audio/sample_loading.h"
#include "core/files/paths.h"
#include "core/files/sample_files.h"

namespace marvolin {

namespace {

void Load(ApiCall& call) {
    const std::string name(call.TextAt(1));
    if (name.empty() || name.find('\0') != std::string::npos) throw ApiFault("the path is no path");
    const std::string path = name.front() == '/' ? name : JoinPath(call.s.CurrentFolder, name);
    if (!FileExists(path)) throw ApiFault("there is no file " + path);
    if (IsNoSample(path)) throw ApiFault("this is no sample: " + path);
    SampleRequest request;
    request.Path = path;
    request.Target = call.RowAt(0);
    request.Play = call.Given(2) && call.FlagAt(2);
    LoadSample(call.s, request);
}

constexpr ApiFunction kSamplesFunctions[] = {
    {.Name = "load",
     .Parameters = {PlayRowArgument(), Text("path"), Optional(Flag("play"))},
     .Text = "Loads a WAV file into a row, its band, or with row \"Z\" the controlled rows, and plays it if asked. A "
             "path that does not begin with \"/\" starts in the folder of the current set.",
     .Errors = "A file that is not there, or is no sample. At most 8 samples and sets may be loaded in one event.",
     .Example = "assert(not pcall(marvolin.load, 'A', 'no such file.wav'))",
     .Act = Load,
     .Speed = Pace::Slow,
     .TakesBack = UndoScope::Rows},
    {.Name = "clear",
     .Parameters = {PlayRowArgument()},
     .Text = "Empties a row, or with row \"Z\" the controlled rows; their settings become those of an empty row.",
     .Example = "marvolin.clear('A')  assert(not marvolin.loaded('A'))",
     .Act = [](ApiCall& call) { LoopClearRows(call.s, call.RowAt(0)); },
     .TakesBack = UndoScope::Rows},
    {.Name = "reverse",
     .Parameters = {LoopTrackArgument()},
     .Text = "Turns the sample of a LoopTrack round, for all that hold the same one.",
     .Errors = "At most 8 samples and sets may be loaded or reversed in one event.",
     .Example = "marvolin.reverse('A')  assert(marvolin.reversed('A'))",
     .Act = [](ApiCall& call) { LoopReverse(call.s, call.RowAt(0)); },
     .Speed = Pace::Slow,
     .TakesBack = UndoScope::Rows},
    {.Name = "reversed",
     .Parameters = {LoopTrackArgument()},
     .Returns = "true or false",
     .Text = "Whether the sample runs backwards.",
     .Example = "assert(marvolin.reversed('B') == false)",
     .Act = [](ApiCall& call) { call.ReturnFlag(call.s.Run[call.RowAt(0)].Reversed != False); }},
    {.Name = "loaded",
     .Parameters = {LoopTrackArgument()},
     .Returns = "true or false",
     .Text = "Whether a LoopTrack holds a sample.",
     .Example = "assert(marvolin.loaded('A') and not marvolin.loaded('D'))",
     .Act = [](ApiCall& call) { call.ReturnFlag(call.s.Run[call.RowAt(0)].Loaded != False); }},
    {.Name = "sample",
     .Parameters = {LoopTrackArgument()},
     .Returns = "a name and a path, both \"\" without a sample",
     .Text = "The sample of a LoopTrack: its name as it is shown, and its whole path.",
     .Example = "local name, path = marvolin.sample('A')  assert(name == 'one' and path == '/samples/one.WAV')",
     .Act =
         [](ApiCall& call) {
             call.ReturnText(LoopFileName(call.s, call.RowAt(0)));
             call.ReturnText(call.s.Set[call.RowAt(0)].FileName);
         }},
    {.Name = "sample_length",
     .Parameters = {LoopTrackArgument()},
     .Returns = "seconds, 0 without a sample",
     .Text = "The length of the sample at its own rate.",
     .Example = "assert(marvolin.sample_length('A') == 1)",
     .Act = [](ApiCall& call) { call.Return(call.s.Set[call.RowAt(0)].Length); }},
};

}  // namespace

std::span<const ApiFunction> SamplesFunctions() { return kSamplesFunctions; }

}  // namespace marvolin

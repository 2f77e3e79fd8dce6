#include "scripting/api/transport.h"

#include "audio/limiter.h"
#include "audio/play_commands.h"
#include "audio/play_modes.h"
#include "audio/transport.h"

namespace marvolin {

namespace {

constexpr std::string_view kModes = "one shot|loop|track|drum";  // in the order of `PlayMode`
constexpr std::array<std::string_view, 4> kModeNames{"one shot", "loop", "track", "drum"};

// The hand pauses what plays and resumes what is paused, and nothing else.
void Pause(ApiCall& call) {
    const LoopTrackRun& run = call.s.Run[call.RowAt(0)];
    if (run.Playing != False && run.Paused == False) LoopPlayCommand(call.s, call.RowAt(0), PlayCommand::Pause);
}
void Resume(ApiCall& call) {
    if (call.s.Run[call.RowAt(0)].Paused != False) LoopPlayCommand(call.s, call.RowAt(0), PlayCommand::Resume);
}

constexpr ApiFunction kTransportFunctions[] = {
    {.Name = "play",
     .Parameters = {PlayRowArgument()},
     .Text = "Starts a row, its band, or with row \"Z\" the controlled rows. A row that plays starts again from its "
             "beginning; one without a sample is left alone.",
     .Example = "marvolin.play('A')  assert(marvolin.playing('A'))",
     .Act = [](ApiCall& call) { LoopPlayCommand(call.s, call.RowAt(0), PlayCommand::Play); }},
    {.Name = "stop",
     .Parameters = {PlayRowArgument()},
     .Text = "Stops them.",
     .Example = "marvolin.play('A')  marvolin.stop('A')  assert(not marvolin.playing('A'))",
     .Act = [](ApiCall& call) { LoopPlayCommand(call.s, call.RowAt(0), PlayCommand::Stop); }},
    {.Name = "pause",
     .Parameters = {PlayRowArgument()},
     .Text = "Stops a row that plays where it is.",
     .Example = "marvolin.play('A')  marvolin.pause('A')  assert(marvolin.paused('A') and marvolin.playing('A'))",
     .Act = Pause},
    {.Name = "resume",
     .Parameters = {PlayRowArgument()},
     .Text = "Lets a paused row play on from where it is.",
     .Example = "marvolin.play('A')  marvolin.pause('A')  marvolin.resume('A')  assert(not marvolin.paused('A'))",
     .Act = Resume},
    {.Name = "play_all",
     .Text = "Starts A to D, whatever is selected.",
     .Example = "marvolin.play_all()  assert(marvolin.playing('A') and marvolin.playing('B'))",
     .Act = [](ApiCall& call) { PlayAll(call.s); }},
    {.Name = "stop_all",
     .Text = "Stops A to D.",
     .Example = "marvolin.play_all()  marvolin.stop_all()  assert(not marvolin.playing('B'))",
     .Act = [](ApiCall& call) { StopAll(call.s); }},
    {.Name = "playing",
     .Parameters = {PlayRowArgument()},
     .Returns = "true or false",
     .Text = "Whether a row counts as playing, also while it is paused; of row \"Z\" whether a controlled row does.",
     .Example = "assert(marvolin.playing('C') == false)",
     .Act = [](ApiCall& call) { call.ReturnFlag(call.s.Run[call.RowAt(0)].Playing != False); }},
    {.Name = "paused",
     .Parameters = {PlayRowArgument()},
     .Returns = "true or false",
     .Text = "Whether a row is paused.",
     .Example = "assert(marvolin.paused('A') == false)",
     .Act = [](ApiCall& call) { call.ReturnFlag(call.s.Run[call.RowAt(0)].Paused != False); }},
    {.Name = "play_mode",
     .Parameters = {PlayRowArgument()},
     .Returns = "\"one shot\", \"loop\", \"track\" or \"drum\"",
     .Text = "The play mode of a row.",
     .Example = "marvolin.set_play_mode('A', 'drum')  assert(marvolin.play_mode('A') == 'drum')",
     .Act =
         [](ApiCall& call) {
             call.ReturnText(kModeNames.at(static_cast<std::size_t>(call.s.Set[call.RowAt(0)].PlayMode)));
         }},
    {.Name = "set_play_mode",
     .Parameters = {PlayRowArgument(), Choice("mode", kModes)},
     .Text =
         "Sets the play mode of a row, its band, or with row \"Z\" the controlled rows. A row that plays goes on in "
         "the new mode; in \"track\" and \"drum\" it starts again.",
     .Example = "marvolin.set_play_mode('B', 'track')  assert(marvolin.play_mode('B') == 'track')",
     .Act = [](ApiCall& call) { LoopSetPlayModeRows(call.s, call.RowAt(0), call.ShortAt(1)); }},
    {.Name = "limit",
     .Returns = "1 to 4",
     .Text = "How many LoopTracks may sound at once; 4 is no limit.",
     .Example = "assert(marvolin.limit() == 4)",
     .Act = [](ApiCall& call) { call.Return(call.s.Limit); }},
    {.Name = "set_limit",
     .Parameters = {Whole("limit", 1, 4)},
     .Text = "Sets it. The LoopTracks that have played longest stop until the limit holds.",
     .Example = "marvolin.play_all()  marvolin.set_limit(1)  assert(marvolin.limit() == 1 and not "
                "marvolin.playing('A') and marvolin.playing('B'))",
     .Act = [](ApiCall& call) { SetLimit(call.s, call.ShortAt(0)); }},
};

}  // namespace

std::span<const ApiFunction> TransportFunctions() { return kTransportFunctions; }

}  // namespace marvolin

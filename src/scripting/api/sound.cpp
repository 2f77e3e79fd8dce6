#include "scripting/api/sound.h"

#include "core/routines.h"
#include "parameters/fades.h"
#include "parameters/setters.h"

namespace marvolin {

namespace {

constexpr double kHzScale = 10;  // units of `Hz` in one percent

void SetVolume(ApiCall& call) {
    const Row row = call.RowAt(0);
    // As under the hand, the fade of the row ends.
    if (row <= kSelectionRow) LoopSetFadeGang(call.s, row, FadeCommand::Cancel, kOwnBand);
    LoopVolChangeGang(call.s, row, call.ShortAt(1), UpdateDisplay::Yes);
}

void SetPan(ApiCall& call) {
    LoopPanChangeGang(call.s, call.RowAt(0), static_cast<std::int16_t>(call.ShortAt(1) + kPanCentre));
}

void SetFrequency(ApiCall& call) { LoopHzChangeGang(call.s, call.RowAt(0), ToI2(call.NumberAt(1) * kHzScale)); }

void Fade(ApiCall& call) {
    // In the order of the choices.
    constexpr std::array kCommands{FadeCommand::Up, FadeCommand::Down, FadeCommand::Toggle, FadeCommand::Cancel};
    LoopSetFadeGang(call.s, call.RowAt(0), kCommands[static_cast<std::size_t>(call.ShortAt(1))], kOwnBand);
}

void Fading(ApiCall& call) {
    const std::int16_t state = call.s.Run[call.RowAt(0)].FadeState;
    if (state == kNoFade) return call.ReturnNothing();
    call.ReturnText(state == kRising ? "up" : "down");
}

constexpr ApiFunction kSoundFunctions[] = {
    {.Name = "volume",
     .Parameters = {RowArgument()},
     .Returns = "0 to 500",
     .Text = "The volume of a row; of row 5 the master volume.",
     .Example = "marvolin.set_volume('A', 250)  assert(marvolin.volume(0) == 250)",
     .Act = [](ApiCall& call) { call.Return(call.s.Set[call.RowAt(0)].Vol); }},
    {.Name = "set_volume",
     .Parameters = {RowArgument(), Whole("volume", 0, 500)},
     .Text = "Sets the volume, as the knob does: of the row, of its band, or with row \"Z\" of the controlled rows. "
             "500 is full level, each unit below it 0.06 dB less, 0 is silence. A fade of the row ends.",
     .Example = "marvolin.set_volume(5, 400)  assert(marvolin.volume(5) == 400)",
     .Act = SetVolume},
    {.Name = "pan",
     .Parameters = {RowArgument()},
     .Returns = "-500 (left) to 500 (right)",
     .Text = "The pan of a row.",
     .Example = "marvolin.set_pan('B', -120)  assert(marvolin.pan('B') == -120)",
     .Act = [](ApiCall& call) { call.Return(call.s.Set[call.RowAt(0)].Pan - kPanCentre); }},
    {.Name = "set_pan",
     .Parameters = {RowArgument(), Whole("pan", -500, 500)},
     .Text = "Sets the pan, as the knob does. Does nothing while 3D sound is in use.",
     .Example = "marvolin.set_pan(0, 500)  assert(marvolin.pan('A') == 500)",
     .Act = SetPan},
    {.Name = "frequency",
     .Parameters = {RowArgument()},
     .Returns = "percent of the sample's own rate, 0.1 to 400",
     .Text = "The frequency of a row.",
     .Example = "marvolin.set_frequency('A', 99.5)  assert(marvolin.frequency('A') == 99.5)",
     .Act = [](ApiCall& call) { call.Return(call.s.Set[call.RowAt(0)].Hz / kHzScale); }},
    {.Name = "set_frequency",
     .Parameters = {RowArgument(), Number("frequency", 0.1, 400, "percent")},
     .Text = "Sets the frequency, as the knob does, to a tenth of a percent. 100 is the sample's own rate, 200 an "
             "octave up.",
     .Example = "marvolin.set_frequency('B', 200)  assert(marvolin.frequency('B') == 200)",
     .Act = SetFrequency},
    {.Name = "fade",
     .Parameters = {PlayRowArgument(), Choice("mode", "up|down|toggle|cancel")},
     .Text = "Fades a row, its band, or with row \"Z\" the controlled rows: up to full level, which starts them, or "
             "down to silence, which stops them. \"toggle\" fades the other way, \"cancel\" ends the fade where it is.",
     .Example = "marvolin.fade('A', 'down')  assert(marvolin.fading('A') == 'down')",
     .Act = Fade},
    {.Name = "fade_to",
     .Parameters = {PlayRowArgument(), Whole("volume", 0, 500)},
     .Text = "Fades to this volume, with the same grouping.",
     .Example = "marvolin.set_volume('B', 100)  marvolin.fade_to('B', 300)  assert(marvolin.fading('B') == 'up')",
     .Act = [](ApiCall& call) { LoopFadeTo(call.s, call.RowAt(0), call.ShortAt(1), kOwnBand); }},
    {.Name = "fading",
     .Parameters = {LoopTrackArgument()},
     .Returns = "\"up\", \"down\", or nil",
     .Text = "The fade that runs on a LoopTrack.",
     .Example = "marvolin.fade('A', 'cancel')  assert(marvolin.fading('A') == nil)",
     .Act = Fading},
    {.Name = "fade_speed",
     .Returns = "units of volume in 10 ms, 0.04 to 4",
     .Text = "The speed of all fades.",
     .Example = "marvolin.set_fade_speed(1)  assert(marvolin.fade_speed() == 1)",
     .Act = [](ApiCall& call) { call.Return(call.s.FadeStep); }},
    {.Name = "set_fade_speed",
     .Parameters = {Number("speed", 0.04, 4, "units of volume in 10 ms")},
     .Text = "Sets the speed of all fades. A fade over the whole scale takes 5 seconds divided by it.",
     .Example = "marvolin.set_fade_speed(0.5)  assert(marvolin.fade_speed() == 0.5)",
     .Act = [](ApiCall& call) { SetFadeFactor(call.s, call.NumberAt(0)); }},
};

}  // namespace

std::span<const ApiFunction> SoundFunctions() { return kSoundFunctions; }

}  // namespace marvolin

#include "parameters/mapping.h"

#include <algorithm>

#include "audio/ds_error.h"
#include "audio/sample_buffers.h"
#include "core/errors.h"
#include "core/routines.h"

namespace marvolin {

namespace {

constexpr std::int32_t kSilence = -10000;  // hundredths of a decibel
constexpr std::int32_t kPanEnd = 10000;
constexpr std::int32_t kLowestRate = 100;  // Hz
constexpr std::int32_t kHighestRate = 100000;

bool Wired(const LoopTrackSet& set) { return set.Channel <= kChannels; }

bool FollowsPatterns(const LoopTrackSet& set) { return set.PlayMode > kLoop; }

/// Value of a pattern at the row's step and a fresh draw of its random part, in 16 bits.
std::int16_t PatternValue(Session& s, Row row, int patternRow) {
    const PatternBlock& pattern = s.Set[row].Pattern[patternRow];
    const std::int16_t value = pattern[s.Run[row].Step];
    return AddI2(value, PatternRandom(s.World.Chance, pattern[kPatternOffset]));
}

std::int32_t Decibels(double level) {
    if (level >= kVolFull) return 0;
    if (level <= 0) return kSilence;
    // A pattern's random part can put the product between 499 and 500, where the formula would give more than 0 dB.
    return std::min(ToI4((499 - level) * -6), 0);
}

std::int32_t VolumeOf(Session& s, Row row) {
    const LoopTrackSet& set = s.Set[row];
    double level = set.Vol;
    if (Wired(set)) level = static_cast<double>(kVolFull - s.ChannelVol[set.Channel]) * set.Vol / kVolFull;
    level = s.Set[kMasterRow].Vol * level / kVolFull;
    if (FollowsPatterns(set)) level = PatternValue(s, row, kVolPattern) * level / kVolFull;
    return Decibels(level);
}

std::int32_t PanOf(Session& s, Row row) {
    const LoopTrackSet& set = s.Set[row];
    std::int16_t pan = set.Pan;
    if (Wired(set)) pan = AddI2(AddI2(pan, s.ChannelPan[set.Channel]), -kPanCentre);
    if (FollowsPatterns(set)) {
        pan = AddI2(AddI2(pan, s.Set[row].Pattern[kPanPattern][s.Run[row].Step]), -kPanCentre);
        pan = AddI2(pan, PatternRandom(s.World.Chance, set.Pattern[kPanPattern][kPatternOffset]));
    }
    if (pan >= kPanRight) return kPanEnd;
    if (pan <= 0) return -kPanEnd;
    if (pan == kPanCentre) return 0;
    // The left side is one unit shorter than the right side on purpose.
    return pan < kPanCentre ? (499 - pan) * -12 : (pan - kPanCentre) * 12;
}

std::int32_t RateOf(Session& s, Row row) {
    const LoopTrackSet& set = s.Set[row];
    double rate = set.Hz / 1000.0 * set.SampleRate;
    if (Wired(set)) rate = s.ChannelHz[set.Channel] * rate / 1000;
    if (FollowsPatterns(set)) rate = PatternValue(s, row, kHzPattern) * rate / 1000;
    std::int32_t hertz = ToI4(rate);
    ClampI4(hertz, kLowestRate, kHighestRate);
    return hertz;
}

/// Shows a failure of a Map routine, but not the same one again: ticks and drags call many times a second. It is noted
/// first, as the same routine may run before the report returns.
void ReportFailure(Session& s, Row row, Knob which, std::string_view context, std::uint32_t number) {
    std::uint32_t& shown = s.Run[row].MapError[static_cast<int>(which)];
    if (shown == number) return;
    shown = number;
    ShowDSError(s, context, number);
}

/// After a success the next failure is a new one. A pattern may fail at some of its steps only.
void NoteSuccess(Session& s, Row row, Knob which) {
    if (!FollowsPatterns(s.Set[row])) s.Run[row].MapError[static_cast<int>(which)] = 0;
}

}  // namespace

void MapVol(Session& s, Row row) {
    if (s.Run[row].Loaded == False) return;
    try {
        BufferOf(s, row).SetVolume(VolumeOf(s, row));
        NoteSuccess(s, row, Knob::Vol);
    } catch (const RuntimeError& e) {
        ReportFailure(s, row, Knob::Vol, "setting volume", e.Number());
    }
}

void MapPan(Session& s, Row row) {
    if (s.Run[row].Loaded == False || s.Use3D) return;
    try {
        BufferOf(s, row).SetPan(PanOf(s, row));
        NoteSuccess(s, row, Knob::Pan);
    } catch (const RuntimeError& e) {
        ReportFailure(s, row, Knob::Pan, "panning", e.Number());
    }
}

void MapHZ(Session& s, Row row) {
    if (s.Run[row].Loaded == False) return;
    try {
        BufferOf(s, row).SetFrequency(RateOf(s, row));
        NoteSuccess(s, row, Knob::Hz);
    } catch (const RuntimeError& e) {
        ReportFailure(s, row, Knob::Hz, "setting frequency", e.Number());
    }
}

void MapVolAll(Session& s) {
    for (Row row = 0; row < kLoopTracks; ++row) MapVol(s, row);
}

void MapPanAll(Session& s) {
    for (Row row = 0; row < kLoopTracks; ++row) MapPan(s, row);
}

void MapHZAll(Session& s) {
    for (Row row = 0; row < kLoopTracks; ++row) MapHZ(s, row);
}

}  // namespace marvolin

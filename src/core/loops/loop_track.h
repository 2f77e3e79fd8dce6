#pragma once
/// \file
/// The two records of a LoopTrack row, and the band.

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "core/sound_service.h"
#include "core/table.h"
#include "core/types.h"

namespace marvolin {

/// One pattern row: the values of steps 0..31, and behind them (element 32) the random spread of the row.
using PatternBlock = Table<std::int16_t, kPatternSteps + 1>;

/// The settings of a LoopTrack, in the order in which a session file stores them.
struct LoopTrackSet {
    std::string FileName;             ///< full path of the sample; "" marks an empty LoopTrack
    std::int16_t Hz = kHzUnity;       ///< 1..4000, thousandths of the sample's own rate
    std::int32_t SampleRate = 0;      ///< recorded rate, Hz, read from the buffer after loading
    std::int16_t Vol = kVolFull;      ///< 0..500; in row 5 the master volume
    std::int16_t Pan = kPanCentre;    ///< 0 left..500 centre..1000 right
    Boolean Selected = False;         ///< belongs to the selection
    Boolean Thinnable = True;         ///< takes part in thinning
    std::int32_t StepDuration = 1;    ///< 1/100 s, time between steps in the clocked modes
    std::int32_t Swing = 0;           ///< 1/100 s, jitter of the step clock
    std::int32_t BeatStart = 0;       ///< 1/100 s, 0..`Length` * 100, where Drum mode starts the sample
    std::int32_t BufferBytes = 0;     ///< bytes of the sound buffer
    double Length = 0;                ///< seconds, `BufferBytes` / `AvgBytesPerSec`; 0 means no sample
    std::int32_t AvgBytesPerSec = 0;  ///< bytes per second, from the buffer's format
    std::int16_t PlayMode = kLoop;    ///< a `marvolin::PlayMode`
    std::int16_t NSteps = 3;          ///< highest step index 0..31; the player is shown one more
    /// Rows `kVolPattern`, `kHzPattern`, `kPanPattern` with their spreads at `kPatternOffset`.
    Table<PatternBlock, kPatternRows> Pattern;
    float PositionX = 0;       ///< map units
    float PositionY = 0;       ///< map units
    std::uint8_t Channel = 1;  ///< 1..8; 1..4 wire the LoopTrack to that channel, 5..8 to none

    LoopTrackSet();
    friend bool operator==(const LoopTrackSet&, const LoopTrackSet&) = default;
};

/// A sample that a LoopTrack holds, and how it sounds: what brings it back under another device.
struct HeldSample {
    std::string FileName;        ///< full path; "" none
    std::int32_t BeatStart = 0;  ///< 1/100 s
    bool Playing = false;        ///< the row counts as sounding
    bool Paused = false;         ///< stopped at its position by a pause
    bool Sounds = false;         ///< the buffer plays
    bool Loops = false;          ///< that playing loops
    bool Reversed = false;       ///< the sample runs backwards
    std::int32_t Cursor = 0;     ///< bytes
};

struct MissingSample;

/// The live state of a LoopTrack row; never saved. Row 4 uses only `Playing` and `Paused`.
struct LoopTrackRun {
    std::unique_ptr<DirectSoundBuffer> Buffer;      ///< null when not `Loaded`; rows 4 and 5 never get one
    std::unique_ptr<DirectSound3DBuffer> Buffer3D;  ///< only with `Use3D` on
    std::int32_t BeatStartBytes = 0;                ///< `BeatStart` as a byte offset, not aligned to a frame
    Boolean Loaded = False;                         ///< a sample is in `Buffer`
    Boolean Playing = False;           ///< counts as sounding; in row 4: some controlled LoopTrack is playing
    Boolean Paused = False;            ///< stopped at its position by a pause; cleared only by a resume
    Boolean Reversed = False;          ///< the sample in `Buffer` runs backwards
    Table<std::uint32_t, 3> MapError;  ///< by `Knob`: the error that its Map routine has shown; 0 none
    std::int16_t FadeState = 0;        ///< a `marvolin::FadeState`
    double FadeValue = 0;              ///< running level of the fade on the `Vol` scale
    std::int16_t FadeTarget = 0;       ///< level at which the fade ends
    Boolean FadeToMark = False;        ///< the fade runs to a mark that stays on the sound display
    std::int16_t Step = 0;             ///< current pattern step, 0..`NSteps`
    std::int32_t StepElapsed = 0;      ///< milliseconds counted towards the next step
    std::int16_t PlayRequest = 0;      ///< argument of the last `LoopPlay`; read by nothing
    Boolean StepDue = False;           ///< a step boundary was reached; consumed by `LoopStep`
    Boolean InBand = False;            ///< operated as a member of a band
    std::int16_t Band = 0;             ///< row of `BandTable` it belongs to
    HeldSample InHand;                 ///< while no device is open: what the row holds as soon as one is
    /// The row as it was read, while its sample cannot be found; null when nothing is missing.
    std::shared_ptr<const MissingSample> Missing;
};

/// A run of neighbouring LoopTracks. `First` > `Last` is an empty band: a walk over it does nothing.
struct Band {
    std::int16_t First = 5;
    std::int16_t Last = 3;
    std::int16_t BandSpare = 0;  ///< saved, read by nothing
    Boolean Controlled = False;  ///< the band's selector button is on
    friend bool operator==(const Band&, const Band&) = default;
};

/// Limits of the values of a pattern row, and what a reset fills in.
struct PatternLimits {
    std::int16_t Min;
    std::int16_t Max;
    std::int16_t Default;
};

/// Limits of the pattern rows Vol, Hz, Pan.
inline constexpr std::array<PatternLimits, kPatternRows> kPatternRange{
    {{0, 500, 500}, {1, 4000, 1000}, {0, 1000, 500}}};

inline LoopTrackSet::LoopTrackSet() {
    for (int row = 0; row < kPatternRows; ++row) {
        const PatternLimits& range = kPatternRange[static_cast<std::size_t>(row)];
        for (int step = 0; step < kPatternSteps; ++step) Pattern[row][step] = range.Default;
        Pattern[row][kPatternOffset] = range.Min;
    }
}

/// Colour in which a row is drawn, rows 0..5.
inline const Table<Colour, kRows> kRowColours{
    {{{255, 0, 0}, {41, 253, 255}, {255, 192, 0}, {0, 0, 255}, {255, 255, 132}, {0, 0, 149}}}};

/// Letter of a row: A..D, and Z for the selection row.
constexpr char RowLetter(Row row) { return row == kSelectionRow ? 'Z' : static_cast<char>('A' + row); }

}  // namespace marvolin

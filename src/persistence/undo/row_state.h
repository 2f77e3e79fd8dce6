#pragma once
/// \file
/// What a step can change of a LoopTrack.

#include <cstdint>
#include <memory>

#include "core/loops/row_clock.h"
#include "core/session.h"

namespace marvolin {

/// The parts of a row that a step changes each for itself, as bits.
using RowParts = std::uint32_t;
enum RowPart : RowParts {
    kSamplePart = 1U << 0,    ///< the sample and its facts, or the one that waits or is missing
    kReversedPart = 1U << 1,  ///< whether it runs backwards
    kSoundingPart = 1U << 2,  ///< whether it plays or pauses, with cursor, step and fade
    kVolPart = 1U << 3,
    kPanPart = 1U << 4,
    kHzPart = 1U << 5,
    kModePart = 1U << 6,
    kThinnablePart = 1U << 7,
    kStepDurationPart = 1U << 8,
    kSwingPart = 1U << 9,
    kBeatStartPart = 1U << 10,
    kNStepsPart = 1U << 11,
    kVolPatternPart = 1U << 12,
    kHzPatternPart = 1U << 13,
    kPanPatternPart = 1U << 14,
    kPlacePart = 1U << 15,
    kWirePart = 1U << 16,
    kSelectedPart = 1U << 17,
    kLinePart = 1U << 18,  ///< the lower needle of `SndDisp`
    kBandPart = 1U << 19,  ///< its membership in a band
    kAllRowParts = (1U << 20) - 1,
    kFadedParts = kVolPart | kLinePart,  ///< what a fade moves
};

/// A row 0..4 as it was at one moment. The bytes of its sample are shared, not copied.
struct RowState {
    LoopTrackSet Set;
    std::shared_ptr<KeptSample> Sample;  ///< null without one, and when its memory has been given up
    Boolean Loaded = False;
    Boolean Reversed = False;  ///< as `Set.BeatStart` of the loaded sample, or of the one that waits
    std::int32_t BeatStartBytes = 0;
    HeldSample InHand;  ///< name of the sample that waits for a device, and how it or the loaded one sounds
    std::shared_ptr<const MissingSample> Missing;
    RowClock Clock;
    std::int16_t Line = 0;
    Boolean InBand = False;
    std::int16_t Band = 0;
};

/// Whether a sample of the row waits for a device.
bool Waits(const LoopTrackRun& run);
/// Copies how a sample sounds, not which it is.
void CopySounding(HeldSample& to, const HeldSample& from);
/// The row as it is. A device that no longer answers leaves the cursor at 0.
RowState CaptureRow(Session& s, Row row);
/// The parts in which the two differ. With the sample its sounding always does.
RowParts DifferentParts(const RowState& before, const RowState& after);
/// Whether a fade runs in it.
bool Fades(const RowState& row);
/// Copies some parts.
void CopyParts(RowState& to, const RowState& from, RowParts parts);

}  // namespace marvolin

#pragma once
/// \file
/// Thinning: how many LoopTracks may sound at once.

#include "core/session.h"

namespace marvolin {

/// The highest `Limit`, which means that there is none.
inline constexpr std::int16_t kNoLimit = 4;

/// The row of a letter of `ThinList`.
constexpr Row ThinnedRow(char letter) { return static_cast<Row>(letter - 'A'); }

/// Whether the row holds a sample; without a device, whether one waits for it.
bool CanBeThinned(const Session& s, Row row);
/// Lets the row take part in thinning, or not.
void LoopSetThinnable(Session& s, Row row, bool thinnable);
/// Enters a starting row in `ThinList`, and stops the oldest one when the limit is passed. Does nothing for a row that
/// does not take part or cannot be thinned.
void ThinAdd(Session& s, Row row);
/// Takes the row out of `ThinList`.
void ThinRemove(Session& s, Row row);
/// Stops the oldest row, again and again, until the limit holds; at `kNoLimit` does nothing.
void ThinTo(Session& s);

}  // namespace marvolin

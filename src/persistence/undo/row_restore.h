#pragma once
/// \file
/// How a row comes back to what it was: in three stages, of which all rows pass one before the next begins. `goal` is
/// the whole row as it shall be, `parts` what of it differs from the row as it is.

#include "core/session.h"
#include "persistence/undo/row_state.h"

namespace marvolin {

/// Whether a sample is back in its row.
enum class SampleBack : std::uint8_t { Yes, Waits };

/// Takes out the sample of the row and puts in the one of `goal`: from memory, or from its file when the memory has
/// been given up. `Waits` when there is no device, or when neither can be had: the next device takes it. A row that
/// falls silent is stopped.
SampleBack RestoreSample(Session& s, Row row, const RowState& goal, RowParts parts);
/// The settings, through the setters of the hand. A sample that has come in gets all of them.
void RestoreSettings(Session& s, Row row, const RowState& goal, RowParts parts);
/// Starts the row again at the place where it was, or leaves it silent there.
void RestoreSounding(Session& s, Row row, const RowState& goal, RowParts parts);

}  // namespace marvolin

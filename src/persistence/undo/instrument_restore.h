#pragma once
/// \file
/// How what lies beside the rows comes back. `goal` is the whole of it as it shall be, `parts` what of it differs.

#include "core/session.h"
#include "persistence/undo/instrument_state.h"

namespace marvolin {

/// Before the rows: the size of the map, by which the places are drawn. 3D itself has been switched already.
void RestoreSpace(Session& s, const InstrumentState& goal, InstrumentParts parts);
/// Between the settings of the rows and their sound: bands, selectors, histories, choices, the names of the set.
void RestoreTables(Session& s, const InstrumentState& goal, InstrumentParts parts);
/// When all rows sound again: the order of thinning, without rows that take no part in it any more.
void RestoreThinList(Session& s, const std::string& goal);
/// At the end: options, bins and pad. `now` is what was captured before the first change.
void RestoreOptions(Session& s, const InstrumentState& goal, const InstrumentState& now, InstrumentParts parts);

}  // namespace marvolin

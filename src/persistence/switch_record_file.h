#pragma once
/// \file
/// The switch table of a session file.

#include "core/files/record_stream.h"
#include "core/switch_record.h"

namespace marvolin {

/// Writes the sixteen switches under their names.
void PutIt(const clsSwitchRecord& switches, RecordWriter& file);
/// Reads a switch table. A switch that the table does not name, or whose value is a text, is off.
void GetIt(clsSwitchRecord& switches, RecordReader& file);

}  // namespace marvolin

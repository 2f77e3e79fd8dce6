#pragma once
/// \file
/// Making the buffer of a row: from a file, or as a duplicate of another row's. When memory ends, samples that only
/// Backspace would bring back give way.

#include <memory>
#include <string>

#include "core/session.h"

namespace marvolin {

/// Reads `path` into a new buffer of the row. 1 when the path is "" or the service fails, else 0.
/// Failures: "creating sound buffer, make sure WAV file is in PCM format"; the row then has no buffer.
int LoopCreateBuffer(Session& s, Row row, const std::string& path);

/// Gives the row a buffer of its own that shares the sample of row `source`. 1 when the service fails, else 0.
/// Failures: "duplicating sound buffer"; the row then has no buffer.
int LoopDuplicateBuffer(Session& s, Row row, Row source);

/// Gives the row a buffer of its own for a sample that was kept in memory. 1 when the service fails, else 0.
/// Failures: "creating sound buffer"; the row then has no buffer.
int LoopKeptBuffer(Session& s, Row row, const std::shared_ptr<KeptSample>& sample);

/// Releases the row's buffer. The sample stays in memory as long as a duplicate needs it.
void ReleaseBuffer(Session& s, Row row);

/// The row's buffer. Raises `NoObjectError` when the row has none.
DirectSoundBuffer& BufferOf(Session& s, Row row);

}  // namespace marvolin

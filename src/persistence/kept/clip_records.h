#pragma once
/// \file
/// The clipboard's records, made anew only when a clip has changed.

#include <cstddef>
#include <string_view>
#include <vector>

#include "core/files/record_stream.h"
#include "core/session.h"

namespace marvolin {

/// A full clipboard is most of a set. Comparing its clips with a copy takes a fraction of the time that their records
/// take, and no procedure that changes one has to announce it.
class ClipRecords {
public:
    /// Follows the clipboard. Raises `OverflowError` when a path is too long for a file; the next call then tries
    /// again.
    void Follow(const Session& s);
    /// The records as `WriteClipBoard` writes them, at the last `Follow`. Valid until the next.
    std::string_view Bytes() const { return records_.Bytes(); }
    /// Of the bytes.
    std::size_t Digest() const { return digest_; }
    /// How often the records have been made.
    int Made() const { return made_; }

private:
    std::vector<LoopTrackSet> clips_;  ///< of the records
    std::int16_t top_ = -1;
    bool whole_ = false;
    RecordWriter records_;
    std::size_t digest_ = 0;
    int made_ = 0;
};

}  // namespace marvolin

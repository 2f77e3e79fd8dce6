#include "persistence/kept/clip_records.h"

#include <functional>

#include "persistence/clips.h"

namespace marvolin {

void ClipRecords::Follow(const Session& s) {
    if (whole_ && top_ == s.Clips.ClipTop && clips_ == s.Clips.ClipStore) return;
    whole_ = false;
    records_.Clear();
    WriteClipBoard(s, records_);
    clips_ = s.Clips.ClipStore;
    top_ = s.Clips.ClipTop;
    digest_ = std::hash<std::string_view>()(records_.Bytes());
    ++made_;
    whole_ = true;
}

}  // namespace marvolin

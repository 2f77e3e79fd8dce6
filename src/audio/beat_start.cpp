#include "audio/beat_start.h"

#include "core/routines.h"

namespace marvolin {

void LoopSetBeatStart(Session& s, Row row, std::int32_t& hundredths) {
    LoopTrackSet& loop = s.Set[row];
    ClampI4(hundredths, 0, ToI4(loop.Length * 100));
    loop.BeatStart = hundredths;
    s.Run[row].BeatStartBytes = ToI4(Int(hundredths / 100.0 * loop.AvgBytesPerSec));
}

}  // namespace marvolin

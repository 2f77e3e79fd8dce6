#include "audio/thinning.h"

#include "audio/transport.h"

namespace marvolin {

namespace {

char ThinLetter(Row row) { return static_cast<char>('A' + row); }

}  // namespace

bool CanBeThinned(const Session& s, Row row) {
    return s.Run[row].Loaded != False || (!s.DSReady && !s.Run[row].InHand.FileName.empty());
}

void LoopSetThinnable(Session& s, Row row, bool thinnable) {
    s.Set[row].Thinnable = ToBoolean(thinnable);
    if (thinnable) {
        ThinAdd(s, row);
    } else {
        ThinRemove(s, row);
    }
}

void ThinAdd(Session& s, Row row) {
    if (s.Set[row].Thinnable == False || !CanBeThinned(s, row)) return;
    if (s.ThinList.find(ThinLetter(row)) != std::string::npos) return;
    s.ThinList += ThinLetter(row);
    if (s.Limit == kNoLimit) return;
    if (s.Limit < static_cast<int>(s.ThinList.size())) LoopStop(s, ThinnedRow(s.ThinList.front()));
}

void ThinRemove(Session& s, Row row) {
    const std::size_t place = s.ThinList.find(ThinLetter(row));
    if (place != std::string::npos) s.ThinList.erase(place, 1);
}

void ThinTo(Session& s) {
    if (s.Limit == kNoLimit) return;
    while (!s.ThinList.empty() && s.Limit < static_cast<std::int64_t>(s.ThinList.size())) {
        const std::string before = s.ThinList;
        LoopStop(s, ThinnedRow(before.front()));
        // A stop that failed has left its letter in the list: another try would fail as well.
        if (s.ThinList == before) return;
    }
}

}  // namespace marvolin

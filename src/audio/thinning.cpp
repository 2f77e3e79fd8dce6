#include "audio/transport.h"

namespace marvolin {

namespace {

constexpr std::int16_t kNoLimit = 4;

char ThinLetter(Row row) { return static_cast<char>('A' + row); }

}  // namespace

void LoopSetThinnable(Session& s, Row row, bool thinnable) {
    s.Set[row].Thinnable = ToBoolean(thinnable);
    if (thinnable) {
        ThinAdd(s, row);
    } else {
        ThinRemove(s, row);
    }
}

void ThinAdd(Session& s, Row row) {
    if (s.Set[row].Thinnable == False || s.Run[row].Loaded == False) return;
    if (s.ThinList.find(ThinLetter(row)) != std::string::npos) return;
    s.ThinList += ThinLetter(row);
    if (s.Limit == kNoLimit) return;
    if (s.Limit < static_cast<int>(s.ThinList.size())) LoopStop(s, static_cast<Row>(s.ThinList.front() - 'A'));
}

void ThinRemove(Session& s, Row row) {
    const std::size_t place = s.ThinList.find(ThinLetter(row));
    if (place != std::string::npos) s.ThinList.erase(place, 1);
}

}  // namespace marvolin

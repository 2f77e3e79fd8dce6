#include "core/loops/sample_history.h"

#include <algorithm>

namespace marvolin {

void HistoryAdd(Session& s, Row row, const std::string& path) {
    std::vector<std::string>& history = s.History[row];
    if (std::find(history.begin(), history.end(), path) != history.end()) return;
    history.insert(history.begin(), path);
    const std::size_t limit = row == kSelectionRow ? 100 : 20;
    if (history.size() > limit) history.pop_back();
}

}  // namespace marvolin

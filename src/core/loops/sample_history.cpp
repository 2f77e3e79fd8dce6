#include "core/loops/sample_history.h"

#include <algorithm>

namespace marvolin {

namespace {

constexpr std::size_t kPathsOfARow = 20;
constexpr std::size_t kPathsOfAllRows = 100;

}  // namespace

void HistoryAdd(Session& s, Row row, const std::string& path) {
    std::vector<std::string>& history = s.History[row];
    if (std::find(history.begin(), history.end(), path) != history.end()) return;
    history.insert(history.begin(), path);
    const std::size_t limit = row == kSelectionRow ? kPathsOfAllRows : kPathsOfARow;
    if (history.size() > limit) history.pop_back();
}

}  // namespace marvolin

#include "persistence/missing/sample_search.h"

#include <string_view>
#include <system_error>
#include <utility>

#include "core/files/name_order.h"
#include "core/files/paths.h"

namespace marvolin {

namespace fs = std::filesystem;

namespace {

constexpr int kEntriesBetweenLooks = 16;  // at the clock

}  // namespace

SampleSearch::SampleSearch(const std::string& folder, std::vector<std::string> names)
    : names_(std::move(names)), folders_{folder} {}

bool SampleSearch::OpenNext() {
    while (at_ == fs::directory_iterator()) {
        if (folders_.empty()) return false;
        std::error_code error;
        at_ = fs::directory_iterator(folders_.front(), error);
        folders_.pop_front();
        if (error) at_ = {};
    }
    return true;
}

void SampleSearch::LookAt(const fs::directory_entry& entry) {
    std::error_code error;
    // The kind comes with the name: nothing is asked of each file.
    if (entry.symlink_status(error).type() == fs::file_type::directory) {
        folders_.push_back(entry.path().string());
        return;
    }
    const std::string_view whole = entry.path().native();
    const std::string_view name = whole.substr(whole.rfind('/') + 1);
    for (const std::string& wanted : names_) {
        if (!SameIgnoringCase(name, wanted) || !TargetExists(entry.path().native())) continue;
        (name == wanted ? found_ : alike_)[wanted].push_back(entry.path().string());
    }
}

bool SampleSearch::Step(int entries) {
    for (int seen = 0; seen < entries; ++seen) {
        if (names_.empty() || !OpenNext()) return true;
        LookAt(*at_);
        std::error_code error;
        at_.increment(error);
        if (error) at_ = {};
    }
    return false;
}

bool SampleSearch::StepFor(std::int64_t most, const std::function<std::int64_t()>& clock) {
    const std::int64_t end = clock() + most;
    do {
        if (Step(kEntriesBetweenLooks)) return true;
    } while (clock() < end);
    return false;
}

FoundSamples SampleSearch::Found() const {
    FoundSamples found = found_;
    found.insert(alike_.begin(), alike_.end());
    return found;
}

}  // namespace marvolin

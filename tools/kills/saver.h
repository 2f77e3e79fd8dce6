#pragma once
/// \file
/// What a kill or a full disk may strike: something that saves one numbered state after the other in a folder.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace marvolin::kills {

class Saver {
public:
    virtual ~Saver() = default;
    /// Saves state `number`, 1 or more. False when the save reports that it has failed.
    virtual bool Save(int number) = 0;
    /// The number of the newest saved state, read by another instrument; nothing when what there is is not whole.
    virtual std::optional<int> Newest() = 0;
};

/// A saver by its name, made in a folder.
struct Kind {
    std::string Name;
    std::function<std::unique_ptr<Saver>(const std::string& folder)> Make;
};

/// Sets, packages, snapshots, scripts, and the last state.
std::vector<Kind> Kinds();

}  // namespace marvolin::kills

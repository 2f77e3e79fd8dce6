#include "audio/output_list.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "audio/device_abilities.h"
#include "core/errors.h"

namespace marvolin {

namespace {

constexpr const char* kNoSoundEntry = "No Sound";

/// An output by its name, and which of those with that name it is.
struct OutputKey {
    std::string Name;
    std::ptrdiff_t Which = 0;
    friend bool operator==(const OutputKey&, const OutputKey&) = default;
};

std::string Plain(const std::string& entry) {
    return entry.ends_with(kUnplugged) ? entry.substr(0, entry.size() - kUnplugged.size()) : entry;
}

/// The name without the number that the service gives the second of one name: "USB (2)" is a "USB".
std::string Unnumbered(const std::string& name) {
    const std::size_t open = name.rfind(" (");
    if (open == std::string::npos || !name.ends_with(')') || open + 3 >= name.size()) return name;
    const bool number = std::all_of(name.begin() + static_cast<std::ptrdiff_t>(open) + 2, name.end() - 1,
                                    [](char digit) { return digit >= '0' && digit <= '9'; });
    return number ? name.substr(0, open) : name;
}

OutputKey KeyOf(const std::vector<std::string>& entries, std::size_t at) {
    const std::string name = Plain(entries[at]);
    const auto end = entries.begin() + static_cast<std::ptrdiff_t>(at);
    return {name, std::count_if(entries.begin(), end, [&](const std::string& entry) { return Plain(entry) == name; })};
}

std::ptrdiff_t CountOf(const std::vector<std::string>& entries, const std::string& name) {
    return std::count_if(entries.begin(), entries.end(),
                         [&](const std::string& entry) { return Plain(entry) == name; });
}

/// What the service has, and behind it the outputs that are not there.
class FollowedOutputs final : public DSEnum {
public:
    explicit FollowedOutputs(std::unique_ptr<DSEnum> present) : present_(std::move(present)) {}
    void Add(std::string guid, std::string name) { away_.emplace_back(std::move(guid), std::move(name)); }

    std::int16_t GetCount() override {
        return static_cast<std::int16_t>(present_->GetCount() + static_cast<std::int16_t>(away_.size()));
    }
    std::string GetGuid(std::int16_t index) override {
        const std::size_t away = Away(index);
        return away < away_.size() ? away_[away].first : present_->GetGuid(index);
    }
    std::string GetDescription(std::int16_t index) override {
        const std::size_t away = Away(index);
        return away < away_.size() ? away_[away].second : present_->GetDescription(index);
    }

private:
    // Far beyond the end for an output that is there.
    std::size_t Away(std::int16_t index) { return static_cast<std::size_t>(index - 1 - present_->GetCount()); }

    std::unique_ptr<DSEnum> present_;
    std::vector<std::pair<std::string, std::string>> away_;
};

/// The list that is being made.
struct Following {
    std::unique_ptr<FollowedOutputs> Outputs;
    std::vector<std::string> Entries;
    std::ptrdiff_t LostFrom = -1;  ///< how many of its name stayed when the open one went; -1 when that is not known

    /// Whether the old list did not have an entry.
    bool IsNew(const std::vector<std::string>& old, std::size_t entry) const {
        for (std::size_t i = 0; i < old.size(); ++i)
            if (KeyOf(old, i) == KeyOf(Entries, entry)) return false;
        return true;
    }

    /// The entry that stands for old entry `before`; -1 stays -1, and "No Sound" the last.
    std::int16_t Find(Session& s, std::int16_t before) {
        const std::vector<std::string>& old = s.Drivers;
        if (before < 0 || static_cast<std::size_t>(before) >= old.size()) return -1;
        if (static_cast<std::size_t>(before) + 1 == old.size()) return kLast;
        OutputKey key = KeyOf(old, static_cast<std::size_t>(before));
        // Of several with one name the list does not say which has gone; the driver of the open one does.
        const std::ptrdiff_t left = CountOf(Entries, key.Name);
        const bool fewer = before == s.OpenDriver && s.DSReady && left > 0 && left < CountOf(old, key.Name);
        if (fewer) key.Which = OpenOutputIsGone(s) ? left : std::min(key.Which, left - 1);
        // One that comes back is the last of its name.
        if (before == s.OpenDriver && LostFrom >= 0) key.Which = LostFrom;
        for (std::size_t i = 0; i < Entries.size(); ++i)
            if (KeyOf(Entries, i) == key) return static_cast<std::int16_t>(i);
        // One that was pulled out and put back may have got another number.
        for (std::size_t i = 0; i < Entries.size(); ++i)
            if (Unnumbered(Entries[i]) == Unnumbered(key.Name) && IsNew(old, i)) return static_cast<std::int16_t>(i);
        const std::string name = key.Name + std::string(kUnplugged);
        Outputs->Add(s.DSEnum->GetGuid(static_cast<std::int16_t>(before + 1)), name);
        Entries.push_back(name);
        return static_cast<std::int16_t>(Entries.size() - 1);
    }
    static constexpr std::int16_t kLast = 0x7FFF;
};

Following Ask(Session& s) {
    Following now{.Outputs = std::make_unique<FollowedOutputs>(s.DX->GetDSEnum()), .Entries = {}};
    const std::int16_t count = now.Outputs->GetCount();
    for (std::int16_t index = 1; index <= count; ++index) now.Entries.push_back(now.Outputs->GetDescription(index));
    return now;
}

std::int16_t Placed(std::int16_t entry, const std::vector<std::string>& entries) {
    return entry == Following::kLast ? static_cast<std::int16_t>(entries.size() - 1) : entry;
}

bool Follow(Session& s, std::ptrdiff_t lostFrom) {
    Following now = Ask(s);
    now.LostFrom = lostFrom;
    std::int16_t chosen = now.Find(s, s.Driver);
    std::int16_t open = s.OpenDriver == s.Driver ? chosen : now.Find(s, s.OpenDriver);
    now.Entries.emplace_back(kNoSoundEntry);
    chosen = Placed(chosen, now.Entries);
    open = Placed(open, now.Entries);
    if (now.Entries == s.Drivers && chosen == s.Driver && open == s.OpenDriver) return false;
    s.Drivers = std::move(now.Entries);
    s.DSEnum = std::move(now.Outputs);
    s.Driver = chosen;
    s.OpenDriver = open;
    s.World.Screen.ShowDrivers();
    return true;
}

/// A service that fails changes nothing.
bool TryFollow(Session& s, std::ptrdiff_t lostFrom) {
    if (!s.DX || !s.DSEnum) return false;
    try {
        return Follow(s, lostFrom);
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace

bool RefreshOutputs(Session& s) { return TryFollow(s, -1); }

void PartFromLostOutput(Session& s, std::ptrdiff_t left) { TryFollow(s, left); }

std::ptrdiff_t PluggedOutputs(const Session& s, const std::string& name) {
    return std::count(s.Drivers.begin(), s.Drivers.end(), name);
}

bool OpenOutputIsGone(const Session& s) {
    const auto* output = s.DSReady ? dynamic_cast<const OutputPresence*>(s.DS.get()) : nullptr;
    return output != nullptr && output->Gone();
}

bool IsPlugged(const Session& s, std::int16_t entry) {
    return entry >= 0 && static_cast<std::size_t>(entry) < s.Drivers.size() &&
           !s.Drivers[static_cast<std::size_t>(entry)].ends_with(kUnplugged);
}

std::string OutputName(const Session& s, std::int16_t entry) {
    return entry >= 0 && static_cast<std::size_t>(entry) < s.Drivers.size()
               ? Plain(s.Drivers[static_cast<std::size_t>(entry)])
               : std::string();
}

std::vector<std::string> ShownOutputs(const Session& s) {
    std::vector<std::string> names;
    for (const std::string& entry : s.Drivers) names.push_back(Unnumbered(Plain(entry)));
    std::vector<std::string> shown = s.Drivers;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (std::count(names.begin(), names.end(), names[i]) > 1) continue;
        shown[i].replace(0, Plain(shown[i]).size(), names[i]);
    }
    return shown;
}

}  // namespace marvolin

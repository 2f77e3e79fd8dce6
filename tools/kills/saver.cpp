#include "kills/saver.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "audio/sample_loading.h"
#include "core/errors.h"
#include "headless_world.h"
#include "persistence/kept/last_state.h"
#include "persistence/session_reader.h"
#include "persistence/session_writer.h"
#include "persistence/snapshot.h"
#include "scripting/script_file.h"
#include "soak/samples.h"

namespace marvolin::kills {

namespace {

using headless::World;

constexpr int kPitches = 4000;
constexpr std::int32_t kKeepAfter = 21'000;  // ms

/// A whole instrument with samples in its LoopTracks. The number of a state is in the pitch and the volume of each.
class Instrument {
public:
    explicit Instrument(const std::string& folder, bool withSamples) : world_(folder) {
        Player().CurrentFolder = folder + "/";
        for (clsSwitchRecord& switches : Player().SaveOpenSwitches) switches.SetSwitch(true);
        if (!withSamples) return;
        std::filesystem::create_directories(folder + "/from");
        const std::vector<std::string> samples = soak::WriteSamples(folder + "/from");
        for (Row row = 0; row < kLoopTracks; ++row)
            LoadSample(Player(), {.Path = samples[static_cast<std::size_t>(row)], .Target = row, .Rows = Reach::Alone});
    }
    Session& Player() { return world_.s; }
    headless::HandTimers& Timers() { return world_.Timers; }
    /// True when nothing has been reported since the last time.
    bool Quiet() {
        const bool quiet = world_.Desk.Boxes.empty();
        world_.Desk.Boxes.clear();
        return quiet;
    }
    void Set(int number) {
        for (Row row = 0; row < kLoopTracks; ++row) {
            Player().Set[row].Hz = static_cast<std::int16_t>(number % kPitches + 1);
            Player().Set[row].Vol = static_cast<std::int16_t>(number / kPitches);
        }
    }
    std::optional<int> NumberIn(const std::string& path) {
        Session& s = Player();
        for (Row row = 0; row < kLoopTracks; ++row) s.Set[row].Hz = 0;
        if (!LoadSession(s, path, SetAsCurrent::No, AllSwitches(), AdoptSwitches::No) || !Quiet()) return {};
        for (Row row = 0; row < kLoopTracks; ++row) {
            const bool same = s.Set[row].Hz == s.Set[0].Hz && s.Set[row].Vol == s.Set[0].Vol;
            if (!same || s.Run[row].Loaded == False) return {};
        }
        return s.Set[0].Vol * kPitches + s.Set[0].Hz - 1;
    }

private:
    World world_;
};

class SetSaver : public Saver {
public:
    SetSaver(const std::string& folder, const std::string& name)
        : folder_(folder), path_(folder + "/" + name), writer_(folder, true), reader_(folder, false) {}
    bool Save(int number) override {
        writer_.Set(number);
        const bool saved = SaveSession(writer_.Player(), path_, LoopsSaved::All, AllSwitches());
        return writer_.Quiet() && saved;
    }
    std::optional<int> Newest() override { return reader_.NumberIn(path_); }

protected:
    std::string folder_;
    std::string path_;
    Instrument writer_;
    Instrument reader_;
};

class SnapshotSaver final : public SetSaver {
public:
    explicit SnapshotSaver(const std::string& folder) : SetSaver(folder, "") {}
    bool Save(int number) override {
        writer_.Set(number);
        writer_.Player().StatusText.clear();
        SnapShot_MouseUp(writer_.Player());
        return writer_.Quiet() && writer_.Player().StatusText.starts_with("Snapshot");
    }
    /// All of them must be whole. Only the newest one is kept.
    std::optional<int> Newest() override {
        std::optional<int> newest;
        std::string newestPath;
        for (const std::string& path : Snapshots()) {
            const std::optional<int> number = reader_.NumberIn(path);
            if (!number) return {};
            if (newest && *number <= *newest) continue;
            newest = number;
            newestPath = path;
        }
        for (const std::string& path : Snapshots()) {
            if (path != newestPath) std::filesystem::remove(path);
        }
        return newest;
    }

private:
    std::vector<std::string> Snapshots() const {
        std::vector<std::string> paths;
        for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
            if (entry.path().filename().string().starts_with("Snapshot")) paths.push_back(entry.path());
        }
        return paths;
    }
};

class ScriptSaver final : public Saver {
public:
    explicit ScriptSaver(const std::string& folder) : path_(folder + "/x.mvs") {}
    bool Save(int number) override {
        try {
            WriteScript(path_, TextOf(number));
            return true;
        } catch (const RuntimeError&) {
            return false;
        }
    }
    std::optional<int> Newest() override {
        std::string text;
        try {
            text = ReadScript(path_);
        } catch (const RuntimeError&) {
            return {};
        }
        constexpr std::size_t kBefore = 3;  // "-- "
        if (text.size() < kBefore) return {};
        int number = 0;
        std::from_chars(text.data() + kBefore, text.data() + text.size(), number);
        if (text != TextOf(number)) return {};
        return number;
    }

private:
    static std::string TextOf(int number) {
        std::string text;
        for (int line = 0; line < 2000; ++line) text += "-- " + std::to_string(number) + "\n";
        return text;
    }
    std::string path_;
};

class LastStateSaver final : public SetSaver {
public:
    explicit LastStateSaver(const std::string& folder) : SetSaver(folder, std::string(kLastSessionFile)) {}
    /// In the process that saves, whose thread writes the file.
    bool Save(int number) override {
        Session& s = writer_.Player();
        if (!s.Kept) StartKeeping(s);
        writer_.Set(number);
        for (std::int32_t passed = 0; passed < kKeepAfter; ++passed) writer_.Timers().Pass();
        WaitForLastState(s);
        // What has been written is noted at the next look.
        for (std::int32_t passed = 0; passed < kLookPeriod; ++passed) writer_.Timers().Pass();
        // A failure is told once, and then tried again, so a word in the status line says nothing of this one.
        return Newest() == number;
    }
};

template <typename Made, typename... Arguments>
Kind KindOf(const std::string& name, Arguments... arguments) {
    return {name, [arguments...](const std::string& folder) { return std::make_unique<Made>(folder, arguments...); }};
}

}  // namespace

std::vector<Kind> Kinds() {
    return {KindOf<SetSaver>("session", std::string("x.mvn")), KindOf<SetSaver>("package", std::string("x.mvp")),
            KindOf<SnapshotSaver>("snapshot"), KindOf<ScriptSaver>("script"), KindOf<LastStateSaver>("last state")};
}

}  // namespace marvolin::kills

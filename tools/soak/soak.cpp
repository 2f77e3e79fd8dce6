#include "soak/soak.h"

#include <stdlib.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

#include "persistence/kept/last_state.h"
#include "soak/player.h"
#include "soak/samples.h"

namespace marvolin::soak {

namespace {

constexpr std::int64_t kMinute = 60'000;   // ms
constexpr std::int64_t kFirstPause = 150;  // ms between two gestures of the first minute, which fills what has a limit
constexpr std::int64_t kPause = 1500;      // ms between two gestures later
constexpr std::int64_t kMinutesOfOtherDevices = 5;  // at the beginning of each hour
constexpr std::int64_t kMinutesBetweenLines = 60;
constexpr double kMegabyte = 1 << 20;

struct Folder {
    std::string Path;
    Folder() : Path((std::filesystem::temp_directory_path() / "marvolin-soak-XXXXXX").string()) {
        if (::mkdtemp(Path.data()) == nullptr) throw std::runtime_error("no folder");
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(Path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
};

std::string Line(std::int64_t minute, const ProcessSize& size, const Measured& found) {
    std::array<char, 256> line{};
    std::snprintf(line.data(), line.size(),
                  "%3d:%02d  heap %6.2f MB  RSS %6.2f MB  PSS %6.2f MB  handles %2d  threads %d  late ticks %llu  "
                  "late calls %llu  "
                  "click off by %lld "
                  "frames  clock off by %.3f ms",
                  static_cast<int>(minute / 60), static_cast<int>(minute % 60),
                  static_cast<double>(size.InUse) / kMegabyte, static_cast<double>(size.Resident) / kMegabyte,
                  static_cast<double>(size.Own) / kMegabyte, size.Handles, size.Threads,
                  static_cast<unsigned long long>(found.LateTicks), static_cast<unsigned long long>(found.LateCalls),
                  static_cast<long long>(found.ClickError), found.ClockError);
    return line.data();
}

void TakeMost(ProcessSize& most, const ProcessSize& size) {
    most.InUse = std::max(most.InUse, size.InUse);
    most.Resident = std::max(most.Resident, size.Resident);
    most.Own = std::max(most.Own, size.Own);
    most.Handles = std::max(most.Handles, size.Handles);
    most.Threads = std::max(most.Threads, size.Threads);
}

void Judge(SoakResult& result) {
    const auto fault = [&](bool isThere, const std::string& words) {
        if (isThere) result.Faults.push_back(words);
    };
    const Measured& found = result.Found;
    fault(result.Most.InUse - result.First.InUse > SoakLimits::kGrowth, "the heap has grown");
    fault(result.Most.Resident - result.First.Resident > SoakLimits::kResidentGrowth, "memory has grown");
    fault(result.Most.Handles > result.First.Handles, "open files have become more");
    fault(result.Most.Threads > result.First.Threads, "threads have become more");
    fault(found.LateTicks > 0, "steps were late");
    fault(found.LateCalls > 0, "calls of the sound service were late");
    fault(found.OtherFaults > 0, "calls of the sound service found no room or were refused");
    fault(found.MissingClicks > 0, "steps were not heard");
    fault(found.ClickError > 0, "steps were not at their place");
    fault(found.Ticks == 0 || found.ClockError >= SoakLimits::kClockError, "the clock was wrong");
    fault(found.MissedFrames > 0, "recordings have gaps");
    for (const std::string& box : found.Boxes) fault(true, "a box: " + box);
}

}  // namespace

SoakResult RunSoak(const SoakOptions& options) {
    const Folder folder;
    const std::vector<std::string> samples = WriteSamples(folder.Path);
    const std::string click = WriteClick(folder.Path);
    SoakResult result;
    Evening evening(folder.Path, options.Seed);
    if (!evening.Started) throw std::runtime_error("the instrument does not start");
    Player player(evening, samples, options.Scripts, folder.Path + "/", options.Seed + 1);
    const auto look = [&](std::int64_t minute) {
        evening.Rest();
        evening.MeasureClicks(click);
        evening.Rest();
        player.TidyUp();
        evening.Pass(minute * kMinute - evening.Milliseconds());
        WaitForLastState(evening.s);  // whose thread may have begun meanwhile
        return SizeOfThisProcess();
    };
    const auto play = [&](std::int64_t until, std::int64_t pause) {
        for (; evening.Milliseconds() < until; evening.Pass(pause)) player.Act();
    };
    play(kMinute - 10'000, kFirstPause);
    result.First = look(1);
    if (options.Tell) options.Tell(Line(1, result.First, evening.Found));
    for (std::int64_t minute = 1;;) {
        const std::int64_t every = options.MinutesBetweenLooks;
        const std::int64_t next = std::min((minute / every + 1) * every, options.Minutes);
        player.ChangesDevice = minute % kMinutesBetweenLines < kMinutesOfOtherDevices;
        play(next * kMinute - 10'000, kPause);
        minute = next;
        if (options.AfterEachLook) options.AfterEachLook(evening, minute);
        const ProcessSize size = look(minute);
        TakeMost(result.Most, size);
        const bool ends = minute == options.Minutes || (options.Enough && options.Enough());
        if (options.Tell && (minute % kMinutesBetweenLines == 0 || ends))
            options.Tell(Line(minute, size, evening.Found));
        if (ends) break;
    }
    result.Gestures = player.Gestures();
    result.Minutes = evening.Milliseconds() / kMinute;
    result.Found = evening.Found;
    Judge(result);
    return result;
}

}  // namespace marvolin::soak

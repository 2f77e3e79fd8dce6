// Answers questions about captured sound in whole numbers, for scripts: times in ms from the start of the file, levels
// in hundredths of a decibel relative to full scale (silence is -10000).

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <thread>

#include "hearing.h"

namespace {

using namespace marvolin::stage;

constexpr const char* kUsage =
    "usage: listen now FILE                     length so far\n"
    "       listen level FILE FROM TO           level left and right\n"
    "       listen levels FILE FROM TO STEP     the louder side's level of each STEP ms, one per line\n"
    "       listen tones FILE FROM TO HZ...     the louder side's level of each pure tone\n"
    "       listen sounding FILE FROM TO        stretches with sound, one per line\n"
    "       listen onsets FILE FROM TO [APART]  times at which a sound starts, one per line\n"
    "       listen steps FILE FROM TO           distances between clicks: count, then mean, standard deviation,\n"
    "                                           shortest and longest in microseconds\n"
    "       listen until FILE MS TIMEOUT        waits until the file is that long\n"
    "       listen heard FILE FROM TIMEOUT      waits until a sound begins; the time then, since the epoch\n";

constexpr int kThreshold = -5000;  // quieter sound counts as silence
constexpr int kGap = 120;          // ms; a shorter silence is part of the sound
constexpr int kClick = 2000;       // of 32767; the start of a click is louder
constexpr std::int64_t kQuiet = 441;
constexpr int kRise = 600;
constexpr int kApart = 80;

std::size_t FrameOf(long ms) { return static_cast<std::size_t>(std::max(0L, ms)) * 441 / 10; }

/// The part of the file from..to ms.
Captured Part(const char* file, long from, long to) {
    Captured sound = ReadCaptured(file, FrameOf(from));
    const std::size_t frames = std::min(sound.Frames(), FrameOf(to) - std::min(FrameOf(to), FrameOf(from)));
    sound.left.resize(frames);
    sound.right.resize(frames);
    return sound;
}

long LengthMs(const char* file) {
    std::error_code none;
    const auto size = std::filesystem::file_size(file, none);
    return none || size < 44 ? 0 : static_cast<long>((size - 44) / 4 * 10 / 441);
}

bool Until(const char* file, long ms, long timeout) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout);
    while (LengthMs(file) < ms) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

/// Waits until a sound begins, at least 20 ms behind `from`: what is before may be the rest of another. The
/// milliseconds since the epoch then; none when it takes longer than `timeout`. Looks each 5 ms, in one process, so
/// that what it waits for is hardly slower for it.
std::optional<std::int64_t> Heard(const char* file, long from, long timeout) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout);
    while (std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        const auto stretches = Sounding(Part(file, from, LengthMs(file)), kThreshold, kGap);
        const auto begins = [](const Stretch& stretch) { return stretch.from >= 20; };
        if (std::none_of(stretches.begin(), stretches.end(), begins)) continue;
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    const std::string task = argc > 2 ? argv[1] : "";
    const auto number = [&](int i) { return i < argc ? std::atol(argv[i]) : 0L; };
    if (task == "now" && argc == 3) {
        std::printf("%ld\n", LengthMs(argv[2]));
        return 0;
    }
    if (task == "until" && argc == 5) return Until(argv[2], number(3), number(4)) ? 0 : 1;
    if (task == "heard" && argc == 5) {
        const auto heard = Heard(argv[2], number(3), number(4));
        if (heard) std::printf("%lld\n", static_cast<long long>(*heard));
        return heard ? 0 : 1;
    }
    if (argc < 5) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    const long from = number(3);
    const Captured sound = Part(argv[2], from, number(4));
    if (task == "level" && argc == 5) {
        std::printf("%d %d\n", Level(sound.left, 0, sound.Frames()), Level(sound.right, 0, sound.Frames()));
    } else if (task == "levels" && argc == 6 && number(5) > 0) {
        const std::size_t step = FrameOf(number(5));
        for (std::size_t at = 0; at + step <= sound.Frames(); at += step) {
            std::printf("%d\n", std::max(Level(sound.left, at, at + step), Level(sound.right, at, at + step)));
        }
    } else if (task == "tones" && argc > 5) {
        for (int i = 5; i < argc; ++i) {
            const double hz = static_cast<double>(number(i));
            std::printf(
                "%d%c",
                std::max(ToneLevel(sound.left, 0, sound.Frames(), hz), ToneLevel(sound.right, 0, sound.Frames(), hz)),
                i + 1 < argc ? ' ' : '\n');
        }
    } else if (task == "sounding" && argc == 5) {
        for (const Stretch& s : Sounding(sound, kThreshold, kGap)) {
            std::printf("%ld %ld\n", static_cast<long>(s.from) + from, static_cast<long>(s.to) + from);
        }
    } else if (task == "onsets" && argc <= 6) {
        const int apart = argc == 6 ? static_cast<int>(number(5)) : kApart;
        for (const std::int64_t at : Onsets(sound, kThreshold, kRise, apart))
            std::printf("%ld\n", static_cast<long>(at) + from);
    } else if (task == "steps" && argc == 5) {
        const Distances found = DistancesOf(Clicks(sound, kClick, kQuiet));
        for (const std::int64_t figure : {found.Count, found.Mean, found.Deviation, found.Shortest, found.Longest})
            std::printf("%lld ", static_cast<long long>(figure));
        std::printf("\n");
    } else {
        std::fputs(kUsage, stderr);
        return 2;
    }
    return 0;
}

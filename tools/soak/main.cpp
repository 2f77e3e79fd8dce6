// A simulated evening, as fast as it goes: soak [--hours H] [--minutes M] [--seconds S] [--seed N]
// It ends after S seconds of the real time, if it has not ended by then.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "soak/soak.h"

namespace {

using namespace marvolin::soak;

int Usage() {
    std::fprintf(stderr, "usage: soak [--hours H] [--minutes M] [--seconds S] [--seed N]\n");
    return 2;
}

/// The scripts that come with the program, in the order of their names.
std::vector<std::string> ShippedScripts() {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(MARVOLIN_SCRIPTS)) paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> texts;
    for (const auto& path : paths) {
        std::ifstream file(path, std::ios::binary);
        texts.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return texts;
}

int Report(const SoakResult& result, double seconds) {
    const Measured& found = result.Found;
    std::printf("%lld simulated minutes in %.0f s: %llu gestures, %llu ticks, %llu steps measured, %llu recordings\n",
                static_cast<long long>(result.Minutes), seconds, static_cast<unsigned long long>(result.Gestures),
                static_cast<unsigned long long>(found.Ticks), static_cast<unsigned long long>(found.Clicks),
                static_cast<unsigned long long>(found.Recordings));
    std::printf("since the first minute: heap %+.1f KB, RSS %+.1f KB, handles %+d, threads %+d\n",
                static_cast<double>(result.Most.InUse - result.First.InUse) / 1024,
                static_cast<double>(result.Most.Resident - result.First.Resident) / 1024,
                result.Most.Handles - result.First.Handles, result.Most.Threads - result.First.Threads);
    std::printf(
        "late ticks %llu, late calls %llu (longest %lld frames), steps off by %lld frames at most, clock off by %.3f "
        "ms at most\n",
        static_cast<unsigned long long>(found.LateTicks), static_cast<unsigned long long>(found.LateCalls),
        static_cast<long long>(found.LongestLate), static_cast<long long>(found.ClickError), found.ClockError);
    std::printf("%d devices, a change moved the clock by %.3f ms at most\n", found.Devices, found.DeviceShift);
    for (const std::string& fault : result.Faults) std::printf("FAULT: %s\n", fault.c_str());
    return result.Faults.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const auto begin = std::chrono::steady_clock::now();
    SoakOptions options;
    for (int i = 1; i < argc; i += 2) {
        const std::string_view name = argv[i];
        if (i + 1 == argc) return Usage();
        const double value = std::atof(argv[i + 1]);
        if (name == "--hours") {
            options.Minutes = static_cast<std::int64_t>(value * 60);
        } else if (name == "--minutes") {
            options.Minutes = static_cast<std::int64_t>(value);
        } else if (name == "--seconds") {
            options.Enough = [end = begin + std::chrono::duration<double>(value)] {
                return std::chrono::steady_clock::now() >= end;
            };
        } else if (name == "--seed") {
            options.Seed = static_cast<unsigned>(value);
        } else {
            return Usage();
        }
    }
    if (options.Minutes < 2) return Usage();
    options.Scripts = ShippedScripts();
    options.Tell = [](const std::string& line) {
        std::puts(line.c_str());
        std::fflush(stdout);
    };
    try {
        const SoakResult result = RunSoak(options);
        return Report(result, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "soak: %s\n", error.what());
        return 2;
    }
}

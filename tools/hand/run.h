#pragma once
/// \file
/// Runs of the hand: an instrument just started, and a number of gestures that a seed decides.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "world.h"

namespace marvolin::hand {

inline constexpr int kGesturesARun = 2000;

/// Something that does not hold.
struct Finding {
    std::uint64_t Seed = 0;
    int Gesture = 0;    ///< its number in the run, from 1; that of the last one for the end of the instrument
    std::string What;   ///< what does not hold
    std::string Words;  ///< the last gestures, a line each
};

struct RunOptions {
    std::uint64_t Seed = 1;
    int Gestures = kGesturesARun;
    bool CheckAll = false;  ///< what is dear is checked after each gesture, too
    bool Print = false;     ///< each gesture is printed
    bool Paint = false;     ///< the windows are painted
    /// Runs before each gesture, with its number and its name, and after it, with all its words.
    std::function<void(int gesture, const std::string& words)> OnGesture = {};
    /// Makes the instrument wrong, for the tests of the checks: runs after the gesture of this number.
    int SpoilAfter = 0;
    std::function<void(World&)> Spoil = {};
};

struct RunResult {
    int Gestures = 0;          ///< made
    std::int64_t Checks = 0;   ///< checks made
    std::int64_t Answers = 0;  ///< boxes, dialogues and drags that were answered
    bool Early = false;        ///< a gesture has closed the main window before the last one
    std::optional<Finding> Found;
};

/// Runs one seed in the application's event loop, which it starts and ends.
RunResult PlayRun(const RunOptions& options);

}  // namespace marvolin::hand

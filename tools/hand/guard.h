#pragma once
/// \file
/// Runs in a process of their own, so that a crash, an end or a stop of it is a finding with its seed, too.

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "run.h"

namespace marvolin::hand {

/// What the two processes share. Plain memory: it outlives the one that writes it.
struct Notes {
    static constexpr std::size_t kLines = 12;
    static constexpr std::size_t kLine = 200;

    std::uint64_t FirstSeed = 1;
    std::uint64_t Seed = 1;  ///< of the run under way, or of the next one
    std::int64_t Runs = 0;   ///< that have ended
    std::int64_t Early = 0;  ///< of them, that ended before their last gesture, as the main window was closed
    std::int64_t Gestures = 0;
    std::int64_t Checks = 0;
    std::int64_t Answers = 0;
    std::int64_t Begun = 0;  ///< gestures, over all runs: a sign of life
    int Gesture = 0;         ///< of the run under way
    std::chrono::steady_clock::time_point Start;
    std::array<std::array<char, kLine>, kLines> Last{};  ///< the last gestures in words, in a ring
    bool Found = false;
    std::array<char, 8192> Finding{};

    double Seconds() const;
    /// Whether the hand has made what it was to make, or has found something. 0 stands for no limit.
    bool Over(std::int64_t gestures, double minutes) const;
    int GesturesOfNextRun(std::int64_t gestures) const;
    /// A gesture begins, or has been made: its words so far.
    void Say(int gesture, const std::string& words);
    void EndRun(const RunResult& result);
    void Find(std::uint64_t seed, int gesture, const std::string& what, const std::string& words);
    /// The last gestures, a line each.
    std::string LastWords() const;
};

/// Notes in memory that a child process shares.
class SharedNotes {
public:
    explicit SharedNotes(std::uint64_t seed);
    ~SharedNotes();
    SharedNotes(const SharedNotes&) = delete;
    SharedNotes& operator=(const SharedNotes&) = delete;
    Notes* operator->() const { return notes_; }
    Notes& operator*() const { return *notes_; }

    /// Runs `work` in a child process and waits for its end. A child that dies, ends itself or stands still is a
    /// finding of the gesture that it had begun. False when something was found.
    bool InChild(const std::function<void()>& work);
    /// Prints what there was; returns the exit status of the program.
    int Report() const;

private:
    void FindEnd(const std::string& what);
    Notes* notes_;
};

}  // namespace marvolin::hand

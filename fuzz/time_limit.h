#pragma once
/// \file
/// A limit to the processor's time that an input of a fuzz target may take.

#include <sys/time.h>

#include <csignal>
#include <cstdlib>

namespace marvolin::fuzz {

/// Aborts when it lives for longer than a number of seconds of the processor. One at a time.
class TimeLimit {
public:
    explicit TimeLimit(int seconds) {
        std::signal(SIGPROF, StandsStill);
        Set(seconds);
    }
    ~TimeLimit() { Set(0); }
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;

private:
    [[noreturn]] static void StandsStill(int) { std::abort(); }
    static void Set(int seconds) {
        itimerval timer{};
        timer.it_value.tv_sec = seconds;
        ::setitimer(ITIMER_PROF, &timer, nullptr);
    }
};

}  // namespace marvolin::fuzz

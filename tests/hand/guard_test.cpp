// Runs in a process of their own: what becomes of it is a finding, with the seed and the gesture.

#include "guard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

namespace marvolin::hand {
namespace {

using testing::HasSubstr;

TEST(GuardedRuns, AProgramThatDiesIsAFindingOfTheGestureThatItHadBegun) {
    SharedNotes notes(7);
    EXPECT_FALSE(notes.InChild([&] {
        notes->Say(2, "wheel: over Play_0");
        notes->Say(3, "click");
        ::raise(SIGKILL);
    }));
    const std::string found = notes->Finding.data();
    EXPECT_THAT(found, HasSubstr("seed 7, gesture 3: the program died of signal 9"));
    EXPECT_THAT(found, HasSubstr("  2 wheel: over Play_0\n  3 click\n"));
    EXPECT_THAT(found, HasSubstr("hand --seed 7 --gestures 3"));
    EXPECT_EQ(notes.Report(), 1);
}

TEST(GuardedRuns, AProgramThatEndsItselfIsAFinding) {
    for (const int status : {0, 1}) {
        SharedNotes notes(1);
        EXPECT_FALSE(notes.InChild([&] {
            notes->Say(9, "key");
            ::_exit(status);
        }));
        EXPECT_THAT(std::string(notes->Finding.data()),
                    HasSubstr("gesture 9: the program ended with status " + std::to_string(status)));
    }
}

TEST(GuardedRuns, WhatHasNoFindingCountsAndLeavesThePlaceOfTheNextSeed) {
    SharedNotes notes(1);
    EXPECT_TRUE(notes.InChild([&] {
        notes->EndRun({.Gestures = 2000, .Checks = 9000, .Answers = 3, .Early = false, .Found = {}});
        notes->EndRun({.Gestures = 500, .Checks = 100, .Answers = 0, .Early = true, .Found = {}});
    }));
    EXPECT_EQ(notes->Seed, 3U);
    EXPECT_EQ(notes->Early, 1);
    EXPECT_EQ(notes->Gestures, 2500);
    EXPECT_TRUE(notes->Over(2500, 0));
    EXPECT_FALSE(notes->Over(2501, 0));
    EXPECT_EQ(notes->GesturesOfNextRun(2600), 100);
    EXPECT_EQ(notes->GesturesOfNextRun(0), kGesturesARun);
    EXPECT_EQ(notes.Report(), 0);
}

}  // namespace
}  // namespace marvolin::hand

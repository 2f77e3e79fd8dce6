/// The calls on their way: ring, frames, order.

#include <algorithm>
#include <thread>

#include "audio/openal/call_applier.h"
#include "audio/openal/call_sender.h"
#include "audio/openal/schedule.h"
#include "audio/openal/source_gate.h"

namespace marvolin::test {
namespace {

Call At(std::int64_t frame, CallKind kind, std::int32_t number = 0) {
    Call call;
    call.Frame = frame;
    call.Kind = kind;
    call.Number = number;
    return call;
}
Call Start(std::int64_t frame, std::int32_t number = 0) { return At(frame, CallKind::Play, number); }
Call Change(std::int64_t frame, std::int32_t number = 0) { return At(frame, CallKind::Gains, number); }

/// The numbers of the calls that are due, in order.
std::vector<int> Due(Schedule& schedule, std::int64_t position) {
    std::vector<int> numbers;
    while (const Call* call = schedule.Due_rt(position)) {
        numbers.push_back(call->Number);
        schedule.Drop_rt();
    }
    return numbers;
}

using Numbers = std::vector<int>;

TEST(CallSchedule, CallsComeInTheOrderOfTheirFramesAndThoseOfOneFrameAsTheyWereAdded) {
    Schedule schedule(64);
    schedule.Add_rt(Start(300, 5));
    for (int i = 0; i < 4; ++i) schedule.Add_rt(i % 2 == 0 ? Change(200, i) : Start(200, i));
    schedule.Add_rt(Change(100, 9));
    EXPECT_EQ(Due(schedule, 99), Numbers());
    EXPECT_EQ(Due(schedule, 250), (Numbers{9, 0, 1, 2, 3}));
    EXPECT_EQ(Due(schedule, 300), (Numbers{5}));
}

TEST(CallSchedule, AStartEndsAPieceAtItsFrame) {
    Schedule schedule(64);
    EXPECT_EQ(schedule.Piece_rt(1000, 128), 128);
    EXPECT_EQ(schedule.Piece_rt(1000, 2048), kLongestPiece);
    schedule.Add_rt(Start(1005));
    EXPECT_EQ(schedule.Piece_rt(1000, 128), 5);
    EXPECT_EQ(schedule.Piece_rt(1000, 3), 3);
}

TEST(CallSchedule, AStartThatIsDueAndIsNotTakenWaitsForAShortPiece) {
    Schedule schedule(64);
    schedule.Add_rt(Start(1000));
    EXPECT_EQ(schedule.Piece_rt(1000, 128), kShortestPiece);
    EXPECT_EQ(schedule.Piece_rt(1010, 128), kShortestPiece);
    EXPECT_EQ(schedule.Piece_rt(1010, 3), 3);
}

TEST(CallSchedule, SoManyCallsAreAppliedBeforeEachPieceHoweverManyAreDue) {
    constexpr int kCalls = 1000;
    constexpr int kMost = CallApplier::kMostCalls;
    CallRing ring(1024);
    CallApplier applier(ring, 4);
    applier.Rendered_rt(kCalls);
    // All of them are late, so that they are counted.
    for (int i = 0; i < kCalls; ++i) ring.Write(At(i % 100, CallKind::Rolloff));
    ring.Publish();
    for (int applied = kMost; applied < kCalls + kMost; applied += kMost) {
        EXPECT_EQ(applier.Prepare_rt(128), applied < kCalls ? kShortestPiece : 128);
        CallCounts counts;
        applier.Count(counts);
        EXPECT_EQ(counts.Late, static_cast<std::uint64_t>(std::min(applied, kCalls)));
    }
}

TEST(CallSchedule, AChangeLeavesNoPieceShorterThanTheShortest) {
    for (int frame = 1; frame < 200; ++frame) {
        for (const int start : {40, 70, 90, 127, 500}) {
            Schedule schedule(64);
            schedule.Add_rt(Change(frame, 1));
            schedule.Add_rt(Start(start, 2));
            int heard = -1;
            for (int position = 0, left = 128; left > 0;) {
                const Numbers due = Due(schedule, position);
                if (std::count(due.begin(), due.end(), 1) > 0) heard = position;
                const int piece = schedule.Piece_rt(position, left);
                const bool starts = position + piece == start;
                EXPECT_TRUE(piece >= kShortestPiece || starts || position == start)
                    << "change at " << frame << ", start at " << start << ", piece " << position << " + " << piece;
                position += piece;
                left -= piece;
            }
            EXPECT_TRUE(heard < 0 || heard - frame < 2 * kShortestPiece) << frame;
        }
    }
}

TEST(CallSchedule, WhatIsDueWithAStartIsHeardWithItThoughAnotherStartFollowsSoon) {
    Schedule schedule(64);
    schedule.Add_rt(Start(100, 1));
    schedule.Add_rt(Change(100, 2));
    schedule.Add_rt(Start(110, 3));
    schedule.Add_rt(Change(105, 4));
    EXPECT_EQ(Due(schedule, 100), (Numbers{1, 2}));
    EXPECT_EQ(schedule.Piece_rt(100, 128), 10);
    EXPECT_EQ(Due(schedule, 110), (Numbers{4, 3}));
}

TEST(CallSchedule, TheRingTakesAsManyCallsAsItHasRoomForAndShowsThemWhenPublished) {
    CallRing ring(8);
    Call call;
    for (int round = 0; round < 5; ++round) {
        for (int i = 0; i < 8; ++i) EXPECT_TRUE(ring.Write(Change(0, i)));
        EXPECT_FALSE(ring.Write(Change(0, 99)));
        EXPECT_EQ(ring.Held(), 8U);
        EXPECT_FALSE(ring.Read_rt(call));
        ring.Publish();
        for (int i = 0; i < 8; ++i) {
            ASSERT_TRUE(ring.Read_rt(call));
            EXPECT_EQ(call.Number, i);
        }
        EXPECT_FALSE(ring.Read_rt(call));
    }
}

TEST(CallSchedule, TheRingLosesNothingBetweenTwoThreadsAtFullSpeed) {
    constexpr int kCalls = 20000;
    CallRing ring(64);
    std::thread writer([&] {
        for (int i = 0; i < kCalls;) {
            if (ring.Write(Change(0, i)))
                ++i;
            else
                std::this_thread::yield();
            ring.Publish();
        }
    });
    Call call;
    for (int expected = 0; expected < kCalls;) {
        if (!ring.Read_rt(call)) {
            std::this_thread::yield();
            continue;
        }
        ASSERT_EQ(call.Number, expected);
        ++expected;
    }
    writer.join();
}

TEST(CallSchedule, WhatFindsTheRingFullFollowsInOrder) {
    CallRing ring(8);
    CallSender sender(ring);
    std::int64_t last = 0;
    for (int i = 0; i < 30; ++i) sender.Post(Start(0, i), Pace::Soon, last);
    EXPECT_EQ(sender.Overflowed(), 22U);
    Call call;
    for (int expected = 0; expected < 30; ++expected) {
        if (!ring.Read_rt(call)) {
            EXPECT_TRUE(sender.Full());
            sender.CatchUp();
            ASSERT_TRUE(ring.Read_rt(call));
        }
        EXPECT_EQ(call.Number, expected);
    }
    EXPECT_FALSE(sender.Full());
}

TEST(CallSchedule, AHeldGroupIsShownWhenItEndsOrFillsHalfOfTheRing) {
    CallRing ring(8);
    CallSender sender(ring);
    std::int64_t last = 0;
    Call call;
    sender.Hold();
    for (int i = 0; i < 3; ++i) sender.Post(Change(0, i), Pace::Soon, last);
    EXPECT_FALSE(ring.Read_rt(call));
    sender.LetGo();
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(ring.Read_rt(call));
    sender.Hold();
    for (int i = 0; i < 4; ++i) sender.Post(Change(0, i), Pace::Soon, last);
    EXPECT_TRUE(ring.Read_rt(call));
    sender.LetGo();
}

TEST(CallSchedule, TheThreadThatRendersDoesNotWaitAtTheGate) {
    SourceGate gate;
    gate.lock();
    bool held = true;
    std::thread([&] { held = gate.Try_rt(); }).join();
    EXPECT_FALSE(held);
    gate.unlock();
    EXPECT_TRUE(gate.Try_rt());
    gate.unlock();
}

}  // namespace
}  // namespace marvolin::test

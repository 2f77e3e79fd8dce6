/// What the hand and the space do on a card's clock.

#include <algorithm>
#include <array>

#include "audio/clocked_rig.h"

namespace marvolin::test {
namespace {

class SoundAdapterHand : public ClockedRig {
protected:
    static constexpr int kSoft = 2000;
    /// Until the line of the callbacks is known well, the clock keeps some milliseconds ahead.
    void Settle() { Play(5 * 44100); }
};

TEST_F(SoundAdapterHand, PlayOnASoundingBufferChangesOnlyTheLoopingAndDoesNotWaitForTheLead) {
    constexpr int kLength = 1000;
    for (const bool inGroup : {false, true}) {
        SCOPED_TRACE(inGroup);
        auto buffer = LoadRamp(kLength);
        buffer->Play(1);
        Play(4096);
        // So near to its end that it would begin again before the lead has passed.
        const auto left = [&] { return kLength - buffer->GetCurrentPosition() / 2; };
        while (left() < kPeriod || left() > Clock->Lead() - kPeriod / 2) Play(kPeriod);
        const int end = Rendered() + left();
        {
            std::optional<CallGroup> gesture;
            if (inGroup) gesture.emplace(*Clock);
            buffer->Play(0);
        }
        EXPECT_EQ(buffer->GetStatus(), 1);
        Play(2048);
        EXPECT_EQ(buffer->GetStatus(), 0);
        EXPECT_NEAR(LeftAt(end - 1), 10 * (kLength - 1), kStep) << "it does not sound to its end";
        for (int i = end; i < Rendered(); ++i) ASSERT_NEAR(LeftAt(i), 0, kStep) << i - end;
    }
}

TEST_F(SoundAdapterHand, PlayOnABufferWhoseStartIsStillToComeFollowsIt) {
    auto buffer = LoadRamp(3000);
    const int begin = Rendered();
    buffer->Play(1);
    buffer->Play(0);
    Play(8192);
    const int onset = Onset(begin, 100);
    ASSERT_GT(onset, begin);
    const int start = onset - 11;
    for (int i = 0; i < 3000; ++i) ASSERT_NEAR(LeftAt(start + i), 10 * i, kStep) << i;
    for (int i = start + 3000; i < Rendered(); ++i) ASSERT_NEAR(LeftAt(i), 0, kStep) << "it looped";
    EXPECT_EQ(Counts().Late, 0U);
}

TEST_F(SoundAdapterHand, AJumpByHandIsHeardAfterTheLeadAlways) {
    std::vector<std::int32_t> numbers(44100, kLevel);
    std::fill_n(numbers.begin(), 10000, kSoft);
    auto buffer = Load(numbers, 1);
    buffer->Play(1);
    Settle();
    int least = 1 << 20;
    int most = 0;
    for (int part = 0; part < kPeriod; part += 3) {
        buffer->SetCurrentPosition(2 * 15000);
        Play(1024);
        ASSERT_NEAR(LeftAt(Rendered() - 1), kLevel, kStep);
        Callback(kPeriod);
        const int begin = Rendered();
        Time.PassFrames(part);
        buffer->SetCurrentPosition(0);
        EXPECT_EQ(buffer->GetCurrentPosition(), 0);
        Time.PassFrames(kPeriod - part);
        Play(1024);
        int jump = begin;
        while (jump < Rendered() && LeftAt(jump) > kLevel / 2) ++jump;
        const int delay = jump - (begin - kPeriod + part);
        least = std::min(least, delay);
        most = std::max(most, delay);
    }
    EXPECT_LE(most - least, 1) << "the instant is a whole frame";
    EXPECT_NEAR(least, Clock->Lead(), 16) << "the clock keeps a little ahead of the callbacks";
    EXPECT_EQ(Counts().Late, 0U);
}

class SoundAdapterSpaceOnAClock : public SoundAdapterHand {
protected:
    SoundAdapterSpaceOnAClock()
        : primary_(device_->CreateSoundBuffer(17)), listener_(primary_->GetDirectSound3dListener()) {
        buffer_ = Load(std::vector<std::int32_t>(4410, kLevel), 1, buffer_flags::kSample3D);
        place_ = buffer_->GetDirectSound3dBuffer();
        place_->SetMinDistance(1);
        place_->SetMaxDistance(4);
        place_->SetPosition({-1, 0, 0});
        buffer_->Play(1);
        Play(8192);
    }
    int RightAt(int frame) const { return All.Right[static_cast<std::size_t>(frame)]; }
    void ExpectAt(int frame, double left, double right) const {
        EXPECT_NEAR(LeftAt(frame), left, 0.02 * kLevel) << frame;
        EXPECT_NEAR(RightAt(frame), right, 0.02 * kLevel) << frame;
    }
    std::unique_ptr<DirectSoundBuffer> primary_;
    std::unique_ptr<DirectSound3DListener> listener_;
    std::unique_ptr<DirectSoundBuffer> buffer_;
    std::unique_ptr<DirectSound3DBuffer> place_;
};

TEST_F(SoundAdapterSpaceOnAClock, PlacesRollOffAndListenerByHandAreHeardWithTheNextCallback) {
    ExpectAt(Rendered() - 1, kLevel, 0);
    place_->SetPosition({1, 0, 0});
    Play(kPeriod);
    ExpectAt(Rendered() - 1, 0, kLevel);
    place_->SetPosition({4, 0, 0});
    Play(kPeriod);
    ExpectAt(Rendered() - 1, 0, kLevel / 4.0);
    listener_->SetRolloffFactor(0);
    Play(kPeriod);
    ExpectAt(Rendered() - 1, 0, kLevel);
    listener_->SetPosition({8, 0, 0});
    Play(kPeriod);
    ExpectAt(Rendered() - 1, kLevel, 0);
    listener_->SetOrientation({0, 0, -1}, {0, 1, 0});
    Play(kPeriod);
    ExpectAt(Rendered() - 1, 0, kLevel);
}

TEST_F(SoundAdapterSpaceOnAClock, PlacesRollOffAndListenerOfATickAreHeardAtItsFrame) {
    struct Change {
        std::function<void()> Make;
        double Left;
        double Right;
    };
    const std::array<Change, 4> changes{{{[&] {
                                              place_->SetPosition({4, 0, 0});
                                          },
                                          0, kLevel / 4.0},
                                         {[&] { listener_->SetRolloffFactor(0); }, 0, kLevel},
                                         {[&] {
                                              listener_->SetPosition({8, 0, 0});
                                          },
                                          kLevel, 0},
                                         {[&] {
                                              listener_->SetOrientation({0, 0, -1}, {0, 1, 0});
                                          },
                                          0, kLevel}}};
    double left = kLevel;
    double right = 0;
    for (const Change& change : changes) {
        const int frame = Rendered() + 900;
        {
            const CallGroup tick(*Clock, InstantFor(frame));
            change.Make();
        }
        Play(2048);
        ExpectAt(frame - 1, left, right);
        // Put off by less than two of the shortest pieces, and spread over the piece that follows.
        ExpectAt(frame + 64 + kPeriod, change.Left, change.Right);
        left = change.Left;
        right = change.Right;
    }
    EXPECT_EQ(Counts().Late, 0U);
}

TEST_F(SoundAdapterSpaceOnAClock, ARestartAndItsPlaceAreHeardAsOne) {
    const int frame = Rendered() + 1000;
    {
        const CallGroup tick(*Clock, InstantFor(frame));
        buffer_->SetCurrentPosition(0);
        place_->SetPosition({2, 0, 0});
        listener_->SetRolloffFactor(0);
    }
    Play(2048);
    ExpectAt(frame - 1, kLevel, 0);
    EXPECT_GT(RightAt(frame), 0.9 * kLevel) << "the attack is at the old place";
    EXPECT_LT(LeftAt(frame), 0.1 * kLevel);
    ExpectAt(frame + 24, 0, kLevel);
}

}  // namespace
}  // namespace marvolin::test

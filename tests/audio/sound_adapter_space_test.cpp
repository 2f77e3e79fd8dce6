/// Sounds in space, as heard.

#include <algorithm>
#include <limits>
#include <numeric>

#include "audio/loopback_rig.h"

namespace marvolin::test {
namespace {

constexpr int kLevel = 8000;

class SoundAdapterSpace : public LoopbackRig {
protected:
    SoundAdapterSpace() : primary_(device_->CreateSoundBuffer(17)), listener_(primary_->GetDirectSound3dListener()) {
        buffer_ = Load(std::vector<std::int32_t>(4410, kLevel), 1, buffer_flags::kSample3D);
        place_ = buffer_->GetDirectSound3dBuffer();
        place_->SetMinDistance(1);
        place_->SetMaxDistance(4);
        buffer_->Play(1);
    }
    /// Mean level of both sides once the sound has settled at its place.
    std::pair<double, double> Levels() {
        Render(2048);
        const Heard heard = Render(1024);
        auto mean = [](const std::vector<int>& side) {
            return std::accumulate(side.begin(), side.end(), 0.0) / static_cast<double>(side.size());
        };
        return {mean(heard.Left), mean(heard.Right)};
    }
    double LeftAt(float x, float z) {
        place_->SetPosition({x, 0, z});
        return Levels().first;
    }

    std::unique_ptr<DirectSoundBuffer> primary_;
    std::unique_ptr<DirectSound3DListener> listener_;
    std::unique_ptr<DirectSoundBuffer> buffer_;
    std::unique_ptr<DirectSound3DBuffer> place_;
};

TEST_F(SoundAdapterSpace, ASoundAtTheLeftIsHeardAtTheLeft) {
    place_->SetPosition({-1, 0, 0});
    auto [left, right] = Levels();
    EXPECT_NEAR(left, kLevel, 20);
    EXPECT_NEAR(right, 0, 20);
    place_->SetPosition({1, 0, 0});
    std::tie(left, right) = Levels();
    EXPECT_NEAR(left, 0, 20);
    EXPECT_NEAR(right, kLevel, 20);
    EXPECT_EQ(place_->GetPosition(), (Vector3{1, 0, 0}));
}

TEST_F(SoundAdapterSpace, ASoundAheadBehindOrAtTheListenerIsHeardInTheMiddle) {
    for (const Vector3& place : {Vector3{0, 0, 1}, Vector3{0, 0, -1}, Vector3{0, 0, 0}}) {
        SCOPED_TRACE(place.Z);
        place_->SetPosition(place);
        const auto [left, right] = Levels();
        EXPECT_GT(left, kLevel / 4);
        EXPECT_NEAR(left, right, 4);
    }
}

TEST_F(SoundAdapterSpace, DistanceSoftensInverselyBetweenTheNearAndTheFarLimit) {
    const double full = LeftAt(-1, 0);
    EXPECT_NEAR(LeftAt(-0.25F, 0), full, 10);
    EXPECT_NEAR(LeftAt(-2, 0), full / 2, 10);
    EXPECT_NEAR(LeftAt(-3, 0), full / 3, 10);
    EXPECT_NEAR(LeftAt(-4, 0), full / 4, 10);
    EXPECT_NEAR(LeftAt(-40, 0), full / 4, 10);
    place_->SetMinDistance(2);
    EXPECT_NEAR(LeftAt(-4, 0), full / 2, 10);
    place_->SetMaxDistance(8);
    EXPECT_NEAR(LeftAt(-40, 0), full / 4, 10);
}

TEST_F(SoundAdapterSpace, TheRollOffReachesPresentAndLaterSounds) {
    const double full = LeftAt(-1, 0);
    listener_->SetRolloffFactor(0);
    EXPECT_NEAR(LeftAt(-3, 0), full, 10);
    listener_->SetRolloffFactor(2);
    EXPECT_NEAR(LeftAt(-3, 0), full / 5, 10);
    buffer_->Stop();
    auto later = device_->DuplicateSoundBuffer(*buffer_);
    later->Play(1);
    EXPECT_NEAR(Levels().first, full / 5, 10);
    listener_->SetRolloffFactor(10);
    EXPECT_NEAR(Levels().first, full / 21, 10);
    EXPECT_EQ(NumberOf([&] { listener_->SetRolloffFactor(-0.1F); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { listener_->SetRolloffFactor(10.1F); }), sound_error::kInvalidArgument);
}

TEST_F(SoundAdapterSpace, TheListenerMovesAndTurns) {
    place_->SetPosition({0, 0, 0});
    listener_->SetPosition({1, 0, 0});
    EXPECT_NEAR(Levels().first, kLevel, 20);
    listener_->SetPosition({-1, 0, 0});
    EXPECT_NEAR(Levels().second, kLevel, 20);
    // For a listener turned to the right, the right is ahead, and what was ahead is on the left.
    listener_->SetPosition({0, 0, 0});
    listener_->SetOrientation({1, 0, 0}, {0, 1, 0});
    place_->SetPosition({0, 0, 1});
    auto [left, right] = Levels();
    EXPECT_NEAR(left, kLevel, 20);
    EXPECT_NEAR(right, 0, 20);
    // For a listener turned round, left and right are exchanged.
    listener_->SetOrientation({0, 0, -1}, {0, 1, 0});
    place_->SetPosition({1, 0, 0});
    std::tie(left, right) = Levels();
    EXPECT_NEAR(left, kLevel, 20);
    EXPECT_NEAR(right, 0, 20);
}

TEST_F(SoundAdapterSpace, PlacesThatAreNoNumbersAreInvalidArguments) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinite = std::numeric_limits<float>::infinity();
    const auto invalid = sound_error::kInvalidArgument;
    EXPECT_EQ(NumberOf([&] { place_->SetPosition({nan, 0, 0}); }), invalid);
    EXPECT_EQ(NumberOf([&] { place_->SetMinDistance(0); }), invalid);
    EXPECT_EQ(NumberOf([&] { place_->SetMaxDistance(infinite); }), invalid);
    EXPECT_EQ(NumberOf([&] { listener_->SetPosition({0, infinite, 0}); }), invalid);
    EXPECT_EQ(NumberOf([&] { listener_->SetOrientation({0, 0, 0}, {0, 1, 0}); }), invalid);
    EXPECT_EQ(NumberOf([&] { listener_->SetOrientation({0, 0, 1}, {0, nan, 0}); }), invalid);
    EXPECT_EQ(NumberOf([&] { listener_->SetRolloffFactor(nan); }), invalid);
}

TEST_F(SoundAdapterSpace, AStereoSampleIsMixedForItsPlace) {
    buffer_->Stop();
    for (const int bits : {8, 16, 24, 32}) {
        SCOPED_TRACE(bits);
        const auto unit = static_cast<std::int32_t>(std::int64_t{1} << (bits - 8));
        Wave wave;
        wave.Bits = bits;
        std::vector<std::int32_t> numbers;
        for (int i = 0; i < 4410; ++i) numbers.insert(numbers.end(), {60 * unit, 21 * unit});
        wave.Data = Pcm(numbers, bits);
        auto stereo = Load(wave, buffer_flags::kSample3D);
        stereo->GetDirectSound3dBuffer()->SetPosition({-1, 0, 0});
        stereo->Play(1);
        const auto [left, right] = Levels();
        EXPECT_NEAR(left, 40.5 * 256, 20);
        EXPECT_NEAR(right, 0, 20);
    }
}

TEST_F(SoundAdapterSpace, VolumeAndFrequencyWorkInSpaceToo) {
    place_->SetPosition({-1, 0, 0});
    buffer_->SetVolume(-602);
    EXPECT_NEAR(Levels().first, kLevel * std::pow(10.0, -0.301), 10);
    buffer_->SetFrequency(88200);
    EXPECT_EQ(buffer_->GetFrequency(), 88200);
    EXPECT_EQ(buffer_->GetStatus(), 5);
}

TEST_F(SoundAdapterSpace, AWriteIsHeardInSpaceAtOnce) {
    place_->SetPosition({-1, 0, 0});
    Render(512);
    buffer_->WriteBuffer(0, Pcm(std::vector<std::int32_t>(4410, -4000), 16));
    EXPECT_EQ(buffer_->GetStatus(), 5);
    EXPECT_NEAR(Levels().first, -4000, 20);
}

TEST_F(SoundAdapterSpace, ADuplicateStartsAtThePlaceOfItsSource) {
    place_->SetPosition({1, 0, 0});
    buffer_->Stop();
    auto duplicate = device_->DuplicateSoundBuffer(*buffer_);
    auto its = duplicate->GetDirectSound3dBuffer();
    EXPECT_EQ(its->GetPosition(), (Vector3{1, 0, 0}));
    its->SetPosition({-1, 0, 0});
    EXPECT_EQ(place_->GetPosition(), (Vector3{1, 0, 0}));
    duplicate->Play(1);
    EXPECT_NEAR(Levels().first, kLevel, 20);
}

TEST_F(SoundAdapterSpace, TheSpatialSideOfAReleasedBufferIsUninitialised) {
    buffer_.reset();
    EXPECT_EQ(NumberOf([&] { place_->SetPosition({0, 0, 0}); }), sound_error::kUninitialised);
    EXPECT_EQ(NumberOf([&] { place_->SetMinDistance(1); }), sound_error::kUninitialised);
    listener_->SetRolloffFactor(2);
    ExpectSilence(Render(256));
}

TEST_F(SoundAdapterSpace, ASampleWithoutSpaceIsUntouchedByTheListener) {
    buffer_->Stop();
    auto flat = LoadLevels(9000, 5000);
    listener_->SetPosition({3, 0, 2});
    listener_->SetOrientation({1, 0, 0}, {0, 1, 0});
    listener_->SetRolloffFactor(5);
    flat->Play(1);
    const auto [left, right] = Levels();
    EXPECT_NEAR(left, 9000, kStep);
    EXPECT_NEAR(right, 5000, kStep);
}

}  // namespace
}  // namespace marvolin::test

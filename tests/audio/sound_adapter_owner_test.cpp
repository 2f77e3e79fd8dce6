/// The thread to which the service belongs.

#include <functional>
#include <thread>

#include "audio/loopback_rig.h"

namespace marvolin::test {
namespace {

class SoundAdapterOwnerDeathTest : public LoopbackRig {
protected:
    // Starts a new process instead of forking: OpenAL has a thread of its own, which a fork would lose.
    SoundAdapterOwnerDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

/// Runs `call` on another thread and waits for its end. Errors are ignored.
void OnAnotherThread(const std::function<void()>& call) {
    std::thread([&] { NumberOf(call); }).join();
}

TEST_F(SoundAdapterOwnerDeathTest, ADebugBuildStopsWhenAnotherThreadCalls) {
    auto drivers = root_->GetDSEnum();
    auto primary = device_->CreateSoundBuffer(17);
    auto listener = primary->GetDirectSound3dListener();
    auto buffer = LoadRamp();
    auto spatial = Load(std::vector<std::int32_t>(100, 1), 1, buffer_flags::kSample3D);
    auto place = spatial->GetDirectSound3dBuffer();
    // Calls of each object, some with arguments that would be refused: the caller is checked before the arguments.
    const std::function<void()> calls[] = {[&] { root_->GetDSEnum(); },        [&] { OpenAlSoundLoad(*root_); },
                                           [&] { drivers->GetCount(); },       [&] { device_->SetSpeakerConfig(3); },
                                           [&] { primary->Stop(); },           [&] { primary->SetVolume(0); },
                                           [&] { buffer->GetCaps(); },         [&] { buffer->SetPan(20000); },
                                           [&] { place->SetMinDistance(-1); }, [&] { listener->SetRolloffFactor(-1); }};
    for (const auto& call : calls) EXPECT_DEBUG_DEATH(OnAnotherThread(call), "owner_ == ");
}

TEST_F(SoundAdapterOwnerDeathTest, TheOwnersCallsGoThrough) {
    auto buffer = LoadRamp();
    buffer->Play(1);
    std::vector<std::int16_t> out(512);
    std::thread([&] { renderer_.Render(out.data(), 256); }).join();
    EXPECT_EQ(buffer->GetStatus(), 5);
    EXPECT_NEAR(out[200], 10 * 100, kStep) << "any thread may render";
}

}  // namespace
}  // namespace marvolin::test

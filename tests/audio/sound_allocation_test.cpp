/// The thread that renders allocates nothing, and neither does the library on it.

#include <array>
#include <thread>

#include "audio/clocked_rig.h"
#include "audio/counted_malloc.h"
#include "audio/openal/context.h"
#include "audio/output/output_chain.h"

namespace marvolin::test {
namespace {

class SoundAllocation : public ClockedRig {
protected:
    /// What is allocated while some callbacks render, on a thread that has not rendered before.
    long Counted(int frames) {
        long allocations = 0;
        std::thread([&] {
            std::array<std::int16_t, 2 * kPeriod> out{};
            const long before = Mallocs();
            for (int done = 0; done < frames; done += kPeriod) {
                renderer_.Render(out.data(), kPeriod);
                Time.PassFrames(kPeriod);
            }
            allocations = Mallocs() - before;
        }).join();
        return allocations;
    }
};

TEST_F(SoundAllocation, TheCounterSeesWhatTheLibraryAllocates) {
    const long before = Mallocs();
    auto buffer = LoadLevels(1000, 1000);
    EXPECT_GT(Mallocs(), before + 4);
}

TEST_F(SoundAllocation, TheCounterSeesWhatTheLibraryAllocatesOnTheThreadThatRenders) {
    std::vector<std::unique_ptr<DirectSoundBuffer>> buffers;
    for (int i = 0; i < 80; ++i) buffers.push_back(LoadLevels(10, 10, 44100));
    // More changes of sounding sources than are ever made in one period.
    for (auto& buffer : buffers) buffer->Play(1);
    long allocations = Counted(1024);
    for (auto& buffer : buffers) buffer->SetVolume(-1);
    allocations += Counted(kPeriod);
    EXPECT_GT(allocations, 0);
}

TEST_F(SoundAllocation, WhetherAMixerHasHeadphonesIsAskedOfTheLibraryOnce) {
    device_.reset();
    OpenAlContext mixer(std::make_shared<LoadMeter>());
    long before = Mallocs();
    const bool has = mixer.HasHeadphones();
    EXPECT_GT(Mallocs(), before) << "the library looks for the data of heads";
    before = Mallocs();
    EXPECT_EQ(mixer.HasHeadphones(), has);
    EXPECT_EQ(Mallocs(), before) << "the answer is remembered: the map asks each time it is shown";
}

TEST_F(SoundAllocation, AMixerThatCannotBeMadeReleasesEverything) {
    device_.reset();
    const auto meter = std::make_shared<LoadMeter>();
    { const OpenAlContext first(meter); }
    int failures = 0;
    for (bool failed = true; failed && failures < 1000; failures += failed) {
        const long before = BlocksHeld();
        failed = false;
        FailNew(failures);
        try {
            const OpenAlContext mixer(meter);
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        FailNew(-1);
        ASSERT_EQ(BlocksHeld(), before) << "after " << failures << " allocations";
    }
    EXPECT_GT(failures, 5);
    EXPECT_LT(failures, 1000);
}

TEST_F(SoundAllocation, ABufferThatCannotBeMadeIsUnknownToTheThreadThatRendersAndToItsSample) {
    auto kept = LoadLevels(kLevel, kLevel, 44100);
    kept->Play(1);
    int failures = 0;
    for (bool failed = true; failed && failures < 100; failures += failed) {
        failed = false;
        FailNew(failures);
        try {
            const auto duplicate = device_->DuplicateSoundBuffer(*kept);
            FailNew(-1);
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        FailNew(-1);
        Play(1024);
        kept->WriteBuffer(0, Pcm({kLevel, kLevel}, 16));
    }
    EXPECT_GT(failures, 2);
    EXPECT_LT(failures, 100);
    Play(1024);
    EXPECT_NEAR(LeftAt(Rendered() - 1), kLevel, kStep);
}

TEST_F(SoundAllocation, NothingIsAllocatedWhereTheSumIsSilencedMeasuredAndRecorded) {
    OutputChain chain;
    chain.BeginRecording();
    long allocations = -1;
    std::thread([&] {
        std::array<std::int16_t, 2 * kPeriod> frames{};
        const long before = Mallocs();
        for (int i = 0; i < 300; ++i) {
            frames.fill(static_cast<std::int16_t>(i % 2 == 0 ? 32767 : 3000));
            chain.SetSilent(i % 5 == 0);
            chain.Pass_rt(frames.data(), kPeriod);
            chain.TakeLevels();
        }
        allocations = Mallocs() - before;
    }).join();
    EXPECT_EQ(allocations, 0);
}

TEST_F(SoundAllocation, NothingIsAllocatedWhileEveryKindOfCallIsApplied) {
    auto primary = device_->CreateSoundBuffer(17);
    auto listener = primary->GetDirectSound3dListener();
    std::vector<std::unique_ptr<DirectSoundBuffer>> buffers;
    for (int i = 0; i < 4; ++i) buffers.push_back(LoadLevels(3000, 3000, 44100));
    auto spatial = Load(std::vector<std::int32_t>(44100, 3000), 1, buffer_flags::kSample3D);
    auto place = spatial->GetDirectSound3dBuffer();
    for (auto& buffer : buffers) buffer->Play(1);
    spatial->Play(1);
    long allocations = Counted(1024);
    for (int i = 0; i < 300; ++i) {
        {
            const CallGroup tick(*Clock, static_cast<Instant>(Clock->Now()));
            for (auto& buffer : buffers) {
                buffer->SetCurrentPosition(0);
                buffer->SetVolume(-i);
                buffer->SetPan(i);
                buffer->SetFrequency(i % 3 == 0 ? 44100 : 40000 + i);
                if (i % 5 == 0) buffer->Stop();
                if (i % 5 == 1) buffer->Play(1);
            }
        }
        place->SetPosition({static_cast<float>(i % 10) - 5, 0, 1});
        place->SetMinDistance(1.0F + static_cast<float>(i % 3));
        listener->SetRolloffFactor(static_cast<float>(i % 10));
        listener->SetPosition({0, 0, static_cast<float>(i % 3)});
        listener->SetOrientation({0, 0, 1}, {0, 1, 0});
        if (i % 10 == 0) buffers[0] = device_->DuplicateSoundBuffer(*buffers[1]);
        if (i % 20 == 0) buffers[1]->WriteBuffer(0, Pcm({i, i}, 16));
        allocations += Counted(441);
    }
    EXPECT_EQ(allocations, 0);
}

}  // namespace
}  // namespace marvolin::test

/// The thread that renders allocates nothing, and neither does the library on it.

#include "audio/clocked_rig.h"
#include "audio/counted_malloc.h"

namespace marvolin::test {
namespace {

class SoundAllocation : public ClockedRig {
protected:
    /// What is allocated while some callbacks render.
    long Counted(int frames) {
        std::vector<std::int16_t> out(static_cast<std::size_t>(2 * kPeriod));
        long allocations = 0;
        for (int done = 0; done < frames; done += kPeriod) {
            const long before = Mallocs();
            renderer_.Render(out.data(), kPeriod);
            allocations += Mallocs() - before;
            Time.PassFrames(kPeriod);
        }
        return allocations;
    }
};

TEST_F(SoundAllocation, TheCounterSeesWhatTheLibraryAllocates) {
    const long before = Mallocs();
    auto buffer = LoadLevels(1000, 1000);
    EXPECT_GT(Mallocs(), before + 4);
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

/// What OpenAL refuses, and what is rendered by hand.

#include <atomic>
#include <limits>
#include <thread>

#include "audio/loopback_rig.h"
#include "audio/openal/source_pool.h"
#include "audio/openal/voice.h"

namespace marvolin::test {
namespace {

class SoundAdapterErrors : public ::testing::Test {
protected:
    /// A call that OpenAL refuses when it is applied.
    void PostRefused() {
        Call call;
        call.Kind = CallKind::ListenerPlace;
        call.Numbers[0] = std::numeric_limits<float>::quiet_NaN();
        Mixer->PostToListener(call);
    }
    void Render(int frames) {
        std::vector<std::int16_t> out(static_cast<std::size_t>(2 * std::max(frames, 0)));
        Mixer->Render_rt(out.data(), frames);
    }
    std::shared_ptr<SampleMemory> Load() const { return std::make_shared<SampleMemory>(Mixer, path_, false); }

    SampleFolder folder_;
    std::string path_ = folder_.Write("small.wav", WaveBytes({.Data = Pcm(std::vector<std::int32_t>(200, 3000), 16)}));
    std::shared_ptr<LoadMeter> Meter = std::make_shared<LoadMeter>();
    std::shared_ptr<OpenAlContext> Mixer = std::make_shared<OpenAlContext>(Meter);
};

TEST_F(SoundAdapterErrors, ARefusedCallIsCountedByTheThreadThatRendersAndLeavesNoErrorBehind) {
    PostRefused();
    std::thread([this] { Render(128); }).join();
    EXPECT_EQ(Mixer->Counts().Refused, 1U);
    const OpenAlSetting setting(*Mixer);
    EXPECT_EQ(alGetError(), AL_NO_ERROR);
    EXPECT_EQ(Mixer->Counts().Refused, 1U);
}

TEST_F(SoundAdapterErrors, ALoadSucceedsWhateverIsRefusedMeanwhileOnTheOtherThread) {
    std::atomic<bool> on{true};
    std::thread card([&] {
        while (on) Render(128);
    });
    int loads = 0;
    for (; loads < 2000; ++loads) {
        PostRefused();
        if (NumberOf([&] { OpenAlVoice(Mixer, Load(), false).Play(false); }) != 0) break;
    }
    on = false;
    card.join();
    EXPECT_EQ(loads, 2000);
    EXPECT_GT(Mixer->Counts().Refused, 0U);
}

TEST_F(SoundAdapterErrors, RenderedByHandCallsFindRoomAndWhatIsReleasedIsFreedThoughNothingIsRendered) {
    Mixer->RenderByHand();
    const auto sample = Load();
    OpenAlVoice voice(Mixer, sample, false);
    voice.Play(true);
    for (int i = 0; i < 10000; ++i) voice.SetVolumeAndPan(-(i % 5000), 0);
    EXPECT_EQ(Mixer->Counts().Overflowed, 0U);
    const ByteList bytes = Pcm({1, 2, 3}, 16);
    int writes = 0;
    for (; writes < SourcePool::kMostSources; ++writes)
        if (NumberOf([&] { sample->Write(0, bytes); }) != 0) break;
    EXPECT_EQ(writes, SourcePool::kMostSources) << "each takes four sources";
    EXPECT_EQ(Mixer->Counts().Refused, 0U);
}

TEST_F(SoundAdapterErrors, AnEmptyRenderingIsNoneAndLeavesTheLoadAFigure) {
    Render(0);
    Render(-128);
    Render(128);
    EXPECT_GE(Meter->Percent(), 0);
}

}  // namespace
}  // namespace marvolin::test

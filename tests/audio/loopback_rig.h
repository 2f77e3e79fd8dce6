#pragma once
/// \file
/// The real audio service with its sound rendered to memory.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "audio/openal/sound.h"
#include "audio/wave_bytes.h"
#include "core/errors.h"

namespace marvolin::test {

/// Output is rounded to 16 bits with a dither of less than one step.
inline constexpr int kStep = 2;

/// The factor of a volume in hundredths of a decibel.
inline double GainOf(int hundredths) { return hundredths <= -10000 ? 0 : std::pow(10.0, hundredths / 2000.0); }

/// Rendered sound.
struct Heard {
    std::vector<int> Left;
    std::vector<int> Right;
};

/// The error number of a failing operation, 0 when it succeeds.
template <typename Operation>
std::uint32_t NumberOf(Operation operation) {
    try {
        operation();
        return 0;
    } catch (const RuntimeError& e) {
        return e.Number();
    }
}

class LoopbackRig : public ::testing::Test {
protected:
    /// With a clock: as `LoopbackRenderer`.
    explicit LoopbackRig(std::shared_ptr<CardClock> clock = nullptr, int period = 128)
        : renderer_(std::move(clock), period), root_(renderer_.Root()), device_(root_->DirectSoundCreate("")) {}

    Heard Render(int frames) {
        std::vector<std::int16_t> out(static_cast<std::size_t>(2 * frames));
        renderer_.Render(out.data(), frames);
        Heard heard;
        for (std::size_t i = 0; i < out.size(); i += 2) {
            heard.Left.push_back(out[i]);
            heard.Right.push_back(out[i + 1]);
        }
        return heard;
    }
    std::unique_ptr<DirectSoundBuffer> Load(const Wave& wave, std::int32_t flags = buffer_flags::kSample) {
        const std::string path = folder_.Write("sample" + std::to_string(files_++) + ".wav", WaveBytes(wave));
        return device_->CreateSoundBufferFromFile(path, flags);
    }
    /// A sample of 16 bits; two channels are interleaved.
    std::unique_ptr<DirectSoundBuffer> Load(const std::vector<std::int32_t>& numbers, int channels,
                                            std::int32_t flags = buffer_flags::kSample, std::uint32_t rate = 44100) {
        Wave wave;
        wave.Channels = channels;
        wave.Rate = rate;
        wave.Data = Pcm(numbers, 16);
        return Load(wave, flags);
    }
    /// A stereo sample, each channel at a constant level.
    std::unique_ptr<DirectSoundBuffer> LoadLevels(int left, int right, int frames = 4410) {
        std::vector<std::int32_t> numbers;
        for (int i = 0; i < frames; ++i) numbers.insert(numbers.end(), {left, right});
        return Load(numbers, 2);
    }
    /// A mono sample, frame i at level 10 * i.
    std::unique_ptr<DirectSoundBuffer> LoadRamp(int frames = 3000) {
        std::vector<std::int32_t> numbers;
        for (int i = 0; i < frames; ++i) numbers.push_back(10 * i);
        return Load(numbers, 1);
    }
    /// Expects `count` frames of the ramp, beginning with its frame `from`, at frame `at` of the output.
    void ExpectRamp(const Heard& heard, int at, int count, int from) {
        for (int i = 0; i < count; ++i) {
            const auto n = static_cast<std::size_t>(at + i);
            ASSERT_NEAR(heard.Left[n], 10 * (from + i), kStep) << "left, frame " << n;
            ASSERT_NEAR(heard.Right[n], 10 * (from + i), kStep) << "right, frame " << n;
        }
    }
    void ExpectSilence(const Heard& heard, std::size_t from = 0) {
        for (std::size_t i = from; i < heard.Left.size(); ++i) {
            ASSERT_NEAR(heard.Left[i], 0, kStep) << "frame " << i;
            ASSERT_NEAR(heard.Right[i], 0, kStep) << "frame " << i;
        }
    }

    SampleFolder folder_;
    int files_ = 0;
    LoopbackRenderer renderer_;
    std::unique_ptr<DirectX7> root_;
    std::unique_ptr<DirectSound> device_;
};

}  // namespace marvolin::test

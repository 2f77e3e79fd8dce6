/// Which files are accepted, and how the others are refused.

#include <sys/stat.h>

#include <filesystem>

#include "audio/loopback_rig.h"

namespace marvolin::test {
namespace {

class SoundAdapterFiles : public LoopbackRig {
protected:
    std::uint32_t Refusal(const std::string& path) {
        return NumberOf([&] { device_->CreateSoundBufferFromFile(path, buffer_flags::kSample); });
    }
    std::uint32_t Refusal(const ByteList& bytes) { return Refusal(folder_.Write("bad.wav", bytes)); }
    std::uint32_t Refusal(const Wave& wave) { return Refusal(WaveBytes(wave)); }
    static Wave Good() {
        Wave wave;
        wave.Data = Pcm({100, 200, 300, 400, 500, 600, 700, 800}, 16);
        return wave;
    }
};

TEST_F(SoundAdapterFiles, EveryWidthAndChannelCountIsReadCorrectly) {
    for (const bool extensible : {false, true})
        for (const int bits : {8, 16, 24, 32})
            for (const int channels : {1, 2}) {
                SCOPED_TRACE(testing::Message() << bits << " bits, " << channels << " channels, " << extensible);
                const std::int64_t unit = std::int64_t{1} << (bits - 8);
                Wave wave;
                wave.Bits = bits;
                wave.Channels = channels;
                wave.Extensible = extensible;
                std::vector<std::int32_t> numbers;
                std::vector<int> expected;
                for (int i = 0; i < 600; ++i) {
                    const int value = (i * 37) % 200 - 100;
                    // The low bits distinguish a wide number from a narrow one.
                    const std::int64_t fine = bits == 8 ? 0 : (i * 11) % 256 * (unit / 256);
                    numbers.push_back(static_cast<std::int32_t>(value * unit + fine));
                    expected.push_back(value * 256 + (bits == 8 ? 0 : (i * 11) % 256));
                }
                wave.Data = Pcm(numbers, bits);
                auto buffer = Load(wave);
                const WaveFormat format = buffer->GetFormat();
                const int align = channels * bits / 8;
                const WaveFormat wanted{1,
                                        static_cast<std::int16_t>(channels),
                                        44100,
                                        static_cast<std::int16_t>(bits),
                                        static_cast<std::int16_t>(align),
                                        44100 * align,
                                        0};
                EXPECT_EQ(format, wanted);
                EXPECT_EQ(buffer->GetCaps().BufferBytes, 600 * bits / 8);
                ByteList back(wave.Data.size());
                buffer->ReadBuffer(0, back);
                EXPECT_EQ(back, wave.Data);
                buffer->Play(0);
                const Heard heard = Render(600 / channels);
                for (std::size_t i = 0; i < heard.Left.size(); ++i) {
                    const std::size_t left = i * static_cast<std::size_t>(channels);
                    const std::size_t right = left + static_cast<std::size_t>(channels) - 1;
                    ASSERT_NEAR(heard.Left[i], expected[left], kStep) << i;
                    ASSERT_NEAR(heard.Right[i], expected[right], kStep) << i;
                }
            }
}

TEST_F(SoundAdapterFiles, ASampleLongerThanAPieceIsReadToItsEnd) {
    std::vector<std::int32_t> numbers;
    for (int i = 0; i < 200000; ++i) numbers.push_back((i / 7) % 30000);
    auto buffer = Load(numbers, 2);
    buffer->Play(0);
    const Heard heard = Render(100000);
    for (std::size_t i = 0; i < heard.Left.size(); i += 13) {
        ASSERT_NEAR(heard.Left[i], numbers[2 * i], kStep) << i;
        ASSERT_NEAR(heard.Right[i], numbers[2 * i + 1], kStep) << i;
    }
}

TEST_F(SoundAdapterFiles, OtherChunksAreSkipped) {
    ByteList file = WaveBytes(Good());
    const ByteList extra{'L', 'I', 'S', 'T', 5, 0, 0, 0, 1, 2, 3, 4, 5, 0};
    file.insert(file.begin() + 12, extra.begin(), extra.end());
    file[4] = static_cast<std::uint8_t>(file[4] + extra.size());
    file.insert(file.end(), extra.begin(), extra.end());
    EXPECT_EQ(Refusal(file), 0U);
}

TEST_F(SoundAdapterFiles, AnOddCountOfBytesIsTakenDownToWholeFrames) {
    Wave wave = Good();
    wave.Data.resize(15);
    EXPECT_EQ(Load(wave)->GetCaps().BufferBytes, 12);
    wave.Channels = 1;
    EXPECT_EQ(Load(wave)->GetCaps().BufferBytes, 14);
    wave.Bits = 24;
    wave.Data.resize(8);
    EXPECT_EQ(Load(wave)->GetCaps().BufferBytes, 6);
}

TEST_F(SoundAdapterFiles, OneFrameIsEnough) {
    auto buffer = Load(std::vector<std::int32_t>{12000, -12000}, 2);
    EXPECT_EQ(buffer->GetCaps().BufferBytes, 4);
    buffer->Play(1);
    const Heard heard = Render(256);
    EXPECT_NEAR(heard.Left[200], 12000, kStep);
    EXPECT_NEAR(heard.Right[200], -12000, kStep);
}

TEST_F(SoundAdapterFiles, AnythingButPlainPcmIsABadFormat) {
    const std::vector<std::pair<std::string, void (*)(Wave&)>> cases{
        {"float", [](Wave& w) { w.Tag = 3, w.Bits = 32; }},
        {"float, extensible", [](Wave& w) { w.Tag = 3, w.Bits = 32, w.Extensible = true; }},
        {"A-law", [](Wave& w) { w.Tag = 6, w.Bits = 8; }},
        {"mu-law", [](Wave& w) { w.Tag = 7, w.Bits = 8; }},
        {"ADPCM", [](Wave& w) { w.Tag = 2, w.Bits = 4, w.Align = 256; }},
        {"mp3", [](Wave& w) { w.Tag = 0x55; }},
        {"three channels", [](Wave& w) { w.Channels = 3; }},
        {"no channel", [](Wave& w) { w.Channels = 0; }},
        {"65535 channels", [](Wave& w) { w.Channels = 65535; }},
        {"12 bits", [](Wave& w) { w.Bits = 12, w.Align = 4; }},
        {"0 bits", [](Wave& w) { w.Bits = 0; }},
        {"64 bits", [](Wave& w) { w.Bits = 64; }},
        {"block of 0", [](Wave& w) { w.Align = 0; }},
        {"block too large", [](Wave& w) { w.Align = 8; }},
        {"rate 0", [](Wave& w) { w.Rate = 0; }},
        {"rate below the lowest", [](Wave& w) { w.Rate = 99; }},
        {"rate beyond all", [](Wave& w) { w.Rate = 0xFFFFFFFF; }},
        {"no frames", [](Wave& w) { w.Data.clear(); }},
        {"less than a frame", [](Wave& w) { w.Data.resize(3); }},
        {"size that lies by a little", [](Wave& w) { w.DataSize = 17; }},
        {"size that lies by much", [](Wave& w) { w.DataSize = 0x7FFFFFF0; }},
        {"size beyond all", [](Wave& w) { w.DataSize = 0xFFFFFFFF; }},
        {"size 0 with frames behind", [](Wave& w) { w.DataSize = 0; }},
        {"RIFX", [](Wave& w) { w.Container = "RIFX"; }},
        {"RF64", [](Wave& w) { w.Container = "RF64"; }},
        {"AVI", [](Wave& w) { w.Kind = "AVI "; }},
    };
    for (const auto& [name, spoil] : cases) {
        SCOPED_TRACE(name);
        Wave wave = Good();
        spoil(wave);
        EXPECT_EQ(Refusal(wave), sound_error::kBadFormat);
    }
    EXPECT_EQ(Refusal(Good()), 0U);
}

TEST_F(SoundAdapterFiles, AFileCutShortAnywhereIsABadFormat) {
    const ByteList whole = WaveBytes(Good());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        EXPECT_EQ(Refusal(ByteList(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length))),
                  sound_error::kBadFormat);
    }
}

TEST_F(SoundAdapterFiles, ADamagedByteIsReadOrRefusedWithoutHarm) {
    const ByteList whole = WaveBytes(Good());
    for (std::size_t at = 0; at < 44; ++at)
        for (const int value : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
            SCOPED_TRACE(testing::Message() << "byte " << at << " is " << value);
            ByteList spoiled = whole;
            spoiled[at] = static_cast<std::uint8_t>(value);
            const std::uint32_t number = Refusal(spoiled);
            EXPECT_TRUE(number == 0 || number == sound_error::kBadFormat) << number;
        }
}

TEST_F(SoundAdapterFiles, OtherContainersAreABadFormat) {
    EXPECT_EQ(Refusal(ByteList{}), sound_error::kBadFormat);
    EXPECT_EQ(Refusal(ByteList(5000, 'x')), sound_error::kBadFormat);
    EXPECT_EQ(Refusal(ByteList(5000, 0)), sound_error::kBadFormat);
    ByteList aiff{'F', 'O', 'R', 'M', 0, 0,  0, 46, 'A',  'I',  'F',  'F',  'C', 'O', 'M', 'M', 0, 0, 0,   18,
                  0,   1,   0,   0,   0, 2,  0, 16, 0x40, 0x0E, 0xAC, 0x44, 0,   0,   0,   0,   0, 0, 'S', 'S',
                  'N', 'D', 0,   0,   0, 12, 0, 0,  0,    0,    0,    0,    0,   0,   1,   2,   3, 4};
    EXPECT_EQ(Refusal(aiff), sound_error::kBadFormat);
}

TEST_F(SoundAdapterFiles, WhatCannotBeReadIsAGenericFailure) {
    EXPECT_EQ(Refusal(folder_.Path("missing.wav")), sound_error::kGeneric);
    EXPECT_EQ(Refusal(std::string()), sound_error::kGeneric);
    EXPECT_EQ(Refusal(folder_.Path("")), sound_error::kGeneric);
    EXPECT_EQ(Refusal(folder_.Path(std::string(4000, 'a'))), sound_error::kGeneric);
    EXPECT_EQ(Refusal(std::string("/dev/null")), sound_error::kGeneric);
    const std::string good = folder_.Write("good.wav", WaveBytes(Good()));
    EXPECT_EQ(Refusal(good + std::string("\0.wav", 5)), sound_error::kGeneric);
}

TEST_F(SoundAdapterFiles, APipeDoesNotBlockTheLoad) {
    const std::string path = folder_.Path("pipe.wav");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(Refusal(path), sound_error::kGeneric);
}

TEST_F(SoundAdapterFiles, AFileWithoutPermissionIsAGenericFailure) {
    const std::string path = folder_.Write("closed.wav", WaveBytes(Good()));
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    // Root can read files without permission.
    EXPECT_EQ(Refusal(path), geteuid() == 0 ? 0U : sound_error::kGeneric);
}

TEST_F(SoundAdapterFiles, NamesAreBytes) {
    for (const std::string& name : {std::string("Trommel \xC3\xA4\xE6\xBC\xA2.wav"), std::string("\xFF\xFE broken.wav"),
                                    std::string("without an extension"), std::string(255, 'n')}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Refusal(folder_.Write(name, WaveBytes(Good()))), 0U);
    }
}

TEST_F(SoundAdapterFiles, ManyLoadsUseNothingUp) {
    const std::string path = folder_.Write("good.wav", WaveBytes(Good()));
    const std::string bad = folder_.Write("bad.wav", ByteList(100, 1));
    std::unique_ptr<DirectSoundBuffer> kept = device_->CreateSoundBufferFromFile(path, buffer_flags::kSample);
    // Far more loads than the mixer has sources; each replaces a sounding sample.
    for (int load = 0; load < 1000; ++load) {
        auto next = load % 3 == 0 ? device_->DuplicateSoundBuffer(*kept)
                                  : device_->CreateSoundBufferFromFile(
                                        path, load % 3 == 1 ? buffer_flags::kSample : buffer_flags::kSample3D);
        next->Play(1);
        if (load % 10 == 0) next->WriteBuffer(0, ByteList(4, 0));
        kept = std::move(next);
        ASSERT_EQ(Refusal(bad), sound_error::kBadFormat) << load;
    }
    EXPECT_NE(kept->GetStatus(), 0);
}

TEST_F(SoundAdapterFiles, TheFileMayBeDeletedOnceItIsLoaded) {
    const std::string path = folder_.Write("gone.wav", WaveBytes(Good()));
    auto buffer = device_->CreateSoundBufferFromFile(path, buffer_flags::kSample);
    std::filesystem::remove(path);
    buffer->Play(0);
    EXPECT_NEAR(Render(4).Left[1], 300, kStep);
    EXPECT_EQ(Refusal(path), sound_error::kGeneric);
}

TEST_F(SoundAdapterFiles, AHighRateIsHalvedInEveryWidthWithoutNoiseFromAboveTheLowerBand) {
    constexpr int kFrames = 19200;
    for (const int bits : {8, 16, 24, 32})
        for (const int channels : {1, 2}) {
            SCOPED_TRACE(testing::Message() << bits << " bits, " << channels << " channels");
            Wave wave;
            wave.Rate = 192000;
            wave.Bits = bits;
            wave.Channels = channels;
            const double full = std::ldexp(1.0, bits - 1);
            std::vector<std::int32_t> numbers;
            for (int i = 0; i < kFrames; ++i) {
                const double low = 0.5 * std::sin(2 * 3.14159265358979 * 1000 * i / 192000.0);
                const double high = 0.3 * std::sin(2 * 3.14159265358979 * 70000 * i / 192000.0);
                for (int channel = 0; channel < channels; ++channel)
                    numbers.push_back(static_cast<std::int32_t>((low + high) * (channel == 0 ? full : -full / 2)));
            }
            wave.Data = Pcm(numbers, bits);
            auto buffer = Load(wave);
            ASSERT_EQ(buffer->GetCaps().BufferBytes, kFrames / 2 * channels * bits / 8);
            ByteList back(static_cast<std::size_t>(buffer->GetCaps().BufferBytes));
            buffer->ReadBuffer(0, back);
            const int wide = bits / 8;
            for (int frame = 200; frame < kFrames / 2 - 200; ++frame)
                for (int channel = 0; channel < channels; ++channel) {
                    const std::uint8_t* at = back.data() + (frame * channels + channel) * wide;
                    std::int64_t number = bits == 8 ? *at - 128 : 0;
                    for (int i = 0; bits > 8 && i < wide; ++i) number |= std::int64_t{at[i]} << (8 * i);
                    if (bits > 8 && number >= static_cast<std::int64_t>(full)) number -= std::int64_t{1} << bits;
                    const double wanted = 0.5 * std::sin(2 * 3.14159265358979 * 1000 * frame / 96000.0);
                    ASSERT_NEAR(static_cast<double>(number) / full, channel == 0 ? wanted : -wanted / 2,
                                bits == 8 ? 0.012 : 0.0005)
                        << frame;
                }
        }
}

TEST_F(SoundAdapterFiles, AnEvenLoopOfAHighRateStaysEvenAtItsEnds) {
    Wave wave;
    wave.Rate = 176400;
    wave.Channels = 1;
    wave.Data = Pcm(std::vector<std::int32_t>(70001, 8000), 16);
    auto buffer = Load(wave);
    ASSERT_EQ(buffer->GetCaps().BufferBytes, 70000);
    ByteList back(70000);
    buffer->ReadBuffer(0, back);
    for (std::size_t i = 0; i < back.size(); i += 2) ASSERT_NEAR(back[i] + 256 * back[i + 1], 8000, 1) << i;
}

TEST_F(SoundAdapterFiles, TheShortestSampleOfAHighRateIsOneFrame) {
    for (const int frames : {1, 2, 3}) {
        Wave wave;
        wave.Rate = 1000000;
        wave.Channels = 1;
        wave.Data = Pcm(std::vector<std::int32_t>(static_cast<std::size_t>(frames), 500), 16);
        EXPECT_EQ(Load(wave)->GetCaps().BufferBytes, 2);
    }
}

}  // namespace
}  // namespace marvolin::test

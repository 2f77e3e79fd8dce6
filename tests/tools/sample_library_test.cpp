#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <stdexcept>
#include <string>

#include "fakes/temp_folder.h"
#include "make_samples/finishing.h"
#include "make_samples/library.h"
#include "make_samples/wav_writer.h"

namespace marvolin::samples {
namespace {

/// The whole library, made once for all tests.
const std::vector<Clip>& Made() {
    static const std::vector<Clip> made = [] {
        std::vector<Clip> clips;
        for (const LibraryEntry& entry : Library()) clips.push_back(Make(entry));
        return clips;
    }();
    return made;
}

/// Calls `look(name, clip)` for each entry.
template <class Look>
void ForEach(const Look& look) {
    for (std::size_t i = 0; i < Library().size(); ++i) {
        SCOPED_TRACE(Library()[i].name);
        look(Library()[i], Made()[i]);
    }
}

/// The largest step between neighbouring frames from `first` to `last`, across the loop point.
double LargestStep(const Signal& signal, long first, long last) {
    const auto frames = static_cast<long>(signal.size());
    const auto at = [&](long i) { return signal[static_cast<std::size_t>(((i % frames) + frames) % frames)]; };
    double largest = 0;
    for (long i = first; i < last; ++i) largest = std::max(largest, std::fabs(at(i + 1) - at(i)));
    return largest;
}

class SampleFolder : public testing::Test {
protected:
    static std::string Bytes(const std::filesystem::path& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    static std::uint32_t Number(const std::string& bytes, std::size_t at, int count) {
        std::uint32_t number = 0;
        for (int i = count - 1; i >= 0; --i)
            number = number << 8 | static_cast<std::uint8_t>(bytes[at + static_cast<std::size_t>(i)]);
        return number;
    }

    marvolin::test::TempFolder own_;
    std::filesystem::path folder_ = own_.Path();
};

TEST(SampleLibrary, EveryLoopIsExactlyTwoBarsAt120Bpm) {
    int loops = 0;
    ForEach([&](const LibraryEntry& entry, const Clip& clip) {
        const bool oneShot = std::string(entry.folder) == "OneShots";
        EXPECT_EQ(clip.loops, !oneShot);
        if (oneShot) return;
        ++loops;
        for (const Signal& channel : clip.channels) EXPECT_EQ(channel.size(), 176400u);
    });
    EXPECT_GE(loops, 20);
}

TEST(SampleLibrary, HasBeatsBassChordsTonesAndOneShotsInMonoAndStereo) {
    std::map<std::string, int> folders;
    std::set<std::size_t> channels;
    std::set<std::string> names;
    ForEach([&](const LibraryEntry& entry, const Clip& clip) {
        ++folders[entry.folder];
        channels.insert(clip.channels.size());
        names.insert(entry.name);
    });
    for (const char* folder : {"Beats", "Bass", "Chords", "Tones", "OneShots"}) EXPECT_GE(folders[folder], 4) << folder;
    EXPECT_EQ(folders.size(), 5u);
    EXPECT_EQ(channels, (std::set<std::size_t>{1, 2}));
    EXPECT_EQ(names.size(), Library().size());
}

TEST(SampleLibrary, TheStepAtTheLoopPointIsNoLargerThanThoseAroundIt) {
    ForEach([](const LibraryEntry&, const Clip& clip) {
        if (!clip.loops) return;
        for (const Signal& channel : clip.channels) {
            const auto last = static_cast<long>(channel.size()) - 1;
            const double seam = LargestStep(channel, last, last + 1);
            const double around =
                std::max(LargestStep(channel, last - 400, last), LargestStep(channel, last + 1, last + 401));
            EXPECT_LE(seam, around * 1.05);
        }
    });
}

TEST(SampleLibrary, SoundsPlayedOnceEndInSilence) {
    ForEach([](const LibraryEntry&, const Clip& clip) {
        if (clip.loops) return;
        for (const Signal& channel : clip.channels) EXPECT_LT(std::fabs(channel.back()), 1e-3);
    });
}

TEST(SampleLibrary, LoopsPeakBelowNineDecibelsAndOtherSoundsAtThree) {
    ForEach([](const LibraryEntry&, const Clip& clip) {
        EXPECT_LE(Peak(clip), clip.loops ? 0.351 : 0.709);
        EXPECT_GE(Peak(clip), clip.loops ? 0.15 : 0.70);
    });
}

TEST(SampleLibrary, LoopsAreAsLoudAsEachOther) {
    ForEach([](const LibraryEntry& entry, const Clip& clip) {
        if (!clip.loops) return;
        EXPECT_NEAR(Loudness(clip), entry.loudness, 0.1 * entry.loudness);
        EXPECT_GE(entry.loudness, 0.08);
        EXPECT_LE(entry.loudness, 0.15);
    });
}

TEST(SampleLibrary, OneLoopOfEachKindTogetherStaysBelowFullScale) {
    // At full volume, started together, for any beat, bass, chords and tone.
    std::map<std::string, std::vector<Signal>> kinds;
    ForEach([&](const LibraryEntry& entry, const Clip& clip) {
        if (clip.loops) kinds[entry.folder].push_back(clip.channels.front());
    });
    for (std::size_t turn = 0; turn < 6; ++turn) {
        Signal sum(176400);
        for (const auto& [folder, signals] : kinds) {
            const Signal& one = signals[turn % signals.size()];
            for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += one[i];
        }
        EXPECT_LT(Peak({{sum}, true}), 1.0) << turn;
    }
}

TEST(SampleLibrary, NoSoundHasAConstantPart) {
    ForEach([](const LibraryEntry&, const Clip& clip) {
        for (const Signal& channel : clip.channels) {
            double sum = 0;
            for (const double value : channel) sum += value;
            EXPECT_LT(std::fabs(sum / static_cast<double>(channel.size())), 1e-4);
        }
    });
}

TEST(SampleLibrary, MakingItAgainGivesTheSameSamples) {
    for (const std::size_t i : {std::size_t{1}, std::size_t{8}, std::size_t{11}, std::size_t{17}, std::size_t{26}}) {
        SCOPED_TRACE(Library()[i].name);
        EXPECT_EQ(ToPcm(Make(Library()[i])), ToPcm(Made()[i]));
    }
}

TEST_F(SampleFolder, AFileIsAPlainSixteenBitWaveOfTheSamples) {
    const Clip clip{{{0, 1, -1, 0.5}, {0.25, 2, -2, 0}}, false};
    WriteWav(folder_ / "a.wav", clip);
    const std::string bytes = Bytes(folder_ / "a.wav");
    ASSERT_EQ(bytes.size(), 44u + 16u);
    EXPECT_EQ(bytes.substr(0, 4), "RIFF");
    EXPECT_EQ(Number(bytes, 4, 4), 52u);
    EXPECT_EQ(bytes.substr(8, 8), "WAVEfmt ");
    EXPECT_EQ(Number(bytes, 16, 4), 16u);
    EXPECT_EQ(Number(bytes, 20, 2), 1u);
    EXPECT_EQ(Number(bytes, 22, 2), 2u);
    EXPECT_EQ(Number(bytes, 24, 4), 44100u);
    EXPECT_EQ(Number(bytes, 28, 4), 176400u);
    EXPECT_EQ(Number(bytes, 32, 2), 4u);
    EXPECT_EQ(Number(bytes, 34, 2), 16u);
    EXPECT_EQ(bytes.substr(36, 4), "data");
    EXPECT_EQ(Number(bytes, 40, 4), 16u);
    constexpr std::array<int, 8> kFrames = {0, 8192, 32767, 32767, -32767, -32768, 16384, 0};
    for (std::size_t i = 0; i < kFrames.size(); ++i) {
        EXPECT_EQ(static_cast<std::int16_t>(Number(bytes, 44 + 2 * i, 2)), kFrames[i]) << i;
    }
}

TEST_F(SampleFolder, TheLibraryIsWrittenByFolderUnderReadableNames) {
    WriteLibrary(folder_);
    for (const LibraryEntry& entry : Library()) {
        EXPECT_TRUE(std::filesystem::is_regular_file(folder_ / entry.folder / (std::string(entry.name) + ".wav")))
            << entry.name;
    }
    EXPECT_EQ(std::filesystem::file_size(folder_ / "Bass" / "Bass walking D.wav"), 44u + 176400u * 2);
    EXPECT_EQ(std::filesystem::file_size(folder_ / "Beats" / "Beat 120 straight.wav"), 44u + 176400u * 4);
}

TEST_F(SampleFolder, AFileThatCannotBeWrittenIsNamedInTheError) {
    const std::filesystem::path file = folder_ / "missing" / "a.wav";
    try {
        WriteWav(file, Clip{{{0}}, false});
        FAIL() << "no error";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), "cannot write " + file.string());
    }
}

}  // namespace
}  // namespace marvolin::samples

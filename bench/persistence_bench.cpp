/// \file
/// The cost of saving and loading a large session, of filling the clipboard and of scanning a bin, compared with the
/// plain file operations.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <memory>
#include <vector>

#include "browser/clipboard.h"
#include "browser/sample_bins.h"
#include "core/files/new_file.h"
#include "fakes/file_bytes.h"
#include "fakes/instrument.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/kept/last_state.h"
#include "persistence/missing/missing_sample.h"
#include "persistence/missing/nearby_samples.h"
#include "persistence/missing/sample_search.h"
#include "persistence/session_reader.h"
#include "persistence/session_writer.h"

namespace marvolin {
namespace {

constexpr int kFullClipBoard = 2001;
constexpr int kManyFiles = 10000;
constexpr int kMostFiles = 100000;

clsSwitchRecord All() {
    clsSwitchRecord switches;
    switches.SetSwitch(true);
    return switches;
}

/// A session with a full clipboard and full histories.
struct Large : test::Instrument {
    test::TempFolder Folder;
    std::string File = Folder / "large.mvn";

    Large() {
        PadGeometryInit(s, 4500, 4500);
        PadTablesInit(s);
        for (SampleBin& bin : s.Bins) bin.Folder = Folder.Path();
        for (Row row = 0; row < kLoopTracks; ++row) {
            for (int k = 0; k < 20; ++k)
                s.History[row].push_back("/music/samples/history" + std::to_string(k) + ".wav");
        }
        FillClips(kFullClipBoard);
    }
    void FillClips(int count) {
        InitClipBoard(s);
        for (int clip = 0; clip < count; ++clip) {
            s.Clips.ClipStaging.FileName = "/music/samples/a sample " + std::to_string(clip) + ".wav";
            AddNewClip(s);
        }
    }
};

void Count(benchmark::State& state, const std::string& file) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(file)));
}

void SaveLarge(benchmark::State& state) {
    Large b;
    const clsSwitchRecord all = All();
    for (auto _ : state) {
        if (!SaveSession(b.s, b.File, LoopsSaved::All, all)) state.SkipWithError("not saved");
    }
    Count(state, b.File);
}
BENCHMARK(SaveLarge)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The same bytes in one write, flushed to the disk, and a rename; with an argument of 1 the folder is flushed, too, as
/// a save does.
void WritePlainly(benchmark::State& state) {
    Large b;
    SaveSession(b.s, b.File, LoopsSaved::All, All());
    const std::string bytes = test::ReadBytes(b.File);
    const std::string other = b.File + ".new";
    for (auto _ : state) {
        const int file = ::open(other.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        if (::write(file, bytes.data(), bytes.size()) < 0) state.SkipWithError("not written");
        if (::fsync(file) != 0) state.SkipWithError("not flushed");
        ::close(file);
        std::filesystem::rename(other, b.File);
        if (state.range(0) == 1) SyncFolder(b.Folder.Path());
    }
    Count(state, b.File);
}
BENCHMARK(WritePlainly)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

/// What the user-interface thread has of a state that is kept: its bytes, their hash, and the start of the thread that
/// writes them; with an argument of 1 while a set is in hand.
void KeepTheLastState(benchmark::State& state) {
    Large b;
    b.Desk.Folder = b.s.CurrentFolder = b.Folder.Path();
    b.s.SaveOpenSwitches[kWhenSaving] = All();
    StartKeeping(b.s);
    if (state.range(0) == 1) {
        b.s.CurrentFile = "large.mvn";
        NoteSetOnDisk(b.s, b.File);
    }
    const auto tick = b.Timers.Live.back()->OnTick;
    // The first state of a run is decided by the work alone, once more.
    b.s.Set[0].Vol = 1;
    tick(kKeepPeriod);
    b.s.StatusText.clear();
    for (auto _ : state) {
        state.PauseTiming();
        WaitForLastState(b.s);
        tick(0);
        b.s.Set[0].Vol = static_cast<std::int16_t>((b.s.Set[0].Vol + 1) % kVolFull);
        b.Screen.Log.clear();
        state.ResumeTiming();
        tick(kKeepPeriod);
    }
    if (!b.s.StatusText.empty()) state.SkipWithError(b.s.StatusText.c_str());
}
BENCHMARK(KeepTheLastState)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// The large set, kept, in hand and as its file has it.
struct LargeInHand : Large {
    LargeInHand() {
        s.SaveOpenSwitches[kWhenSaving] = All();
        Desk.Folder = s.CurrentFolder = Folder.Path();
        s.CurrentFile = "large.mvn";
        StartKeeping(s);
        NoteSetOnDisk(s, File);
    }
};

/// The look at whether the set in hand differs from its file, once a second.
void LookAtTheSetInHand(benchmark::State& state) {
    LargeInHand b;
    const auto tick = b.Timers.Live.back()->OnTick;
    for (auto _ : state) tick(0);
    if (SetHasChanged(b.s)) state.SkipWithError("nothing has changed");
}
BENCHMARK(LookAtTheSetInHand)->Unit(benchmark::kMillisecond);

/// The same with a clip that has changed, whose records are made anew.
void LookAtTheSetInHandAfterAClip(benchmark::State& state) {
    LargeInHand b;
    const auto tick = b.Timers.Live.back()->OnTick;
    for (auto _ : state) {
        b.s.Clips.ClipStore.back().Vol = static_cast<std::int16_t>((b.s.Clips.ClipStore.back().Vol + 1) % kVolFull);
        tick(0);
    }
}
BENCHMARK(LookAtTheSetInHandAfterAClip)->Unit(benchmark::kMillisecond);

/// A folder of a hundred thousand files, as "Find" may be sent to.
struct FullFolder {
    test::TempFolder Folder;
    FullFolder() {
        for (int k = 0; k < kMostFiles; ++k) test::WriteBytes(Folder / ("Sample " + std::to_string(k) + ".wav"), "");
    }
};

/// What the machine has given this thread so far, in ms: without the time that other programs have taken.
double ThreadTime() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// One turn of "Find": what the window waits for. The first turn of a search reads the folder's first entries.
void OneTurnOfFindInAHundredThousandFiles(benchmark::State& state) {
    const FullFolder b;
    const std::vector<std::string> names{"kick.wav", "snare.wav", "hat.wav", "bell.wav"};
    auto search = std::make_unique<SampleSearch>(b.Folder.Path(), names);
    const auto now = [] {
        return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
    };
    double longest = 0;
    double longestOwn = 0;
    for (auto _ : state) {
        const double ownBegin = ThreadTime();
        const auto begin = std::chrono::steady_clock::now();
        if (search->StepFor(SampleSearch::kTurn, now)) search = std::make_unique<SampleSearch>(b.Folder.Path(), names);
        const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
        longest = std::max(longest, took.count());
        longestOwn = std::max(longestOwn, ThreadTime() - ownBegin);
    }
    state.counters["longest_ms"] = longest;
    state.counters["longest_own_ms"] = longestOwn;
}
BENCHMARK(OneTurnOfFindInAHundredThousandFiles)->Unit(benchmark::kMicrosecond)->Iterations(1000);

/// What an opened set waits for, for each sample that is missing, when its folder and three bins are such a folder.
void LookBesideTheSetInAHundredThousandFiles(benchmark::State& state) {
    const FullFolder b;
    Large set;
    for (SampleBin& bin : set.s.Bins) bin.Folder = b.Folder.Path();
    for (auto _ : state) {
        benchmark::DoNotOptimize(FindNearby(set.s, {"/music/kick.wav"}, {}, b.Folder.Path()));
    }
}
BENCHMARK(LookBesideTheSetInAHundredThousandFiles)->Unit(benchmark::kMillisecond);

void LoadLarge(benchmark::State& state) {
    Large b;
    const clsSwitchRecord all = All();
    SaveSession(b.s, b.File, LoopsSaved::All, all);
    for (auto _ : state) {
        state.PauseTiming();
        InitClipBoard(b.s);
        b.Screen.Log.clear();
        state.ResumeTiming();
        if (!LoadSession(b.s, b.File, SetAsCurrent::No, all, AdoptSwitches::No)) state.SkipWithError("not loaded");
    }
    Count(state, b.File);
}
BENCHMARK(LoadLarge)->Unit(benchmark::kMillisecond);

void ReadPlainly(benchmark::State& state) {
    Large b;
    SaveSession(b.s, b.File, LoopsSaved::All, All());
    std::vector<char> bytes(std::filesystem::file_size(b.File));
    for (auto _ : state) {
        const int file = ::open(b.File.c_str(), O_RDONLY);
        if (::read(file, bytes.data(), bytes.size()) < 0) state.SkipWithError("not read");
        ::close(file);
        benchmark::DoNotOptimize(bytes.data());
    }
    Count(state, b.File);
}
BENCHMARK(ReadPlainly)->Unit(benchmark::kMillisecond);

void AddThe2001stClip(benchmark::State& state) {
    Large b;
    for (auto _ : state) {
        state.PauseTiming();
        DeleteClip(b.s, kFullClipBoard - 1);
        b.s.Clips.ClipStore.shrink_to_fit();
        b.Screen.Log.clear();
        state.ResumeTiming();
        AddNewClip(b.s);
    }
}
BENCHMARK(AddThe2001stClip)->Unit(benchmark::kMicrosecond);

void RescanTenThousandFiles(benchmark::State& state) {
    Large b;
    for (int k = 0; k < kManyFiles; ++k) test::WriteBytes(b.Folder / ("Sample " + std::to_string(k) + ".wav"), "RIFF");
    for (auto _ : state) UpdatePickFile(b.s, 0);
    if (b.s.Bins[0].Rows.size() != kManyFiles) state.SkipWithError("files missing");
}
BENCHMARK(RescanTenThousandFiles)->Unit(benchmark::kMillisecond);

/// Three bins of ten thousand samples each, whose folders have not been touched for a minute.
struct FullBins : test::Instrument {
    test::TempFolder Folders[kBins];

    FullBins() {
        for (int bin = 0; bin < kBins; ++bin) {
            for (int k = 0; k < kManyFiles; ++k) {
                test::WriteBytes(Folders[bin] / ("Sample " + std::to_string(k) + ".wav"), "RIFF");
            }
            Touch(bin, std::chrono::minutes(1));
            s.Bins[bin].Folder = Folders[bin].Path();
            UpdatePickFile(s, bin);
        }
    }
    void Touch(int bin, std::chrono::minutes ago) {
        std::filesystem::last_write_time(Folders[bin].Path(), std::filesystem::file_time_type::clock::now() - ago);
    }
};

void LookAtThreeBinsThatHaveNotChanged(benchmark::State& state) {
    FullBins b;
    for (auto _ : state) LookAtPickFiles(b.s);
}
BENCHMARK(LookAtThreeBinsThatHaveNotChanged)->Unit(benchmark::kMicrosecond);

void LookAtThreeBinsOfWhichOneHasChanged(benchmark::State& state) {
    FullBins b;
    int k = 0;
    for (auto _ : state) {
        state.PauseTiming();
        test::WriteBytes(b.Folders[1] / ("new " + std::to_string(++k) + ".wav"), "RIFF");
        b.Touch(1, std::chrono::minutes(1 + k));
        state.ResumeTiming();
        LookAtPickFiles(b.s);
    }
    if (b.s.Bins[1].Rows.size() != static_cast<std::size_t>(kManyFiles + k)) state.SkipWithError("files missing");
}
BENCHMARK(LookAtThreeBinsOfWhichOneHasChanged)->Unit(benchmark::kMillisecond);

/// One turn of the check that follows a look.
void CompareSixteenFiles(benchmark::State& state) {
    FullBins b;
    for (auto _ : state) {
        if (!CheckPickFiles(b.s, 16)) LookAtPickFiles(b.s);
    }
}
BENCHMARK(CompareSixteenFiles)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace marvolin

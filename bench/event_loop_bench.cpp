/// \file
/// How late the ticks come and how much CPU the program uses while the window is shown: idle, and with a knob dragged
/// without pause; what a return to the browser costs; and where the steps of a Drum LoopTrack fall in the sound. Runs
/// the instrument like the program, except for the sound, which a thread renders at the pace of a card. Prints figures;
/// asserts nothing.
///
/// The first argument is the number of seconds of each run, 30 by default.

#include <sys/resource.h>

#include <QMouseEvent>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <thread>
#include <vector>

#include "audio/openal/sound.h"
#include "audio/play_modes.h"
#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "browser/sample_bins.h"
#include "core/files/paths.h"
#include "core/session.h"
#include "instrument/shut_down.h"
#include "instrument/start_up.h"
#include "performance/pad/mix_pad.h"
#include "persistence/session_file_store.h"
#include "scripting/lua_script.h"
#include "scripting/script_host.h"
#include "sequencing/grid_timers.h"
#include "window/controls/knob.h"
#include "window/tabs/tab_mix_pad.h"
#include "window/toolkit/application.h"
#include "window/toolkit/mersenne_random.h"
#include "window/toolkit/qt_alarm.h"
#include "window/toolkit/qt_desktop.h"
#include "window/toolkit/qt_display.h"
#include "window/toolkit/qt_windows.h"

using namespace marvolin;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int kPeriod = 128;

/// Timers that record when the ticks of the 10 ms clock come.
class NotedTimers : public TimerFactory {
public:
    NotedTimers(CardTime& time, Alarm& alarm) : timers_(time, alarm) {}
    std::vector<Clock::time_point> Ticks;
    bool Noting = false;
    std::unique_ptr<PeriodicTimer> Create(Tick tick) override {
        const bool first = made_++ == 0;  // the step clock is the first timer that start-up makes
        return timers_.Create([this, first, tick](std::int32_t ms) {
            if (first && Noting) Ticks.push_back(Clock::now());
            tick(ms);
        });
    }

private:
    GridTimers timers_;
    int made_ = 0;
};

double CpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec);
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// The card: renders a period whenever it is due, and keeps the sound on request.
class Card {
public:
    explicit Card(LoopbackRenderer& renderer) : thread_([this, &renderer] { Run(renderer); }) {}
    ~Card() {
        on_ = false;
        thread_.join();
    }
    std::atomic<bool> Keeping{false};
    std::vector<std::int16_t> Kept;

private:
    void Run(LoopbackRenderer& renderer) {
        std::vector<std::int16_t> frames(2 * kPeriod);
        const auto period = std::chrono::nanoseconds(1'000'000'000LL * kPeriod / 44100);
        auto due = Clock::now();
        while (on_) {
            renderer.Render(frames.data(), kPeriod);
            if (Keeping) Kept.insert(Kept.end(), frames.begin(), frames.end());
            due += period;
            std::this_thread::sleep_until(due);
        }
    }
    std::atomic<bool> on_{true};
    std::thread thread_;
};

double At(std::vector<double> values, double share) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
}

/// Lateness of each tick against a grid of 10 ms that begins at the earliest tick relative to it.
void PrintLateness(const char* what, const std::vector<Clock::time_point>& ticks, double cpu, double seconds) {
    std::vector<double> late;
    double earliest = 1e9;
    long long place = 0;  // on the grid; a tick after a gap skips places
    for (std::size_t i = 0; i < ticks.size(); ++i) {
        const auto ms = [&](std::size_t from) {
            return std::chrono::duration<double, std::milli>(ticks[i] - ticks[from]).count();
        };
        if (i > 0) place += std::max(1LL, std::llround(ms(i - 1) / 10.0));
        late.push_back(ms(0) - 10.0 * static_cast<double>(place));
        earliest = std::min(earliest, late.back());
    }
    for (double& off : late) off -= earliest;
    std::printf("%-28s ticks %6zu  late ms: median %.2f  p99 %.2f  max %.2f   cpu %.1f %% of one core\n", what,
                ticks.size(), At(late, 0.5), At(late, 0.99), At(late, 1.0), 100 * cpu / seconds);
}

template <typename Act>
void RunFor(QApplication& application, double seconds, NotedTimers& timers, const char* what, bool moves, Act act) {
    timers.Ticks.clear();
    timers.Noting = true;
    const double cpu = CpuSeconds();
    QTimer hand;
    hand.setTimerType(Qt::PreciseTimer);
    int count = 0;
    hand.callOnTimeout([&] { act(count++); });
    if (moves) hand.start(8);  // 125 moves a second
    // Not quit(), which would close the windows first.
    QTimer::singleShot(static_cast<int>(seconds * 1000), &application, [] { QCoreApplication::exit(); });
    application.exec();
    timers.Noting = false;
    PrintLateness(what, timers.Ticks, CpuSeconds() - cpu, seconds);
}

/// A click of four milliseconds in half a second, mono.
std::string WriteClick() {
    const auto path = std::filesystem::temp_directory_path() / "marvolin_bench_click.WAV";
    std::vector<std::int16_t> sample(22050, 0);
    for (int i = 0; i < 176; ++i) sample[static_cast<std::size_t>(i)] = i % 2 == 0 ? 20000 : -20000;
    const auto bytes = static_cast<std::uint32_t>(sample.size() * 2);
    std::ofstream file(path, std::ios::binary);
    const auto put = [&](auto value) { file.write(reinterpret_cast<const char*>(&value), sizeof value); };
    file << "RIFF";
    put(static_cast<std::uint32_t>(36 + bytes));
    file << "WAVEfmt ";
    put(std::uint32_t{16});
    put(std::uint16_t{1});
    put(std::uint16_t{1});
    put(std::uint32_t{44100});
    put(std::uint32_t{88200});
    put(std::uint16_t{2});
    put(std::uint16_t{16});
    file << "data";
    put(bytes);
    file.write(reinterpret_cast<const char*>(sample.data()), static_cast<std::streamsize>(bytes));
    return path.string();
}

void PrintOnsets(const std::vector<std::int16_t>& sound) {
    std::vector<double> distances;
    std::map<int, int> histogram;
    long last = -1;
    for (std::size_t i = 0; i < sound.size() / 2; ++i) {
        if (std::abs(sound[2 * i]) < 4000) continue;
        const auto frame = static_cast<long>(i);
        if (last >= 0 && frame - last < 2000) continue;  // inside the same click
        if (last >= 0) {
            distances.push_back(static_cast<double>(frame - last) / 44.1);
            ++histogram[static_cast<int>(std::lround(distances.back()))];
        }
        last = frame;
    }
    std::printf("steps of 250 ms in the sound: %zu distances, ms: min %.1f  median %.1f  p99 %.1f  max %.1f\n",
                distances.size(), At(distances, 0), At(distances, 0.5), At(distances, 0.99), At(distances, 1));
    for (const auto& [ms, count] : histogram) std::printf("   %4d ms: %d\n", ms, count);
}

struct NoJoysticks : DirectInput {
    std::vector<std::string> GetDIEnumDevices(std::int32_t, std::int32_t) override { return {}; }
    std::unique_ptr<DirectInputDevice> CreateDevice(const std::string&) override { return nullptr; }
};

/// The program with its window, its sound rendered by hand.
struct Program {
    explicit Program(std::shared_ptr<CardClock> clock) : Clock(std::move(clock)) {}
    std::shared_ptr<CardClock> Clock;
    QtAlarm Bell;
    QtDesktop Desktop;
    QtDisplay Display;
    QtWindows Windows{Display, Desktop};
    NotedTimers Timers{*Clock, Bell};
    MersenneRandom Chance;
    LuaScript Lua;
    ScriptHost Scripts{Lua, Desktop};
    SessionFileStore Store;
    LoopbackRenderer Renderer{Clock, kPeriod};
    Session s{Services{Display,
                       Desktop,
                       Windows,
                       Chance,
                       Timers,
                       Scripts,
                       Store,
                       [this] { return Renderer.Root(); },
                       [] { return std::make_unique<NoJoysticks>(); },
                       {}}};

    /// True when it is running, its window shown.
    bool Start() {
        Windows.Attach(s, {[] {}, [this] { Form_QueryUnload(s); }, {}, {}, {}});
        const StartUpHooks hooks{nullptr, [](Session& session) {
                                     PadGeometryInit(session, TabMixPad::InnerWidth(), TabMixPad::InnerHeight());
                                 }};
        return RunMain(s, hooks);
    }
};

/// Four LoopTracks sound while a knob is dragged without pause.
void MeasureKnob(Program& program, QApplication& application, double seconds, const std::string& click) {
    std::string folder;
    std::string name;
    SplitPath(click, folder, name);
    for (Row row = 0; row < kLoopTracks; ++row) {
        LoopLoad(program.s, row, folder, name);
        LoopPlay(program.s, row, true);
    }
    auto* knob = program.Windows.Main()->findChild<KnobControl*>("VolKnob_0");
    const auto mouse = [&](QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, at, knob->mapToGlobal(at), button, held, {});
        QCoreApplication::sendEvent(knob, &event);
    };
    mouse(QEvent::MouseButtonPress, {20, 20}, Qt::LeftButton, Qt::LeftButton);
    RunFor(application, seconds, program.Timers, "four sound, a knob dragged", true, [&](int move) {
        mouse(QEvent::MouseMove, {20.0 - move % 30, 20}, Qt::NoButton, Qt::LeftButton);
    });
    mouse(QEvent::MouseButtonRelease, {20, 20}, Qt::LeftButton, Qt::NoButton);
    StopAll(program.s);
}

/// Milliseconds of the user-interface thread that `act` takes.
double ThreadMilliseconds(const std::function<void()>& act) {
    const auto now = [] {
        timespec t{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
        return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_nsec) * 1e-6;
    };
    const double before = now();
    act();
    return now() - before;
}

/// What a return to the browser costs whose bins hold ten thousand samples each: with nothing changed, and with a new
/// sample in one of them.
void MeasureBrowser(Session& s) {
    namespace fs = std::filesystem;
    const fs::path root = fs::temp_directory_path() / "marvolin_bench_bins";
    const auto folder = [&](int bin) { return root / std::to_string(bin); };
    const auto age = [&](int bin, int minutes) {
        fs::last_write_time(folder(bin), fs::file_time_type::clock::now() - std::chrono::minutes(minutes));
    };
    std::vector<double> first;
    for (int bin = 0; bin < kBins; ++bin) {
        fs::create_directories(folder(bin));
        for (int k = 0; k < 10000; ++k) std::ofstream(folder(bin) / ("Sample " + std::to_string(k) + ".wav")) << "RIFF";
        age(bin, 1);
        SetPickDir(s, bin, folder(bin).string());
        first.push_back(ThreadMilliseconds([&] { UpdatePickFile(s, bin); }));
    }
    std::vector<double> unchanged;
    std::vector<double> changed;
    for (int run = 0; run < 20; ++run) {
        unchanged.push_back(ThreadMilliseconds([&] { LookAtPickFiles(s); }));
        std::ofstream(folder(1) / ("new " + std::to_string(run) + ".wav")) << "RIFF";
        age(1, 2 + run);
        changed.push_back(ThreadMilliseconds([&] { LookAtPickFiles(s); }));
    }
    std::printf(
        "bins of 10,000 samples, ms of the thread: first scan %.1f, look with nothing changed %.3f (max %.3f), "
        "with one bin changed %.1f (max %.1f)\n",
        At(first, 0), At(unchanged, 0.5), At(unchanged, 1), At(changed, 0.5), At(changed, 1));
    fs::remove_all(root);
}

/// One Drum LoopTrack with steps of 250 ms.
void MeasureDrum(Program& program, QApplication& application, double seconds, Card& card) {
    Session& s = program.s;
    s.Set[0].Vol = kVolFull;
    s.Set[0].StepDuration = 25;
    s.Set[0].Swing = 0;
    LoopSetPlayMode(s, 0, kDrum, false);
    LoopPlay(s, 0, true);
    card.Kept.reserve(static_cast<std::size_t>(2 * 44100 * (2 * seconds + 2)));
    card.Keeping = true;
    RunFor(application, 2 * seconds, program.Timers, "one Drum LoopTrack steps", false, [](int) {});
    card.Keeping = false;
    PrintOnsets(card.Kept);
}

}  // namespace

int main(int argc, char** argv) {
    const double seconds = argc > 1 ? std::atof(argv[1]) : 30;
    const auto clock = std::make_shared<CardClock>();
    Application application(argc, argv, *clock);
    Program program(clock);
    if (!program.Start()) return EXIT_FAILURE;
    Card card(program.Renderer);
    const std::string click = WriteClick();
    RunFor(application, seconds, program.Timers, "idle, nothing sounds", false, [](int) {});
    MeasureKnob(program, application, seconds, click);
    MeasureBrowser(program.s);
    MeasureDrum(program, application, seconds, card);
    std::filesystem::remove(click);
    program.Windows.Main()->close();
    return EXIT_SUCCESS;
}

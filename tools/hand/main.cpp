/// \file
/// The hostile hand: random gestures on the whole program in one process. See `Usage`.

#include <QStandardPaths>
#include <QtGlobal>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "fakes/temp_folder.h"
#include "guard.h"
#include "run.h"
#include "services.h"
#include "window/toolkit/application.h"

using namespace marvolin;
using namespace marvolin::hand;

namespace {

constexpr int kRunsAProcess = 100;

void Usage() {
    std::puts(
        "hand [--seed N] [--gestures N] [--minutes M] [--print] [--paint] [--check-all]\n"
        "Random gestures on the program. A seed stands for a run of 2000 gestures on an instrument that was just "
        "started;\n"
        "the next run has the next seed. --gestures or --minutes end it, otherwise one run does. --paint paints every\n"
        "window, which every eighth run does anyway. --check-all looks at all controls after each gesture.\n"
        "Exit status 1 with a finding.");
}

struct Orders {
    std::uint64_t Seed = 1;
    std::int64_t Gestures = 0;  ///< 0 no limit
    double Minutes = 0;         ///< 0 no limit
    bool Print = false;
    bool Paint = false;
    bool CheckAll = false;
};

std::optional<Orders> Read(int argc, char** argv) {
    Orders orders;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
        if (word == "--print") {
            orders.Print = true;
        } else if (word == "--paint") {
            orders.Paint = true;
        } else if (word == "--check-all") {
            orders.CheckAll = true;
        } else if (value == nullptr) {
            return std::nullopt;
        } else if (word == "--seed") {
            orders.Seed = std::strtoull(argv[++i], nullptr, 10);
        } else if (word == "--gestures") {
            orders.Gestures = std::strtoll(argv[++i], nullptr, 10);
        } else if (word == "--minutes") {
            orders.Minutes = std::strtod(argv[++i], nullptr);
        } else {
            return std::nullopt;
        }
    }
    if (orders.Gestures == 0 && orders.Minutes == 0) orders.Gestures = kGesturesARun;
    return orders;
}

/// The platform without a screen says what it cannot do.
void Say(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith("This plugin does not support")) std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

/// The runs of one process, one seed after the other.
void PlayRuns(const Orders& orders, Notes& notes) {
    qInstallMessageHandler(Say);
    int argc = 1;
    char name[] = "hand";
    char* argv[] = {name, nullptr};
    PassedTime time;
    Application application(argc, argv, time);
    for (int run = 0; run < kRunsAProcess && !notes.Over(orders.Gestures, orders.Minutes); ++run) {
        RunOptions options;
        options.Seed = notes.Seed;
        options.Gestures = notes.GesturesOfNextRun(orders.Gestures);
        options.CheckAll = orders.CheckAll;
        options.Print = orders.Print;
        options.Paint = orders.Paint || options.Seed % 8 == 0;
        options.OnGesture = [&](int number, const std::string& words) { notes.Say(number, words); };
        notes.EndRun(PlayRun(options));
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::optional<Orders> orders = Read(argc, argv);
    if (!orders) {
        Usage();
        return 2;
    }
    // A home of its own: what the toolkit remembers is neither read nor changed.
    const test::TempFolder home;
    ::setenv("HOME", home.Path().c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", home.In("config").c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", home.Path().c_str(), 1);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    SharedNotes notes(orders->Seed);
    while (!notes->Over(orders->Gestures, orders->Minutes)) {
        if (!notes.InChild([&] { PlayRuns(*orders, *notes); })) break;
    }
    return notes.Report();
}

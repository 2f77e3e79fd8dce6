// How long a question waits for its answer: from a call for a page of Help until its window has been painted.

#include <benchmark/benchmark.h>

#include <QApplication>

#include "core/help.h"
#include "window/help/help_viewer.h"
#include "window/toolkit/theme.h"

namespace {

using namespace marvolin;

constexpr std::int32_t kVolumePage = 10026;

std::string HelpList() { return std::string(MARVOLIN_FOLDER) + "/" + std::string(kHelpFile); }

void Painted(HelpViewer& viewer) {
    QCoreApplication::processEvents();
    viewer.repaint();
}

/// The first question of a run: the window is made.
void FirstQuestion(benchmark::State& state) {
    for (auto _ : state) {
        HelpViewer viewer;
        viewer.Open(HelpList(), kVolumePage, nullptr);
        Painted(viewer);
    }
}
BENCHMARK(FirstQuestion)->Unit(benchmark::kMillisecond);

/// Every other one: the window is there, open or closed.
void NextQuestion(benchmark::State& state) {
    HelpViewer viewer;
    std::int32_t page = kVolumePage;
    for (auto _ : state) {
        viewer.Open(HelpList(), page, nullptr);
        Painted(viewer);
        page = page == kVolumePage ? kVolumePage + 1 : kVolumePage;
    }
}
BENCHMARK(NextQuestion)->Unit(benchmark::kMillisecond);

/// The longest page.
void ScriptingPage(benchmark::State& state) {
    HelpViewer viewer;
    for (auto _ : state) {
        viewer.Open(HelpList(), kVolumePage, nullptr);
        viewer.Open(HelpList(), 10913, nullptr);
        Painted(viewer);
    }
}
BENCHMARK(ScriptingPage)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    // Where there is no display, the figures are those without one.
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    marvolin::theme::Apply(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

/// \file
/// What the component check costs the start. The libraries that the program is linked to are loaded before, as they are
/// in the program; those that it loads later are not.

#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include "check/check_components.h"
#include "check/loader_libraries.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

void LoadWhatTheProgramIsLinkedTo() {
    for (const StandIn& standIn : StandIns()) {
        for (const LoaderLibrary& library : standIn.Libraries) {
            if (library.Function != nullptr) ::dlopen(library.File, RTLD_LAZY);
        }
    }
}

void Check(benchmark::State& state) {
    LoadWhatTheProgramIsLinkedTo();
    test::Instrument i;
    for (auto _ : state) {
        LoaderLibraries loader;
        benchmark::DoNotOptimize(CheckComponents(i.s, loader));
    }
    if (!i.Desk.Boxes.empty()) state.SkipWithError(i.Desk.LastBox().c_str());
}

void TheFirstCheckOfTheProcess(benchmark::State& state) { Check(state); }
void FurtherChecks(benchmark::State& state) { Check(state); }

// In this order, and the first once: it finds nothing warm.
BENCHMARK(TheFirstCheckOfTheProcess)->Iterations(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(FurtherChecks)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace marvolin

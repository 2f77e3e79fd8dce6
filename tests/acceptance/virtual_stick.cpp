// A joystick for the stage: a library that is loaded into the program before all others and gives it a stick of SDL's
// own. Its orders are the lines of the pipe that STAGE_STICK names: "plug", "axis NUMBER VALUE", "pull".

#include "performance/virtual_stick.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <thread>

namespace marvolin::test {
namespace {

constexpr int kAxes = 4;
constexpr int kButtons = 8;
constexpr int kHats = 1;

void Obey(const std::string& order, std::unique_ptr<VirtualStick>& stick) {
    std::istringstream words(order);
    std::string what;
    int axis = 0;
    int value = 0;
    words >> what >> axis >> value;
    if (what == "plug") stick = std::make_unique<VirtualStick>(kAxes, kButtons, kHats);
    if (what == "pull") stick.reset();
    if (what == "axis" && stick) stick->Axis(axis, value);
}

void ListenTo(const std::string& pipe) {
    std::unique_ptr<VirtualStick> stick;
    try {
        // Held for writing, too: each writer closes the pipe behind its order, and this goes on to wait for the next.
        std::fstream orders(pipe, std::ios::in | std::ios::out);
        for (std::string order; std::getline(orders, order);) Obey(order, stick);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "no virtual stick: %s\n", error.what());
    }
}

struct Start {
    Start() {
        const char* pipe = std::getenv("STAGE_STICK");
        if (pipe == nullptr) return;
        std::thread(ListenTo, std::string(pipe)).detach();
        // Programs that this one starts get no stick.
        unsetenv("LD_PRELOAD");
        unsetenv("STAGE_STICK");
    }
};
const Start kStart;

}  // namespace
}  // namespace marvolin::test

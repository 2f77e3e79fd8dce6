// Writes the start-up demo into the program's folder, with its samples beside it.

#include <cstdio>
#include <filesystem>
#include <string>

#include "demo.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_demo FOLDER\n");
        return 2;
    }
    const std::string failure = marvolin::demo::WriteDemo(std::filesystem::absolute(argv[1]).string());
    if (failure.empty()) return 0;
    std::fprintf(stderr, "make_demo: %s\n", failure.c_str());
    return 1;
}

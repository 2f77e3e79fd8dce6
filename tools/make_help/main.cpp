// Writes the pages of Help: make_help TEXTS FOLDER. What lay in the folder before is removed.

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>

#include "pages.h"

using namespace marvolin::help;

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_help TEXTS FOLDER\n");
        return 2;
    }
    try {
        const Files files = MakePages(ReadTexts(argv[1]));
        const std::filesystem::path folder = argv[2];
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        for (const auto& [name, content] : files) {
            std::ofstream file(folder / name, std::ios::binary);
            file << content;
            file.close();
            if (!file) throw std::runtime_error("cannot write " + name);
        }
        std::printf("%zu files\n", files.size());
        return 0;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "make_help: %s\n", e.what());
        return 1;
    }
}

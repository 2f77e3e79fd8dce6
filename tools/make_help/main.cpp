// Writes the pages of Help, and the same as a manual in Markdown: make_help TEXTS FOLDER MANUAL. What lay in the two
// folders before is removed.

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "manual.h"
#include "pages.h"

using namespace marvolin::help;

namespace {

void Write(const Files& files, const std::filesystem::path& folder) {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    for (const auto& [name, content] : files) {
        std::ofstream file(folder / name, std::ios::binary);
        file << content;
        file.close();
        if (!file) throw std::runtime_error("cannot write " + name);
    }
    std::printf("%zu files in %s\n", files.size(), folder.c_str());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: make_help TEXTS FOLDER MANUAL\n");
        return 2;
    }
    try {
        const std::vector<PageText> texts = ReadTexts(argv[1]);
        Write(MakePages(texts), argv[2]);
        Write(MakeManual(texts), argv[3]);
        return 0;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "make_help: %s\n", e.what());
        return 1;
    }
}

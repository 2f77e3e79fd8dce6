/// \file
/// Runs a fuzz target once over each file of the given folders, for compilers without a fuzzer.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    int all = 0;
    for (int folder = 1; folder < argc; ++folder) {
        int inputs = 0;
        for (const auto& entry : std::filesystem::directory_iterator(argv[folder])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++inputs;
        }
        // A missing corpus would pass unnoticed.
        if (inputs == 0) return 1;
        all += inputs;
    }
    std::printf("%d inputs\n", all);
    return all > 0 ? 0 : 1;
}

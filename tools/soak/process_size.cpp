#include "soak/process_size.h"

#include <malloc.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace marvolin::soak {

namespace {

/// The number behind `key` in a file of lines, in kilobytes or plain. `std::runtime_error` when there is none: 0 would
/// pass for memory that does not grow.
std::int64_t NumberBehind(const char* path, const std::string& key) {
    std::ifstream file(path);
    for (std::string word; file >> word;) {
        std::int64_t number = 0;
        if (word == key && file >> number) return number;
    }
    throw std::runtime_error(std::string(path) + " has no " + key);
}

int EntriesOf(const char* folder) {
    return static_cast<int>(
        std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
}

}  // namespace

ProcessSize SizeOfThisProcess() {
    ::malloc_trim(0);
    const struct mallinfo2 heap = ::mallinfo2();
    ProcessSize size;
    size.InUse = static_cast<std::int64_t>(heap.uordblks + heap.hblkhd);
    size.Resident = NumberBehind("/proc/self/smaps_rollup", "Rss:") * 1024;
    size.Own = NumberBehind("/proc/self/smaps_rollup", "Pss:") * 1024;
    size.Handles = EntriesOf("/proc/self/fd") - 1;  // without the one that lists them
    size.Threads = EntriesOf("/proc/self/task");
    return size;
}

}  // namespace marvolin::soak

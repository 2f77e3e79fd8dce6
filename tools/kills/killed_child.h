#pragma once
/// \file
/// A child process that is killed at some moment, and what it has reported by then.

#include <sys/mman.h>

#include <cstdint>
#include <functional>
#include <new>
#include <stdexcept>

namespace marvolin::kills {

/// A `T`, made of atomic numbers, in memory that this process shares with its children and that outlives them.
template <typename T>
class Shared {
public:
    Shared() {
        void* memory = ::mmap(nullptr, sizeof(T), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) throw std::runtime_error("no memory");
        value_ = new (memory) T;
    }
    ~Shared() { ::munmap(value_, sizeof(T)); }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;
    T* operator->() { return value_; }

private:
    T* value_;
};

/// How a child process ended.
enum class Ending : std::uint8_t { Killed, Finished, Failed };

/// Runs `act` in a child process and kills it `micros` microseconds after it has begun, unless it has ended by then.
/// `act` returns false when it has failed.
Ending RunUntilKilled(const std::function<bool()>& act, long micros);

/// Microseconds that `act` takes in a child process. It can be many times slower than in this one, whose memory the
/// child first has to copy. At most a minute; one that fails raises a `std::runtime_error`.
long TimeInChild(const std::function<bool()>& act);

}  // namespace marvolin::kills

#pragma once
/// \file
/// Limits of the system, put on this process for a while.

#include <sys/resource.h>
#include <unistd.h>

#include <cstdint>
#include <vector>

namespace marvolin::test {

/// Lets no file grow beyond `bytes`, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes);
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

/// A system call that is refused: with a `Mask`, only when a bit of it is set in the argument (0..5).
struct RefusedCall {
    std::uint32_t Number;
    std::uint32_t Error;
    std::uint32_t Argument = 0;
    std::uint32_t Mask = 0;
};

/// Refuses these calls to the process from now on, to its end: for child processes.
void RefuseCalls(const std::vector<RefusedCall>& calls);
/// The calls that give a file another name, refused.
std::vector<RefusedCall> Renames(std::uint32_t error);
/// The calls that give a file a further name, refused.
std::vector<RefusedCall> Links(std::uint32_t error);

/// Acts as an ordinary user, whom permissions bind; the superuser may write anywhere.
class OrdinaryUser {
public:
    OrdinaryUser();
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t user_;
};

}  // namespace marvolin::test

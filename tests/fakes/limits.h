#pragma once
/// \file
/// Limits of the system, put on this process for a while.

#include <sys/resource.h>
#include <unistd.h>

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

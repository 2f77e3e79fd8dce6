#include "fakes/limits.h"

#include <csignal>
#include <exception>
#include <stdexcept>

namespace marvolin::test {

namespace {

constexpr uid_t kNobody = 65534;

}  // namespace

FullDisk::FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{bytes, before_.rlim_max};
    if (::setrlimit(RLIMIT_FSIZE, &small) != 0) throw std::runtime_error("no limit");
}

FullDisk::~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
}

OrdinaryUser::OrdinaryUser() : user_(::geteuid()) {
    if (user_ == 0 && ::seteuid(kNobody) != 0) throw std::runtime_error("no other user");
}

OrdinaryUser::~OrdinaryUser() {
    if (::geteuid() != user_ && ::seteuid(user_) != 0) std::terminate();
}

}  // namespace marvolin::test

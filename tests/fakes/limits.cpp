#include "fakes/limits.h"

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <csignal>
#include <cstddef>
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

void RefuseCalls(const std::vector<RefusedCall>& calls) {
    std::vector<sock_filter> program;
    for (const RefusedCall& call : calls) {
        const std::uint8_t past = call.Mask == 0 ? 1 : 3;
        program.push_back(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)));
        program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call.Number, 0, past));
        if (call.Mask != 0) {
            const auto argument = static_cast<std::uint32_t>(offsetof(seccomp_data, args)) + call.Argument * 8;
            program.push_back(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, argument));
            program.push_back(BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, call.Mask, 0, 1));
        }
        program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | call.Error));
    }
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0) {
        ::_exit(2);
    }
}

std::vector<RefusedCall> Renames(std::uint32_t error) {
    return {
#ifdef __NR_rename
        {__NR_rename, error},
#endif
#ifdef __NR_renameat
        {__NR_renameat, error},
#endif
        {__NR_renameat2, error}};
}

std::vector<RefusedCall> Links(std::uint32_t error) {
    return {
#ifdef __NR_link
        {__NR_link, error},
#endif
        {__NR_linkat, error}};
}

OrdinaryUser::OrdinaryUser() : user_(::geteuid()) {
    if (user_ == 0 && ::seteuid(kNobody) != 0) throw std::runtime_error("no other user");
}

OrdinaryUser::~OrdinaryUser() {
    if (::geteuid() != user_ && ::seteuid(user_) != 0) std::terminate();
}

}  // namespace marvolin::test

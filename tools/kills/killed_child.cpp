#include "kills/killed_child.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>

namespace marvolin::kills {

Ending RunUntilKilled(const std::function<bool()>& act, long micros) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) throw std::runtime_error("no pipe");
    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("no process");
    if (child == 0) {
        ::close(pipe[0]);
        if (::write(pipe[1], "", 1) != 1) ::_exit(1);
        ::_exit(act() ? 0 : 1);
    }
    ::close(pipe[1]);
    char begun = 0;
    const bool isThere = ::read(pipe[0], &begun, 1) == 1;
    // From now on the pipe has nothing to read while the child lives.
    pollfd wait{pipe[0], POLLIN, 0};
    const timespec moment{micros / 1'000'000, micros % 1'000'000 * 1000};
    if (isThere) ::ppoll(&wait, 1, &moment, nullptr);
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    ::close(pipe[0]);
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) return Ending::Killed;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? Ending::Finished : Ending::Failed;
}

long TimeInChild(const std::function<bool()>& act) {
    constexpr long kMost = 60'000'000;
    const auto before = std::chrono::steady_clock::now();
    if (RunUntilKilled(act, kMost) == Ending::Failed) throw std::runtime_error("a child has failed");
    const auto taken = std::chrono::steady_clock::now() - before;
    return static_cast<long>(std::chrono::duration_cast<std::chrono::microseconds>(taken).count());
}

}  // namespace marvolin::kills

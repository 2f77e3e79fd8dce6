#include "guard.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>
#include <thread>

namespace marvolin::hand {

namespace {

constexpr int kWorkDone = 77;  // exit status that the program itself never has
constexpr std::chrono::milliseconds kLook{50};
constexpr std::chrono::seconds kPatience{120};  // longer than any gesture takes, also under a sanitizer

template <std::size_t N>
void Copy(std::array<char, N>& to, const std::string& text) {
    const std::size_t count = std::min(text.size(), N - 1);
    std::memcpy(to.data(), text.data(), count);
    to[count] = 0;
}

}  // namespace

double Notes::Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
}

bool Notes::Over(std::int64_t gestures, double minutes) const {
    return Found || (gestures > 0 && Gestures >= gestures) || (minutes > 0 && Seconds() >= minutes * 60);
}

int Notes::GesturesOfNextRun(std::int64_t gestures) const {
    return gestures == 0 ? kGesturesARun : static_cast<int>(std::min<std::int64_t>(kGesturesARun, gestures - Gestures));
}

void Notes::Say(int gesture, const std::string& words) {
    if (gesture != Gesture) ++Begun;
    Gesture = gesture;
    Copy(Last[static_cast<std::size_t>(gesture) % kLines], std::to_string(gesture) + " " + words);
}

void Notes::EndRun(const RunResult& result) {
    ++Runs;
    if (result.Early) ++Early;
    Gestures += result.Gestures;
    Checks += result.Checks;
    Answers += result.Answers;
    if (result.Found) Find(result.Found->Seed, result.Found->Gesture, result.Found->What, LastWords());
    ++Seed;
    Gesture = 0;
    for (auto& line : Last) line[0] = 0;
}

void Notes::Find(std::uint64_t seed, int gesture, const std::string& what, const std::string& words) {
    if (Found) return;
    Found = true;
    const int reproduce = std::clamp(gesture, 1, kGesturesARun);
    Copy(Finding, "seed " + std::to_string(seed) + ", gesture " + std::to_string(gesture) + ": " + what +
                      "\nThe last gestures:\n" + words + "Again: hand --seed " + std::to_string(seed) + " --gestures " +
                      std::to_string(reproduce));
}

std::string Notes::LastWords() const {
    std::string words;
    for (std::size_t back = kLines; back-- > 0;) {
        const int gesture = Gesture - static_cast<int>(back);
        const char* line = Last[static_cast<std::size_t>(std::max(gesture, 0)) % kLines].data();
        if (gesture > 0 && *line != 0) words += std::string("  ") + line + "\n";
    }
    return words;
}

SharedNotes::SharedNotes(std::uint64_t seed) {
    void* memory = ::mmap(nullptr, sizeof(Notes), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::runtime_error("no memory to share");
    notes_ = new (memory) Notes;  // in the shared memory
    notes_->FirstSeed = notes_->Seed = seed;
    notes_->Start = std::chrono::steady_clock::now();
}

SharedNotes::~SharedNotes() { ::munmap(notes_, sizeof(Notes)); }

void SharedNotes::FindEnd(const std::string& what) {
    notes_->Find(notes_->Seed, notes_->Gesture, what, notes_->LastWords());
}

bool SharedNotes::InChild(const std::function<void()>& work) {
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("no further process");
    if (child == 0) {
        work();
        std::fflush(nullptr);
        ::_exit(kWorkDone);  // a search for leaks would find what the parent's libraries hold
    }
    int status = 0;
    std::int64_t begun = -1;
    auto since = std::chrono::steady_clock::now();
    while (::waitpid(child, &status, WNOHANG) == 0) {
        std::this_thread::sleep_for(kLook);
        const auto now = std::chrono::steady_clock::now();
        if (notes_->Begun != begun) since = now;
        begun = notes_->Begun;
        if (now - since < kPatience) continue;
        ::kill(child, SIGKILL);
        ::waitpid(child, &status, 0);
        FindEnd("the program stands still");
        return false;
    }
    if (WIFSIGNALED(status)) FindEnd("the program died of signal " + std::to_string(WTERMSIG(status)));
    if (WIFEXITED(status) && WEXITSTATUS(status) != kWorkDone)
        FindEnd("the program ended with status " + std::to_string(WEXITSTATUS(status)));
    return !notes_->Found;
}

int SharedNotes::Report() const {
    const Notes& notes = *notes_;
    if (notes.Found) std::printf("found: %s\n", notes.Finding.data());
    const double seconds = std::max(notes.Seconds(), 1e-3);
    std::printf(
        "%lld gestures in %lld runs (%lld closed the window early) from seed %llu on, %.0f s, %.0f gestures a second, "
        "%lld checks, %lld answers: %s\n",
        static_cast<long long>(notes.Gestures), static_cast<long long>(notes.Runs), static_cast<long long>(notes.Early),
        static_cast<unsigned long long>(notes.FirstSeed), seconds, static_cast<double>(notes.Gestures) / seconds,
        static_cast<long long>(notes.Checks), static_cast<long long>(notes.Answers),
        notes.Found ? "a finding" : "no finding");
    return notes.Found ? EXIT_FAILURE : EXIT_SUCCESS;
}

}  // namespace marvolin::hand

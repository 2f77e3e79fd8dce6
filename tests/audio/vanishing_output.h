#pragma once
/// \file
/// An output device that can be pulled out, as a plug can.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

#include "audio/wave_bytes.h"

namespace marvolin::test {

/// Asks until it is so, at most twenty seconds. Whether it was so.
inline bool Eventually(const std::function<bool()>& so) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!so()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::yield();
    }
    return true;
}

/// The default output of SDL leads into a pipe. When nobody reads the pipe any more the driver finds its device gone:
/// its own error on writing, and the way on from there, are those of a device that was unplugged.
/// Lives longer than the service that plays on it.
class VanishingOutput {
public:
    /// `driver` is one of SDL's: "alsa" or "disk".
    explicit VanishingOutput(const std::string& driver)
        : pipe_(folder_.Path("pipe")), config_(folder_.Path("asound.conf")) {
        std::signal(SIGPIPE, SIG_IGN);
        setenv("SDL_AUDIODRIVER", driver.c_str(), 1);
        setenv("SDL_DISKAUDIOFILE", pipe_.c_str(), 1);
        setenv("ALSA_CONFIG_PATH", config_.c_str(), 1);
        PlugIn();
    }
    ~VanishingOutput() {
        Vanish();
        for (const char* name : {"SDL_AUDIODRIVER", "SDL_DISKAUDIOFILE", "ALSA_CONFIG_PATH"}) unsetenv(name);
        std::signal(SIGPIPE, SIG_DFL);
    }
    VanishingOutput(const VanishingOutput&) = delete;
    VanishingOutput& operator=(const VanishingOutput&) = delete;

    /// From now on whoever opens the default output gets a new device. One that is open still has the old.
    void PlugIn() {
        Vanish();
        std::filesystem::remove(pipe_);
        mkfifo(pipe_.c_str(), 0600);
        Configure("pcm.!default { type file slave.pcm { type null } file \"" + pipe_ +
                  "\" format \"raw\" hint { show on description \"Pipe\" } }\n");
        Listen();
    }
    /// The device is pulled out.
    void Vanish() {
        if (reader_ >= 0) close(reader_);
        reader_ = -1;
    }
    /// From now on the default output cannot be opened.
    void Refuse() {
        Vanish();
        std::filesystem::remove(pipe_);
        std::filesystem::create_directory(pipe_);
        Configure("");
    }
    /// Puts an ear to the same device again, past what was left in its pipe.
    void Listen() {
        reader_ = open(pipe_.c_str(), O_RDONLY | O_NONBLOCK);
        while (Arrived()) {
        }
    }
    /// Whether anything at all has arrived since the last look.
    bool Arrived() { return Take() > 0; }
    /// Whether something other than silence arrives.
    bool Heard() {
        return Eventually([this] {
            const std::size_t count = Take();
            for (std::size_t i = 0; i < count; ++i)
                if (bytes_[i] != 0) return true;
            return false;
        });
    }

private:
    /// ALSA reads its configuration again when it is another file.
    void Configure(const std::string& text) {
        const std::string fresh = folder_.Path("fresh.conf");
        std::ofstream(fresh) << text;
        std::filesystem::rename(fresh, config_);
    }
    std::size_t Take() {
        const ssize_t count = read(reader_, bytes_.data(), bytes_.size());
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }

    SampleFolder folder_;
    std::string pipe_;
    std::string config_;
    int reader_ = -1;
    std::array<char, 65536> bytes_{};
};

}  // namespace marvolin::test

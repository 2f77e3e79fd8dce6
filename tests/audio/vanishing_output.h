#pragma once
/// \file
/// An output device that can be unplugged.

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

/// Repeats `so` until it is true, for at most twenty seconds. Returns whether it became true.
inline bool Eventually(const std::function<bool()>& so) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!so()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::yield();
    }
    return true;
}

/// Makes SDL's default output write to a pipe. When the pipe has no reader, the driver gets the same error on writing
/// as from an unplugged device. Must outlive the service that plays on it.
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

    /// From now on, opening the default output gives a new device. One that is already open keeps the old one.
    void PlugIn() {
        Vanish();
        std::filesystem::remove(pipe_);
        mkfifo(pipe_.c_str(), 0600);
        Configure("pcm.!default { type file slave.pcm { type null } file \"" + pipe_ +
                  "\" format \"raw\" hint { show on description \"Pipe\" } }\n");
        Listen();
    }
    /// Unplugs the device.
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
    /// Listens to the same device again, skipping what was left in its pipe.
    void Listen() {
        reader_ = open(pipe_.c_str(), O_RDONLY | O_NONBLOCK);
        while (Arrived()) {
        }
    }
    /// True when anything has arrived since the last call.
    bool Arrived() { return Take() > 0; }
    /// True when something other than silence arrives.
    bool Heard() {
        return Eventually([this] {
            const std::size_t count = Take();
            for (std::size_t i = 0; i < count; ++i)
                if (bytes_[i] != 0) return true;
            return false;
        });
    }

private:
    /// ALSA reads its configuration again when the file is replaced.
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

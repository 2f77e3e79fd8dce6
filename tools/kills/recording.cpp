#include "kills/recording.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

#include "audio/openal/wave_file.h"
#include "audio/output/output_chain.h"
#include "audio/output/recorder.h"
#include "core/errors.h"

namespace marvolin::kills {

namespace {

constexpr int kPeriod = 441;
constexpr std::int64_t kMostBehind = 200'000;  // frames; the chain keeps more

std::int16_t NumberOf(std::int64_t frame) { return static_cast<std::int16_t>(frame % 30'000); }

}  // namespace

std::string RecordNumbered(const std::string& path, std::int64_t frames, std::atomic<std::int64_t>& recorded) {
    const auto chain = std::make_shared<OutputChain>();
    Recorder recorder(chain);
    try {
        recorder.Start(path);
    } catch (const RuntimeError& error) {
        return error.what();
    }
    std::vector<std::int16_t> period(2 * std::size_t{kPeriod});
    for (std::int64_t passed = 0; passed < frames && recorder.IsRunning(); passed += kPeriod) {
        for (std::size_t i = 0; i < std::size_t{kPeriod}; ++i)
            period[2 * i] = period[2 * i + 1] = NumberOf(passed + static_cast<std::int64_t>(i));
        chain->Pass_rt(period.data(), kPeriod);
        recorded = recorder.Frames();
        while (recorder.IsRunning() && passed - recorder.Frames() > kMostBehind)
            std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    recorder.Finish();
    recorded = recorder.Frames();
    return recorder.Failure().value_or("");
}

std::optional<std::int64_t> NumberedFramesIn(const std::string& path) {
    try {
        WaveFile file(path);
        std::vector<std::int16_t> samples(static_cast<std::size_t>(file.Bytes()) / 2);
        file.Read({reinterpret_cast<std::uint8_t*>(samples.data()), 2 * samples.size()});
        for (std::size_t i = 0; i < samples.size(); ++i) {
            if (samples[i] != NumberOf(static_cast<std::int64_t>(i / 2))) return {};
        }
        return static_cast<std::int64_t>(samples.size() / 2);
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace marvolin::kills

#pragma once
/// \file
/// A sound service that logs its calls in order, and fails where a test wants it to.

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "core/errors.h"
#include "core/sound_service.h"

namespace marvolin::test {

/// Content of a sample file of the fake service.
struct FakeSample : KeptSample {
    WaveFormat Format{1, 2, 44100, 16, 4, 176400, 0};
    std::vector<std::uint8_t> Bytes = std::vector<std::uint8_t>(176400, 0);
    FakeSample();
    FakeSample(const FakeSample&);
    FakeSample& operator=(const FakeSample&);
    ~FakeSample() override;
    std::size_t Memory() const override { return Bytes.size(); }
};

/// State shared by all objects of one fake service.
struct FakeSound {
    FakeSound();
    ~FakeSound();
    std::vector<std::string> Log;                              ///< "SetVolume b0 -600", "Play b1 1", ... in order
    std::map<std::string, std::uint32_t> Failures;             ///< operation name -> number that every such call raises
    std::function<void(const std::string& operation)> OnCall;  ///< sees each call of the log, and may raise an error
    std::map<std::string, FakeSample> Samples;                 ///< by path; any other path gets the default sample
    std::vector<std::string> Drivers{"Primary Sound Driver", "Second Device"};
    std::int32_t SpeakerConfig = 4;
    std::int32_t CreateFlags = 0;  ///< of the last sample
    bool LogQueries = false;       ///< also log GetStatus, GetCaps and GetFormat
    int Buffers = 0;               ///< sample buffers made so far; buffer n is called "b" and n in the log
    class Buffer;
    std::map<int, Buffer*> Live;  ///< the sample buffers that are alive, by number

    void Note(const std::string& operation, const std::string& rest) {
        Log.push_back(rest.empty() ? operation : operation + " " + rest);
        if (OnCall) OnCall(operation);
        Check(operation);
    }
    void Check(const std::string& operation) const {
        const auto failure = Failures.find(operation);
        if (failure != Failures.end()) throw SoundError(failure->second);
    }
    /// Entries of the log that start with `prefix`.
    std::vector<std::string> Calls(const std::string& prefix) const {
        std::vector<std::string> calls;
        std::copy_if(Log.begin(), Log.end(), std::back_inserter(calls),
                     [&](const std::string& entry) { return entry.starts_with(prefix); });
        return calls;
    }
    int Count(const std::string& prefix) const { return static_cast<int>(Calls(prefix).size()); }
};

/// A sample buffer, or with number -1 the primary buffer ("p" in the log).
class FakeSound::Buffer : public DirectSoundBuffer {
public:
    Buffer(FakeSound& sound, int number, std::int32_t flags, std::shared_ptr<FakeSample> sample)
        : Sample(std::move(sample)), sound_(sound), number_(number), flags_(flags) {
        if (Sample) Frequency = Sample->Format.SamplesPerSec;
        if (number_ >= 0) sound_.Live[number_] = this;
    }
    ~Buffer() override;
    BufferCaps GetCaps() override {
        Query("GetCaps");
        return {flags_, Sample ? static_cast<std::int32_t>(Sample->Bytes.size()) : 0};
    }
    WaveFormat GetFormat() override {
        Query("GetFormat");
        return Sample ? Sample->Format : WaveFormat{};
    }
    void SetFormat(const WaveFormat& f) override {
        sound_.Note("SetFormat", Name() + " " + std::to_string(f.FormatTag) + " " + std::to_string(f.Channels) + " " +
                                     std::to_string(f.SamplesPerSec) + " " + std::to_string(f.BitsPerSample) + " " +
                                     std::to_string(f.BlockAlign) + " " + std::to_string(f.AvgBytesPerSec) + " " +
                                     std::to_string(f.ExtraSize));
    }
    std::int32_t GetFrequency() override {
        Query("GetFrequency");
        return Frequency;
    }
    void SetFrequency(std::int32_t hertz) override {
        sound_.Note("SetFrequency", Name() + " " + std::to_string(hertz));
        Frequency = hertz;
    }
    std::int32_t GetStatus() override {
        Query("GetStatus");
        return Status;
    }
    std::int32_t GetCurrentPosition() override { return Position; }
    void SetCurrentPosition(std::int32_t bytes) override {
        sound_.Note("SetCurrentPosition", Name() + " " + std::to_string(bytes));
        Position = bytes;
    }
    void Play(std::int32_t flags) override {
        sound_.Note("Play", Name() + " " + std::to_string(flags));
        Status = buffer_status::kPlaying + (flags != 0 ? buffer_status::kLooping : 0);
    }
    void Stop() override {
        sound_.Note("Stop", Name());
        Status = 0;
    }
    void SetVolume(std::int32_t hundredths) override {
        sound_.Note("SetVolume", Name() + " " + std::to_string(hundredths));
        Volume = hundredths;
    }
    void SetPan(std::int32_t hundredths) override {
        sound_.Note("SetPan", Name() + " " + std::to_string(hundredths));
        if ((flags_ & buffer_flags::kControlPan) == 0) throw SoundError(sound_error::kControlUnavailable);
        Pan = hundredths;
    }
    void ReadBuffer(std::int32_t start, std::span<std::uint8_t> data) override {
        Query("ReadBuffer");
        const auto from = static_cast<std::size_t>(start);
        const std::size_t n = std::min(data.size(), Sample->Bytes.size() - from);
        std::copy_n(Sample->Bytes.begin() + static_cast<std::ptrdiff_t>(from), n, data.begin());
    }
    void WriteBuffer(std::int32_t start, std::span<const std::uint8_t> data) override {
        sound_.Note("WriteBuffer", Name());
        const auto from = static_cast<std::size_t>(start);
        const std::size_t n = std::min(data.size(), Sample->Bytes.size() - from);
        std::copy_n(data.begin(), n, Sample->Bytes.begin() + static_cast<std::ptrdiff_t>(from));
    }
    std::shared_ptr<KeptSample> Keep() override { return Sample; }
    std::unique_ptr<DirectSound3DBuffer> GetDirectSound3dBuffer() override;
    std::unique_ptr<DirectSound3DListener> GetDirectSound3dListener() override;
    std::string Name() const { return number_ < 0 ? "p" : "b" + std::to_string(number_); }

    std::shared_ptr<FakeSample> Sample;
    std::int32_t Status = 0;  ///< set it to 0 to let a sample run out
    std::int32_t Position = 0;
    std::int32_t Volume = 0;
    std::int32_t Pan = 0;
    std::int32_t Frequency = 0;

private:
    void Query(const std::string& operation) {
        if (sound_.LogQueries) sound_.Log.push_back(operation + " " + Name());
        sound_.Check(operation);
    }
    FakeSound& sound_;
    int number_;
    std::int32_t flags_;
};

/// "x,y,z" as the log has it.
std::string Text(const Vector3& v);

class FakeListener : public DirectSound3DListener {
public:
    explicit FakeListener(FakeSound& sound) : sound_(sound) {}
    void SetRolloffFactor(float factor) override;
    void SetPosition(const Vector3& p) override;
    void SetOrientation(const Vector3& front, const Vector3& top) override;

private:
    FakeSound& sound_;
};

class FakeDirectX : public DirectX7 {
public:
    explicit FakeDirectX(FakeSound& sound) : sound_(sound) {}
    std::unique_ptr<DSEnum> GetDSEnum() override;
    std::unique_ptr<DirectSound> DirectSoundCreate(const std::string& guid) override;

private:
    FakeSound& sound_;
};

}  // namespace marvolin::test

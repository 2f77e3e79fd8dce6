#pragma once
/// \file
/// A sound service that logs its calls in order, and fails where a test wants it to.

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "core/errors.h"
#include "core/sound_service.h"

namespace marvolin::test {

/// Content of a sample file of the fake service.
struct FakeSample {
    WaveFormat Format{1, 2, 44100, 16, 4, 176400, 0};
    std::vector<std::uint8_t> Bytes = std::vector<std::uint8_t>(176400, 0);
};

/// State shared by all objects of one fake service.
struct FakeSound {
    std::vector<std::string> Log;                   ///< "SetVolume b0 -600", "Play b1 1", ... in order
    std::map<std::string, std::uint32_t> Failures;  ///< operation name -> number that every such call raises
    std::map<std::string, FakeSample> Samples;      ///< by path; any other path gets the default sample
    std::vector<std::string> Drivers{"Primary Sound Driver", "Second Device"};
    std::int32_t SpeakerConfig = 4;
    std::int32_t CreateFlags = 0;  ///< of the last sample
    bool LogQueries = false;       ///< also log GetStatus, GetCaps and GetFormat
    int Buffers = 0;               ///< sample buffers made so far; buffer n is called "b" and n in the log
    class Buffer;
    std::map<int, Buffer*> Live;  ///< the sample buffers that are alive, by number

    void Note(const std::string& operation, const std::string& rest) {
        Log.push_back(rest.empty() ? operation : operation + " " + rest);
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

inline std::string Text(const Vector3& v) {
    auto number = [](float x) {
        std::string text = std::to_string(x);
        return text;
    };
    return number(v.X) + "," + number(v.Y) + "," + number(v.Z);
}

class FakeSound3DBuffer : public DirectSound3DBuffer {
public:
    FakeSound3DBuffer(FakeSound& sound, std::string name) : sound_(sound), name_(std::move(name)) {}
    void SetMinDistance(float d) override { sound_.Note("SetMinDistance", name_ + " " + std::to_string(d)); }
    void SetMaxDistance(float d) override { sound_.Note("SetMaxDistance", name_ + " " + std::to_string(d)); }
    void SetPosition(const Vector3& p) override {
        sound_.Note("SetPosition", name_ + " " + Text(p));
        position_ = p;
    }
    Vector3 GetPosition() override { return position_; }

private:
    FakeSound& sound_;
    std::string name_;
    Vector3 position_;
};

class FakeListener : public DirectSound3DListener {
public:
    explicit FakeListener(FakeSound& sound) : sound_(sound) {}
    void SetRolloffFactor(float factor) override { sound_.Note("SetRolloffFactor", std::to_string(factor)); }
    void SetPosition(const Vector3& p) override { sound_.Note("SetListenerPosition", Text(p)); }
    void SetOrientation(const Vector3& front, const Vector3& top) override {
        sound_.Note("SetOrientation", Text(front) + " " + Text(top));
    }

private:
    FakeSound& sound_;
};

/// A sample buffer, or with number -1 the primary buffer ("p" in the log).
class FakeSound::Buffer : public DirectSoundBuffer {
public:
    Buffer(FakeSound& sound, int number, std::int32_t flags, std::shared_ptr<FakeSample> sample)
        : Sample(std::move(sample)), sound_(sound), number_(number), flags_(flags) {
        if (Sample) Frequency = Sample->Format.SamplesPerSec;
        if (number_ >= 0) sound_.Live[number_] = this;
    }
    ~Buffer() override {
        if (number_ >= 0) {
            sound_.Live.erase(number_);
            sound_.Log.push_back("Release " + Name());
        }
    }
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
    std::unique_ptr<DirectSound3DBuffer> GetDirectSound3dBuffer() override {
        sound_.Check("GetDirectSound3dBuffer");
        if ((flags_ & buffer_flags::kControl3D) == 0) throw SoundError(sound_error::kNoInterface);
        return std::make_unique<FakeSound3DBuffer>(sound_, Name());
    }
    std::unique_ptr<DirectSound3DListener> GetDirectSound3dListener() override {
        sound_.Note("GetDirectSound3dListener", "");
        if ((flags_ & buffer_flags::kControl3D) == 0) throw SoundError(sound_error::kNoInterface);
        return std::make_unique<FakeListener>(sound_);
    }
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

class FakeDevice : public DirectSound {
public:
    explicit FakeDevice(FakeSound& sound) : sound_(sound) {}
    ~FakeDevice() override { sound_.Log.push_back("Release device"); }
    void SetCooperativeLevel(std::int32_t level) override {
        sound_.Note("SetCooperativeLevel", std::to_string(level));
        sound_.Check("SetCooperativeLevel " + std::to_string(level));
    }
    std::unique_ptr<DirectSoundBuffer> CreateSoundBuffer(std::int32_t flags) override {
        sound_.Note("CreateSoundBuffer", std::to_string(flags));
        return std::make_unique<FakeSound::Buffer>(sound_, -1, flags, nullptr);
    }
    std::unique_ptr<DirectSoundBuffer> CreateSoundBufferFromFile(const std::string& path, std::int32_t flags) override {
        sound_.Note("CreateSoundBufferFromFile", path);
        sound_.CreateFlags = flags;
        const auto found = sound_.Samples.find(path);
        auto sample = std::make_shared<FakeSample>(found == sound_.Samples.end() ? FakeSample{} : found->second);
        return std::make_unique<FakeSound::Buffer>(sound_, sound_.Buffers++, flags, std::move(sample));
    }
    std::unique_ptr<DirectSoundBuffer> DuplicateSoundBuffer(DirectSoundBuffer& source) override {
        auto& original = dynamic_cast<FakeSound::Buffer&>(source);
        sound_.Note("DuplicateSoundBuffer", original.Name());
        return std::make_unique<FakeSound::Buffer>(sound_, sound_.Buffers++, original.GetCaps().Flags, original.Sample);
    }
    std::int32_t GetSpeakerConfig() override {
        sound_.Note("GetSpeakerConfig", "");
        return sound_.SpeakerConfig;
    }
    void SetSpeakerConfig(std::int32_t config) override { sound_.Note("SetSpeakerConfig", std::to_string(config)); }

private:
    FakeSound& sound_;
};

class FakeDSEnum : public DSEnum {
public:
    explicit FakeDSEnum(FakeSound& sound) : sound_(sound) {}
    std::int16_t GetCount() override { return static_cast<std::int16_t>(sound_.Drivers.size()); }
    std::string GetGuid(std::int16_t index) override {
        sound_.Note("GetGuid", std::to_string(index));
        return "guid" + std::to_string(index);
    }
    std::string GetDescription(std::int16_t index) override {
        return sound_.Drivers.at(static_cast<std::size_t>(index - 1));
    }

private:
    FakeSound& sound_;
};

class FakeDirectX : public DirectX7 {
public:
    explicit FakeDirectX(FakeSound& sound) : sound_(sound) {}
    std::unique_ptr<DSEnum> GetDSEnum() override { return std::make_unique<FakeDSEnum>(sound_); }
    std::unique_ptr<DirectSound> DirectSoundCreate(const std::string& guid) override {
        sound_.Note("DirectSoundCreate", guid);
        return std::make_unique<FakeDevice>(sound_);
    }

private:
    FakeSound& sound_;
};

}  // namespace marvolin::test

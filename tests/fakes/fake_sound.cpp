#include "fakes/fake_sound.h"

#include "audio/device_abilities.h"

namespace marvolin::test {

std::string Text(const Vector3& v) {
    return std::to_string(v.X) + "," + std::to_string(v.Y) + "," + std::to_string(v.Z);
}

namespace {

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

class FakeDevice : public DirectSound, public HeadphoneSwitch, public OutputPresence {
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
        auto sample = found == sound_.Samples.end() ? std::make_shared<FakeSample>()
                                                    : std::make_shared<FakeSample>(found->second);
        return std::make_unique<FakeSound::Buffer>(sound_, sound_.Buffers++, flags, std::move(sample));
    }
    std::unique_ptr<DirectSoundBuffer> DuplicateSoundBuffer(DirectSoundBuffer& source) override {
        auto& original = dynamic_cast<FakeSound::Buffer&>(source);
        sound_.Note("DuplicateSoundBuffer", original.Name());
        return std::make_unique<FakeSound::Buffer>(sound_, sound_.Buffers++, original.GetCaps().Flags, original.Sample);
    }
    std::unique_ptr<DirectSoundBuffer> CreateSoundBufferFromKept(const std::shared_ptr<KeptSample>& sample,
                                                                 std::int32_t flags) override {
        sound_.Note("CreateSoundBufferFromKept", "");
        auto kept = std::dynamic_pointer_cast<FakeSample>(sample);
        return std::make_unique<FakeSound::Buffer>(sound_, sound_.Buffers++, flags, std::move(kept));
    }
    std::int32_t GetSpeakerConfig() override {
        sound_.Note("GetSpeakerConfig", "");
        return sound_.SpeakerConfig;
    }
    void SetSpeakerConfig(std::int32_t config) override { sound_.Note("SetSpeakerConfig", std::to_string(config)); }
    bool Gone() const override { return sound_.Failures.contains("Gone"); }
    bool HasHeadphones() override { return !sound_.Failures.contains("HasHeadphones"); }
    void SetHeadphones(bool on) override { sound_.Note("SetHeadphones", on ? "on" : "off"); }

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

}  // namespace

void FakeListener::SetRolloffFactor(float factor) { sound_.Note("SetRolloffFactor", std::to_string(factor)); }

void FakeListener::SetPosition(const Vector3& p) { sound_.Note("SetListenerPosition", Text(p)); }

void FakeListener::SetOrientation(const Vector3& front, const Vector3& top) {
    sound_.Note("SetOrientation", Text(front) + " " + Text(top));
}

FakeSample::FakeSample() = default;
FakeSample::FakeSample(const FakeSample&) = default;
FakeSample& FakeSample::operator=(const FakeSample&) = default;
FakeSample::~FakeSample() = default;

FakeSound::FakeSound() = default;
FakeSound::~FakeSound() = default;

FakeSound::Buffer::~Buffer() {
    if (number_ >= 0) {
        sound_.Live.erase(number_);
        sound_.Log.push_back("Release " + Name());
    }
}

std::unique_ptr<DirectSound3DBuffer> FakeSound::Buffer::GetDirectSound3dBuffer() {
    sound_.Check("GetDirectSound3dBuffer");
    if ((flags_ & buffer_flags::kControl3D) == 0) throw SoundError(sound_error::kNoInterface);
    return std::make_unique<FakeSound3DBuffer>(sound_, Name());
}

std::unique_ptr<DirectSound3DListener> FakeSound::Buffer::GetDirectSound3dListener() {
    sound_.Note("GetDirectSound3dListener", "");
    if ((flags_ & buffer_flags::kControl3D) == 0) throw SoundError(sound_error::kNoInterface);
    return std::make_unique<FakeListener>(sound_);
}

std::unique_ptr<DSEnum> FakeDirectX::GetDSEnum() { return std::make_unique<FakeDSEnum>(sound_); }

std::unique_ptr<DirectSound> FakeDirectX::DirectSoundCreate(const std::string& guid) {
    sound_.Note("DirectSoundCreate", guid);
    return std::make_unique<FakeDevice>(sound_);
}

}  // namespace marvolin::test

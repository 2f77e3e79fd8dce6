#include "fakes/fake_world.h"

namespace marvolin::test {

namespace {

class FakeInputDevice : public DirectInputDevice {
public:
    explicit FakeInputDevice(FakeJoystick& stick) : stick_(stick) {}
    void SetCommonDataFormat(std::int32_t format) override {
        stick_.Note("SetCommonDataFormat", std::to_string(format));
    }
    void SetCooperativeLevel(std::int32_t flags) override { stick_.Note("SetCooperativeLevel", std::to_string(flags)); }
    void GetCapabilities() override { stick_.Note("GetCapabilities"); }
    std::vector<std::int32_t> GetDeviceObjectsEnum() override {
        stick_.Note("GetDeviceObjectsEnum");
        return stick_.Axes;
    }
    void SetProperty(const JoyPropertyRecord& r) override {
        stick_.Note("SetProperty", std::to_string(static_cast<int>(r.Property)) + " " + std::to_string(r.Size) + " " +
                                       std::to_string(r.Object) + " " + std::to_string(r.How) + " " +
                                       std::to_string(r.Value) + " " + std::to_string(r.High));
    }
    void Acquire() override { stick_.Note("Acquire"); }
    void Poll() override { stick_.Note("Poll"); }
    void GetDeviceStateJoystick(DIJOYSTATE& state) override {
        stick_.Note("GetDeviceStateJoystick");
        state = stick_.State;
    }

private:
    FakeJoystick& stick_;
};

}  // namespace

FakeDesktop::FakeDesktop() = default;
FakeDesktop::~FakeDesktop() = default;

FakeWindows::FakeWindows() = default;
FakeWindows::~FakeWindows() = default;

FakeRandom::FakeRandom() = default;
FakeRandom::~FakeRandom() = default;

FakeTimers::FakeTimers() = default;
FakeTimers::~FakeTimers() = default;

FakeScripts::FakeScripts() = default;
FakeScripts::~FakeScripts() = default;

FakeStore::FakeStore() = default;
FakeStore::~FakeStore() = default;

FakeJoystick::FakeJoystick() = default;
FakeJoystick::~FakeJoystick() = default;

std::vector<std::string> FakeInput::GetDIEnumDevices(std::int32_t deviceClass, std::int32_t flags) {
    stick_.Note("GetDIEnumDevices", std::to_string(deviceClass) + " " + std::to_string(flags));
    return stick_.Devices;
}

std::unique_ptr<DirectInputDevice> FakeInput::CreateDevice(const std::string& guid) {
    stick_.Note("CreateDevice", guid);
    return std::make_unique<FakeInputDevice>(stick_);
}

}  // namespace marvolin::test

#include "performance/joystick/sdl_input.h"

#define SDL_MAIN_HANDLED
#include <SDL.h>
#ifdef __linux__
#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <cmath>
#include <string>

#include "core/errors.h"
#include "core/routines.h"
#include "performance/joystick/joystick_axes.h"

namespace marvolin {

namespace {

constexpr std::int32_t kJoystickClass = 4;
constexpr std::uint32_t kInvalidArgument = 0x80070057;
constexpr std::uint32_t kObjectNotFound = 0x80070002;
constexpr std::uint32_t kDeviceNotRegistered = 0x80040154;
constexpr std::uint32_t kGeneric = 0x80004005;
constexpr double kWhole = 10000;  ///< dead zone and saturation are shares of this
constexpr std::size_t kAxes = 8;  ///< axes and sliders of the state record

/// Keeps SDL's joystick subsystem open as long as anything uses it.
class Subsystem {
public:
    Subsystem() {
        // SDL has no window here: it must report without the focus, and must not handle signals.
        SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        SDL_SetMainReady();
        if (SDL_InitSubSystem(SDL_INIT_JOYSTICK) != 0) throw RuntimeError(kGeneric, SDL_GetError());
        // The state is polled; nothing reads SDL's event queue.
        SDL_JoystickEventState(SDL_IGNORE);
    }
    ~Subsystem() { SDL_QuitSubSystem(SDL_INIT_JOYSTICK); }
    Subsystem(const Subsystem&) = delete;
    Subsystem& operator=(const Subsystem&) = delete;
};

#ifdef __linux__
/// The kernel's codes of the axes, in SDL's order; empty when they cannot be read.
std::vector<int> AxisCodes(const char* path) {
    constexpr std::size_t kBits = 8 * sizeof(unsigned long);
    std::array<unsigned long, ABS_CNT / kBits + 1> present{};
    std::vector<int> codes;
    if (path == nullptr) return codes;
    const int file = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return codes;
    if (ioctl(file, EVIOCGBIT(EV_ABS, sizeof present), present.data()) >= 0) {
        for (int code = 0; code < ABS_MAX; ++code) {
            const bool hat = code >= ABS_HAT0X && code <= ABS_HAT3Y;
            const auto bit = static_cast<std::size_t>(code);
            if (!hat && (present[bit / kBits] >> (bit % kBits) & 1) != 0) codes.push_back(code);
        }
    }
    close(file);
    return codes;
}
#else
std::vector<int> AxisCodes(const char*) { return {}; }
#endif

std::int32_t HatAngle(std::uint8_t hat) {
    switch (hat) {
        case SDL_HAT_UP:
            return 0;
        case SDL_HAT_RIGHTUP:
            return 4500;
        case SDL_HAT_RIGHT:
            return 9000;
        case SDL_HAT_RIGHTDOWN:
            return 13500;
        case SDL_HAT_DOWN:
            return 18000;
        case SDL_HAT_LEFTDOWN:
            return 22500;
        case SDL_HAT_LEFT:
            return 27000;
        case SDL_HAT_LEFTUP:
            return 31500;
        default:
            return -1;
    }
}

/// How an axis of the record is read.
struct AxisScale {
    std::int32_t DeadZone = 0;
    std::int32_t Saturation = 10000;
    std::int32_t Low = 0;
    std::int32_t High = 65535;

    std::int32_t Scaled(std::int16_t raw) const {
        const double deflection = raw < 0 ? raw / 32768.0 : raw / 32767.0;
        const double share = std::abs(deflection) * kWhole;
        double out = 0;
        if (share >= Saturation) {
            out = 1;
        } else if (share > DeadZone) {
            out = (share - DeadZone) / (Saturation - DeadZone);
        }
        return ToI4(Low + (High - Low) / 2.0 * (1 + std::copysign(out, deflection)));
    }
};

class SdlDevice : public DirectInputDevice {
public:
    SdlDevice(std::shared_ptr<Subsystem> sdl, int index)
        : sdl_(std::move(sdl)), guid_(SDL_JoystickGetDeviceGUID(index)) {
        Open(index);
        if (!stick_) throw RuntimeError(kDeviceNotRegistered, SDL_GetError());
    }

    void SetCommonDataFormat(std::int32_t) override {}
    void SetCooperativeLevel(std::int32_t) override {}
    void GetCapabilities() override {}

    std::vector<std::int32_t> GetDeviceObjectsEnum() override {
        std::vector<std::int32_t> axes = offsets_;
        std::erase(axes, kNoOffset);
        return axes;
    }

    void SetProperty(const JoyPropertyRecord& record) override {
        const bool range = record.Property == JoyProperty::Range;
        if (record.Size != (range ? 24 : 20)) throw RuntimeError(kInvalidArgument, "Bad property record");
        if (record.How == 0) {
            for (AxisScale& scale : scales_) Set(scale, record);
            return;
        }
        if (std::find(offsets_.begin(), offsets_.end(), record.Object) == offsets_.end()) {
            throw RuntimeError(kObjectNotFound, "No such axis");
        }
        Set(scales_[static_cast<std::size_t>(record.Object / 4)], record);
    }

    void Acquire() override {
        if (stick_ && SDL_JoystickGetAttached(stick_.get()) == SDL_FALSE) stick_.reset();
        if (!stick_) Reopen();
        acquired_ = stick_ != nullptr;
        if (!acquired_) throw RuntimeError(input_error::kInputLost, "The joystick is away");
    }

    void Poll() override { SDL_JoystickUpdate(); }

    void GetDeviceStateJoystick(DIJOYSTATE& state) override {
        if (!acquired_) throw RuntimeError(input_error::kNotAcquired, "The joystick is not acquired");
        if (SDL_JoystickGetAttached(stick_.get()) == SDL_FALSE) {
            acquired_ = false;
            throw RuntimeError(input_error::kInputLost, "The joystick is lost");
        }
        state = DIJOYSTATE{};
        ReadAxes(state);
        ReadHats(state);
        ReadButtons(state);
    }

private:
    struct Closer {
        void operator()(SDL_Joystick* stick) const { SDL_JoystickClose(stick); }
    };

    static void Set(AxisScale& scale, const JoyPropertyRecord& record) {
        switch (record.Property) {
            case JoyProperty::DeadZone:
                scale.DeadZone = record.Value;
                break;
            case JoyProperty::Saturation:
                scale.Saturation = record.Value;
                break;
            case JoyProperty::Range:
                scale.Low = record.Value;
                scale.High = record.High;
                break;
        }
    }

    void Open(int index) {
        stick_.reset(SDL_JoystickOpen(index));
        if (!stick_) return;
        const int axes = SDL_JoystickNumAxes(stick_.get());
        const std::vector<int> codes = AxisCodes(SDL_JoystickPath(stick_.get()));
        offsets_ = std::ssize(codes) == axes ? AxisOffsetsByCodes(codes) : AxisOffsetsByCount(axes);
    }

    /// Opens an attached device with the same identifier: the lost one, plugged in again.
    void Reopen() {
        for (int index = 0; index < SDL_NumJoysticks() && !stick_; ++index) {
            const SDL_JoystickGUID guid = SDL_JoystickGetDeviceGUID(index);
            if (std::equal(std::begin(guid.data), std::end(guid.data), std::begin(guid_.data))) Open(index);
        }
    }

    void ReadAxes(DIJOYSTATE& state) const {
        const std::array<std::int32_t*, kAxes> fields{&state.x,  &state.y,  &state.z,         &state.rx,
                                                      &state.ry, &state.rz, &state.slider[0], &state.slider[1]};
        for (std::size_t axis = 0; axis < offsets_.size(); ++axis) {
            if (offsets_[axis] == kNoOffset) continue;
            const auto field = static_cast<std::size_t>(offsets_[axis] / 4);
            *fields[field] = scales_[field].Scaled(SDL_JoystickGetAxis(stick_.get(), static_cast<int>(axis)));
        }
    }

    void ReadHats(DIJOYSTATE& state) const {
        const int hats = std::min(SDL_JoystickNumHats(stick_.get()), static_cast<int>(state.POV.size()));
        for (int hat = 0; hat < hats; ++hat) {
            state.POV[static_cast<std::size_t>(hat)] = HatAngle(SDL_JoystickGetHat(stick_.get(), hat));
        }
    }

    void ReadButtons(DIJOYSTATE& state) const {
        const int buttons = std::min(SDL_JoystickNumButtons(stick_.get()), static_cast<int>(state.buttons.size()));
        for (int button = 0; button < buttons; ++button) {
            const bool pressed = SDL_JoystickGetButton(stick_.get(), button) != 0;
            state.buttons[static_cast<std::size_t>(button)] = pressed ? 0x80 : 0;
        }
    }

    std::shared_ptr<Subsystem> sdl_;
    SDL_JoystickGUID guid_;
    std::unique_ptr<SDL_Joystick, Closer> stick_;
    std::vector<std::int32_t> offsets_;  ///< in the state record, by axis of SDL
    std::array<AxisScale, kAxes> scales_;
    bool acquired_ = false;
};

class SdlInput : public DirectInput {
public:
    /// A device's name is the number that SDL gives it while it is attached.
    std::vector<std::string> GetDIEnumDevices(std::int32_t deviceClass, std::int32_t) override {
        std::vector<std::string> devices;
        if (deviceClass != kJoystickClass) return devices;
        SDL_JoystickUpdate();
        for (int index = 0; index < SDL_NumJoysticks(); ++index) {
            devices.push_back(std::to_string(SDL_JoystickGetDeviceInstanceID(index)));
        }
        return devices;
    }

    std::unique_ptr<DirectInputDevice> CreateDevice(const std::string& guid) override {
        for (int index = 0; index < SDL_NumJoysticks(); ++index) {
            if (std::to_string(SDL_JoystickGetDeviceInstanceID(index)) == guid) {
                return std::make_unique<SdlDevice>(sdl_, index);
            }
        }
        throw RuntimeError(kDeviceNotRegistered, "No such joystick");
    }

private:
    std::shared_ptr<Subsystem> sdl_ = std::make_shared<Subsystem>();
};

}  // namespace

std::unique_ptr<DirectInput> CreateSdlInput() { return std::make_unique<SdlInput>(); }

}  // namespace marvolin

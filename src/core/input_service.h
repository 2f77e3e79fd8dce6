#pragma once
/// \file
/// What the instrument asks of the input service: the first joystick, and its state at a poll.
///
/// The objects are named for the service whose behaviour they promise, whatever library keeps the promise. Behind them
/// stand SDL's joysticks (`performance/joystick/sdl_input.cpp`), or a fake in tests. Nothing to do there:
/// `SetCommonDataFormat`, `SetCooperativeLevel` and `GetCapabilities`.
///
/// Call every operation from the user-interface thread. Operations that fail raise `RuntimeError` with the service's
/// number.

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace marvolin {

/// Numbers of the input service that a poll knows.
namespace input_error {
inline constexpr std::uint32_t kNotAcquired = 0x8007000C;
inline constexpr std::uint32_t kInputLost = 0x8007001E;
}  // namespace input_error

/// State of a joystick. Axes read 0..10000 once `SetProperty` has set the range.
struct DIJOYSTATE {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t z = 0;
    std::int32_t rx = 0;
    std::int32_t ry = 0;
    std::int32_t rz = 0;
    std::array<std::int32_t, 2> slider{};
    std::array<std::int32_t, 4> POV{-1, -1, -1, -1};  ///< hundredths of a degree, north 0, clockwise; -1 centred
    std::array<std::uint8_t, 32> buttons{};           ///< non-zero: pressed
};

/// Properties that can be set on a device.
enum class JoyProperty : std::uint8_t { DeadZone, Saturation, Range };

/// One call of `SetProperty`.
struct JoyPropertyRecord {
    JoyProperty Property = JoyProperty::Range;
    std::int32_t Size = 20;   ///< size of the record in bytes: 20, or 24 for a range
    std::int32_t Object = 0;  ///< offset of the axis, 0 for the device
    std::int32_t How = 0;     ///< 1 by offset, 0 the whole device
    std::int32_t Value = 0;   ///< ten-thousandths of the range, or the low end of the range
    std::int32_t High = 0;    ///< the high end of the range
};

/// One joystick.
class DirectInputDevice {
public:
    virtual ~DirectInputDevice() = default;
    /// 3 is the joystick format.
    virtual void SetCommonDataFormat(std::int32_t format) = 0;
    /// 10 is background, not exclusive.
    virtual void SetCooperativeLevel(std::int32_t flags) = 0;
    virtual void GetCapabilities() = 0;
    /// Offsets in the state record of the axes that the device has: 0 `x`, 4 `y`, ... 28 the second slider.
    virtual std::vector<std::int32_t> GetDeviceObjectsEnum() = 0;
    /// Sets one property. Raises an error for a record of the wrong size or an axis that the device has not.
    virtual void SetProperty(const JoyPropertyRecord& record) = 0;
    /// Makes the device readable, again after it was unplugged. Raises `kInputLost` when it is unplugged now.
    virtual void Acquire() = 0;
    /// Brings the state up to date.
    virtual void Poll() = 0;
    /// Fills `state`. Raises `input_error::kNotAcquired` or `kInputLost` when the device is unplugged.
    virtual void GetDeviceStateJoystick(DIJOYSTATE& state) = 0;
};

/// The root of the input service.
class DirectInput {
public:
    virtual ~DirectInput() = default;
    /// Identifiers of the devices of class 4 (joysticks) in the platform's order; `flags` 1 is for those attached.
    virtual std::vector<std::string> GetDIEnumDevices(std::int32_t deviceClass, std::int32_t flags) = 0;
    /// Opens a device by its identifier. Raises an error when it is no longer attached.
    virtual std::unique_ptr<DirectInputDevice> CreateDevice(const std::string& guid) = 0;
};

}  // namespace marvolin

#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#define SDL_MAIN_HANDLED
#include <SDL.h>

namespace marvolin::test {

/// A joystick that exists only inside SDL.
class VirtualStick {
public:
    VirtualStick(int axes, int buttons, int hats) {
        desc_.version = SDL_VIRTUAL_JOYSTICK_DESC_VERSION;
        desc_.type = SDL_JOYSTICK_TYPE_FLIGHT_STICK;
        desc_.naxes = static_cast<Uint16>(axes);
        desc_.nbuttons = static_cast<Uint16>(buttons);
        desc_.nhats = static_cast<Uint16>(hats);
        desc_.vendor_id = 0x1234;
        desc_.product_id = 0x5678;
        desc_.name = "Virtual Stick";
        Attach();
    }
    ~VirtualStick() { Detach(); }
    VirtualStick(const VirtualStick&) = delete;
    VirtualStick& operator=(const VirtualStick&) = delete;

    void Attach() {
        const int index = SDL_JoystickAttachVirtualEx(&desc_);
        if (index < 0) throw std::runtime_error(SDL_GetError());
        id_ = SDL_JoystickGetDeviceInstanceID(index);
    }
    void Detach() {
        for (int index = 0; index < SDL_NumJoysticks(); ++index) {
            if (SDL_JoystickGetDeviceInstanceID(index) == id_) SDL_JoystickDetachVirtual(index);
        }
    }
    std::string Guid() const { return std::to_string(id_); }
    SDL_Joystick* Hand() const { return SDL_JoystickFromInstanceID(id_); }
    void Axis(int axis, int value) const { SDL_JoystickSetVirtualAxis(Hand(), axis, static_cast<Sint16>(value)); }
    void Button(int button, bool down) const { SDL_JoystickSetVirtualButton(Hand(), button, down ? 1 : 0); }
    void Hat(int hat, int value) const { SDL_JoystickSetVirtualHat(Hand(), hat, static_cast<Uint8>(value)); }

private:
    SDL_VirtualJoystickDesc desc_{};
    SDL_JoystickID id_ = -1;
};

}  // namespace marvolin::test

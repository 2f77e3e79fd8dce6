#include "audio/headphones.h"

#include "audio/device_abilities.h"
#include "audio/ds_error.h"
#include "core/errors.h"

namespace marvolin {

namespace {

/// The open device, if it knows headphones; else null. The first question to a device takes long.
HeadphoneSwitch* SwitchOf(const Session& s) {
    auto* device = s.DSReady ? dynamic_cast<HeadphoneSwitch*>(s.DS.get()) : nullptr;
    return device != nullptr && device->HasHeadphones() ? device : nullptr;
}

}  // namespace

bool HeadphonesAvailable(const Session& s) { return s.Use3D && (!s.DSReady || SwitchOf(s) != nullptr); }

void Headphones_Click(Session& s, bool on) {
    try {
        if (HeadphoneSwitch* device = s.Use3D ? SwitchOf(s) : nullptr) device->SetHeadphones(on);
        s.Headphones = on;
    } catch (const RuntimeError& e) {
        ShowDSError(s, "switching headphones", e.Number());
    }
    s.World.Screen.ShowMapControls();
}

void HeadphonesRestore(Session& s) {
    if (!s.Use3D || !s.Headphones) return;
    HeadphoneSwitch* device = SwitchOf(s);
    if (device == nullptr) return;
    try {
        device->SetHeadphones(true);
    } catch (const RuntimeError& e) {
        ShowDSError(s, "switching headphones", e.Number());
    }
}

}  // namespace marvolin

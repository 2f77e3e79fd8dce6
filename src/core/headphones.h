#pragma once
/// \file
/// What a sound device can do for headphones, beside `DirectSound`.

namespace marvolin {

/// A device that can make its space for the two ears of a head (HRTF). A `DirectSound` that can is one of these, too.
/// Call it from the user-interface thread.
class HeadphoneSwitch {
public:
    virtual ~HeadphoneSwitch() = default;
    /// Whether the device has what it takes: the data of a head.
    virtual bool HasHeadphones() = 0;
    /// From the next period on, sounds in space are made for headphones, or for speakers again. What sounds goes on,
    /// without a gap and from where it is. `SoundError` when the device refuses; it is then as it was.
    virtual void SetHeadphones(bool on) = 0;
};

}  // namespace marvolin

#pragma once
/// \file
/// What a sound device can do beside `DirectSound`. A device that has one of these abilities is one of these, too. Call
/// them from the user-interface thread.

namespace marvolin {

/// Makes its space for the two ears of a head (HRTF).
class HeadphoneSwitch {
public:
    virtual ~HeadphoneSwitch() = default;
    /// Whether the device has what it takes: the data of a head.
    virtual bool HasHeadphones() = 0;
    /// From the next period on, sounds in space are made for headphones, or for speakers again. What sounds goes on,
    /// without a gap and from where it is. `SoundError` when the device refuses; it is then as it was.
    virtual void SetHeadphones(bool on) = 0;
};

/// Knows whether its output is still there.
class OutputPresence {
public:
    virtual ~OutputPresence() = default;
    /// True once the output was pulled out. What sounds goes on unheard.
    virtual bool Gone() const = 0;
};

}  // namespace marvolin

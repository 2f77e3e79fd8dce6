#pragma once
/// \file
/// The real audio service: OpenAL mixes, SDL has the output devices.
///
/// Everything belongs to the thread that makes it: each operation asserts that thread in a debug build. The sound is
/// rendered on a thread of SDL, or by hand. That thread calls only functions whose names end in `_rt`: they are
/// `noexcept`, allocate nothing, and wait only for the short calls that `OpenAlCall` guards.

#include <cstdint>
#include <memory>

#include "core/sound_service.h"

namespace marvolin {

/// The service for the program. Its drivers: the system's default output as "Primary Sound Driver" with the
/// identifier "", then SDL's devices by name; none when SDL has none.
/// `RuntimeError` `kNoDriver` when OpenAL has no loopback device.
std::unique_ptr<DirectX7> CreateOpenAlSound();

/// Share of the real time that rendering the service's open device takes, percent, smoothed over about a third of a
/// second. 0 without a device, and for any other service.
double OpenAlSoundLoad(const DirectX7& service);

/// True when the service's open device was pulled out. Its sounds go on unheard until another one is opened.
/// False without a device, and for any other service.
bool OpenAlSoundGone(const DirectX7& service);

/// A service without an output: its device is rendered by hand, for tests, bench programs and for writing to a file.
/// It renders exactly as the program's service does.
class LoopbackRenderer {
public:
    LoopbackRenderer();
    ~LoopbackRenderer();
    LoopbackRenderer(LoopbackRenderer&&) noexcept;
    LoopbackRenderer& operator=(LoopbackRenderer&&) noexcept;

    /// A root with one driver, "Primary Sound Driver". Of several open devices the last one opened is rendered.
    std::unique_ptr<DirectX7> Root();
    /// Renders the next `count` stereo frames of 44100 Hz, left and right interleaved; silence while no device is open.
    void Render(std::int16_t* frames, int count);

private:
    struct Slot;
    std::shared_ptr<Slot> slot_;
};

}  // namespace marvolin

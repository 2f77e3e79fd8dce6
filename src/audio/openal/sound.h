#pragma once
/// \file
/// The real audio service: OpenAL mixes, SDL has the output devices.
///
/// Everything belongs to the thread that makes it. The sound is rendered by a thread of SDL's, or by hand.

#include <cstdint>
#include <memory>

#include "core/sound_service.h"

namespace marvolin {

/// The service for the program. Its drivers: the system's default output as "Primary Sound Driver" with the
/// identifier "", then SDL's devices by name; none when SDL has none.
/// `RuntimeError` `kNoDriver` when OpenAL cannot render for others.
std::unique_ptr<DirectX7> CreateOpenAlSound();

/// Share of the real time that rendering the service's open device takes, percent, smoothed over about a third of a
/// second. 0 without a device, and for any other service.
double OpenAlSoundLoad(const DirectX7& service);

/// Whether the service's open device was pulled out. Its sounds go on unheard until another is opened.
/// False without a device, and for any other service.
bool OpenAlSoundGone(const DirectX7& service);

/// A service without an output: the sound of its device is fetched by hand, for tests, bench programs and for writing
/// it to a file. It renders as the program's service does.
class LoopbackRenderer {
public:
    LoopbackRenderer();
    ~LoopbackRenderer();
    LoopbackRenderer(LoopbackRenderer&&) noexcept;
    LoopbackRenderer& operator=(LoopbackRenderer&&) noexcept;

    /// A root with one driver, "Primary Sound Driver". Of several open devices the one opened last is rendered.
    std::unique_ptr<DirectX7> Root();
    /// The next `count` stereo frames, left and right in turn, 44100 in a second; silence while no device is open.
    void Render(std::int16_t* frames, int count);

private:
    struct Slot;
    std::shared_ptr<Slot> slot_;
};

}  // namespace marvolin

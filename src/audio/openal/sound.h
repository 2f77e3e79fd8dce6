#pragma once
/// \file
/// The real audio service: OpenAL mixes, SDL has the output devices.
///
/// Everything belongs to the thread that makes it: each operation asserts that thread in a debug build. The sound is
/// rendered on a thread of SDL, or by hand. That thread calls only functions whose names end in `_rt`: they are
/// `noexcept`, allocate nothing and wait for nothing. What is asked of a buffer travels to that thread as a call with
/// the frame at which it is to be heard; what a buffer answers agrees with what was asked of it.

#include <cstdint>
#include <memory>
#include <string_view>

#include "audio/openal/call.h"
#include "audio/openal/card_clock.h"
#include "audio/output/output_chain.h"
#include "core/sound_service.h"

namespace marvolin {

/// The service for the program. Its drivers: the system's default output as "Primary Sound Driver" with the
/// identifier "", then SDL's devices by name; none when SDL has none.
/// `RuntimeError` `kNoDriver` when OpenAL has no loopback device.
/// `clock` follows the open device, and its groups are heard at one frame; one service at a time follows a clock. Null:
/// every call is heard as soon as can be. What is heard passes `chain`, null for none.
std::unique_ptr<DirectX7> CreateOpenAlSound(std::shared_ptr<CardClock> clock = nullptr,
                                            std::shared_ptr<OutputChain> chain = nullptr);

/// Share of the real time that rendering the service's open device takes, percent, smoothed over about a third of a
/// second. 0 without a device, and for any other service.
double OpenAlSoundLoad(const DirectX7& service);

/// True when the service's open device was pulled out. Its sounds go on unheard until another one is opened. The clock
/// stops following it with the first callback after that, whether this is asked or not.
/// False without a device, and for any other service.
bool OpenAlSoundGone(const DirectX7& service);

/// Frames that the service's open device asks for at a time; 0 without a device, and for any other service.
int OpenAlPeriod(const DirectX7& service);

/// Milliseconds from a gesture that starts a sample to the moment at which the device begins to play it, as far as the
/// program knows: the lead of the clock (`CardClock::Lead`), and what is played while the next period is rendered,
/// which is a period, or the buffer of a sound server that has been asked for one (`ServerBuffer`). What else the
/// system keeps in buffers of its own is not contained. 0 without a device or a clock, and for any other service.
double OpenAlDelay(const DirectX7& service);

/// Milliseconds of sound that a server is asked to hold: `latency` is the text of PULSE_LATENCY_MSEC, null when it is
/// not set. 0 when SDL's `driver` is one that has nothing to do with it, or when the text is no number.
double ServerBuffer(std::string_view driver, const char* latency);

/// How the calls of the service's open device have gone since it was opened. All 0 without a device, and for any other
/// service.
CallCounts OpenAlCallCounts(const DirectX7& service);

/// A service without an output: its device is rendered by hand, for tests, bench programs and for writing to a file.
/// It renders exactly as the program's service does.
class LoopbackRenderer {
public:
    /// With a clock, calls are applied at their frames, exactly as in the program: the clock takes each rendering for a
    /// callback of a device with `period` frames. Without one they are applied before the next frame rendered.
    /// What is rendered passes `chain`, null for none.
    explicit LoopbackRenderer(std::shared_ptr<CardClock> clock = nullptr, int period = 128,
                              std::shared_ptr<OutputChain> chain = nullptr);
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

#pragma once
/// \file
/// What the user-interface thread asks of the thread that renders.

#include <array>
#include <cstdint>

namespace marvolin {

class VoicePlayer;
class VoiceSources;

enum class CallKind : std::uint8_t {
    Attach,         ///< a new voice; `Number`: hertz
    Detach,         ///< the last call to a voice: it falls silent, and nothing of it is touched afterwards
    Switch,         ///< goes on in `Sources` at the same place
    Play,           ///< `Flag`: looping
    Stop,           ///< `Number`: frame of the sample at which it was known to be, which counts if it has run out since
    Jump,           ///< `Number`: frame of the sample; `Flag`: the voice was known to play, so it plays from there
    Gains,          ///< `Numbers`: left, right
    Pitch,          ///< `Number`: hertz
    Place,          ///< `Numbers`: x, y, z as OpenAL counts them
    Distances,      ///< `Numbers`: near, far
    Rolloff,        ///< of all spatial voices; `Numbers`: factor
    ListenerPlace,  ///< `Numbers`: x, y, z as OpenAL counts them
    ListenerTurn,   ///< `Numbers`: front and top as OpenAL counts them
};

/// One call. It is copied from thread to thread, so it holds numbers, and pointers to what lives until the call has
/// been applied.
struct Call {
    std::int64_t Frame = 0;           ///< of the device: to be heard from this frame on
    VoicePlayer* Voice = nullptr;     ///< null for the listener and the roll-off
    VoiceSources* Sources = nullptr;  ///< for `Switch`
    CallKind Kind = CallKind::Stop;
    bool Flag = false;
    bool Soon = false;         ///< to be heard as soon as can be, but not before `Frame`: never late
    std::uint32_t Serial = 0;  ///< of `Play`, `Stop` and `Jump`: counts those of the voice
    std::int32_t Number = 0;
    std::array<float, 6> Numbers{};
};

/// True for the calls that make an attack. Their frame is kept exactly.
constexpr bool IsStart(const Call& call) {
    return call.Kind == CallKind::Play || (call.Kind == CallKind::Jump && call.Flag);
}

/// How calls have gone so far.
struct CallCounts {
    std::uint64_t Late = 0;        ///< applied after their frame
    std::int64_t LongestLate = 0;  ///< frames
    std::uint64_t Overflowed = 0;  ///< found the ring full and waited for room
    std::uint64_t Refused = 0;     ///< errors of OpenAL found afterwards: a call had no effect
};

}  // namespace marvolin

#include "audio/reverse.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

#include "audio/ds_error.h"
#include "audio/sample_buffers.h"
#include "audio/scratch_bytes.h"
#include "core/busy_pointer.h"
#include "core/routines.h"
#include "core/undo/memory_room.h"

namespace marvolin {

namespace {

constexpr std::size_t kLargestFrame = 129;
constexpr std::int64_t kReversePieceBytes =
    96 * 1024;  // whole frames of any size that PCM has, small enough for the cache

// Copies frames in reverse order. A size that is known at compile time makes each copy a register move.
template <std::size_t size>
void CopyReversed(const std::uint8_t* from, std::uint8_t* __restrict to, std::int64_t frames) {
    from += (frames - 1) * static_cast<std::int64_t>(size);
    for (; frames > 0; --frames, from -= size, to += size) std::memcpy(to, from, size);
}

// Single bytes go eight at a time.
void CopyBytesReversed(const std::uint8_t* from, std::uint8_t* __restrict to, std::int64_t bytes) {
    constexpr auto kWord = static_cast<std::int64_t>(sizeof(std::uint64_t));
    from += bytes;
    for (; bytes >= kWord; bytes -= kWord, to += kWord) {
        std::uint64_t word = 0;
        std::memcpy(&word, from -= kWord, sizeof word);
        word = __builtin_bswap64(word);
        std::memcpy(to, &word, sizeof word);
    }
    while (bytes-- > 0) *to++ = *--from;
}

using FrameCopier = void (*)(const std::uint8_t* from, std::uint8_t* to, std::int64_t frames);

FrameCopier CopierFor(std::int32_t frameSize) {
    switch (frameSize) {
        case 1:
            return CopyBytesReversed;
        case 2:
            return CopyReversed<2>;
        case 3:
            return CopyReversed<3>;
        case 4:
            return CopyReversed<4>;
        case 6:
            return CopyReversed<6>;
        case 8:
            return CopyReversed<8>;
        default:
            return nullptr;
    }
}

// Swaps frames from both ends inwards. A partial frame at the end counts for the places of the upper ones.
void SwapFrames(std::uint8_t* bytes, std::int32_t count, std::int32_t size) {
    if (size <= 0) throw RuntimeError(11, "Division by zero");
    if (static_cast<std::size_t>(size) > kLargestFrame) throw SubscriptError();
    std::uint8_t scratch[kLargestFrame];
    std::uint8_t* low = bytes;
    std::uint8_t* high = bytes + (count - size);
    const auto frame = static_cast<std::size_t>(size);
    for (double pairs = Int(Round(static_cast<double>(count) / size) / 2); pairs > 0; --pairs) {
        std::memcpy(scratch, low, frame);
        std::memmove(low, high, frame);
        std::memcpy(high, scratch, frame);
        low += size;
        high -= size;
    }
}

// For whole frames: reads in pieces, and reverses each while it is in the cache.
void ReadReversed(DirectSoundBuffer& buffer, std::uint8_t* bytes, std::int64_t count, std::int32_t size,
                  FrameCopier copy) {
    std::array<std::uint8_t, kReversePieceBytes> piece;
    for (std::int64_t at = 0; at < count;) {
        const std::int64_t length = std::min(kReversePieceBytes, count - at);
        buffer.ReadBuffer(static_cast<std::int32_t>(at), {piece.data(), static_cast<std::size_t>(length)});
        at += length;
        copy(piece.data(), bytes + (count - at), length / size);
    }
}

void ReverseSample(Session& s, Row row) {
    DirectSoundBuffer& buffer = BufferOf(s, row);
    const std::int32_t count = s.Set[row].BufferBytes;
    const auto size = static_cast<std::size_t>(count);
    const auto bytes = WithRoom(s, [&] { return MakeScratchBytes(size + 1); });
    const WaveFormat format = buffer.GetFormat();
    const std::int32_t frameSize = ToI4(Int(format.Channels * format.BitsPerSample / 8.0));
    const FrameCopier copy = CopierFor(frameSize);
    if (copy != nullptr && count % frameSize == 0) {
        ReadReversed(buffer, bytes.get(), count, frameSize, copy);
    } else {
        buffer.ReadBuffer(0, {bytes.get(), size});
        SwapFrames(bytes.get(), count, frameSize);
    }
    WithRoom(s, [&] { buffer.WriteBuffer(0, {bytes.get(), size}); });
    if (const auto sample = buffer.Keep()) sample->Backwards = !sample->Backwards;
}

// Sample memory is shared, so the reversal shows in every row that holds the file.
void TurnRowsOf(Session& s, const std::string& path) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Run[row].Loaded == False || s.Set[row].FileName != path) continue;
        s.Run[row].Reversed = ToBoolean(s.Run[row].Reversed == False);
        s.World.Screen.ShowWaveform(row);
    }
}

}  // namespace

void LoopReverse(Session& s, Row row) {
    if (s.Run[row].Loaded == False) return;
    const BusyPointer busy(s);
    try {
        ReverseSample(s, row);
        TurnRowsOf(s, s.Set[row].FileName);
    } catch (const RuntimeError& e) {
        ShowDSError(s, "reversing sound", e.Number());
    } catch (const std::bad_alloc&) {
        ShowDSError(s, "reversing sound", sound_error::kOutOfMemory);
    }
}

}  // namespace marvolin

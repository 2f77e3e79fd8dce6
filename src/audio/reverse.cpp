#include <cstring>
#include <memory>
#include <new>

#include "audio/ds_error.h"
#include "audio/sample_buffers.h"
#include "audio/sample_loading.h"
#include "core/busy_pointer.h"
#include "core/routines.h"

namespace marvolin {

namespace {

constexpr std::size_t kLargestFrame = 129;

// `size` swaps of frames from both ends inwards. A size known when compiled makes each a pair of register moves.
template <std::size_t size>
void SwapFrames(std::uint8_t* low, std::uint8_t* high, std::int64_t pairs) {
    std::uint8_t first[size];
    std::uint8_t second[size];
    for (; pairs > 0; --pairs, low += size, high -= size) {
        std::memcpy(first, low, size);
        std::memcpy(second, high, size);
        std::memcpy(low, second, size);
        std::memcpy(high, first, size);
    }
}

void SwapFramesOfAnySize(std::uint8_t* low, std::uint8_t* high, std::int64_t pairs, std::size_t size) {
    if (size > kLargestFrame) throw SubscriptError();
    std::uint8_t scratch[kLargestFrame];
    for (; pairs > 0; --pairs, low += size, high -= size) {
        std::memcpy(scratch, low, size);
        std::memmove(low, high, size);
        std::memcpy(high, scratch, size);
    }
}

void ReverseFrames(std::uint8_t* bytes, std::int32_t count, std::int32_t frameSize) {
    if (frameSize <= 0) throw RuntimeError(11, "Division by zero");
    const auto pairs = static_cast<std::int64_t>(Int(Round(static_cast<double>(count) / frameSize) / 2));
    if (pairs == 0) return;
    std::uint8_t* high = bytes + (count - frameSize);
    switch (frameSize) {
        case 1:
            return SwapFrames<1>(bytes, high, pairs);
        case 2:
            return SwapFrames<2>(bytes, high, pairs);
        case 3:
            return SwapFrames<3>(bytes, high, pairs);
        case 4:
            return SwapFrames<4>(bytes, high, pairs);
        case 6:
            return SwapFrames<6>(bytes, high, pairs);
        case 8:
            return SwapFrames<8>(bytes, high, pairs);
        default:
            return SwapFramesOfAnySize(bytes, high, pairs, static_cast<std::size_t>(frameSize));
    }
}

void ReverseSample(Session& s, Row row) {
    DirectSoundBuffer& buffer = BufferOf(s, row);
    const std::int32_t count = s.Set[row].BufferBytes;
    const auto size = static_cast<std::size_t>(count);
    const auto bytes = std::make_unique_for_overwrite<std::uint8_t[]>(size + 1);
    const WaveFormat format = buffer.GetFormat();
    buffer.ReadBuffer(0, {bytes.get(), size});
    ReverseFrames(bytes.get(), count, ToI4(Int(format.Channels * format.BitsPerSample / 8.0)));
    buffer.WriteBuffer(0, {bytes.get(), size});
}

// Sample memory is shared: the reversal is seen in every row that holds the file.
void ShowWaveformsOf(Session& s, const std::string& path) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Run[row].Loaded != False && s.Set[row].FileName == path) s.World.Screen.ShowWaveform(row);
    }
}

}  // namespace

void LoopReverse(Session& s, Row row) {
    if (s.Run[row].Loaded == False) return;
    const BusyPointer busy(s.World.Desk);
    try {
        ReverseSample(s, row);
        ShowWaveformsOf(s, s.Set[row].FileName);
    } catch (const RuntimeError& e) {
        ShowDSError(s, "reversing sound", e.Number());
    } catch (const std::bad_alloc&) {
        ShowDSError(s, "reversing sound", sound_error::kOutOfMemory);
    }
}

}  // namespace marvolin

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

#include "fakes/instrument.h"
#include "parameters/mapping.h"

namespace {

std::size_t allocations = 0;

void* Allocate(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace marvolin {
namespace {

/// A buffer that only counts: the usual fake allocates for its log.
class QuietBuffer : public DirectSoundBuffer {
public:
    explicit QuietBuffer(int& calls) : calls_(calls) {}
    BufferCaps GetCaps() override { return {}; }
    WaveFormat GetFormat() override { return {}; }
    void SetFormat(const WaveFormat&) override {}
    std::int32_t GetFrequency() override { return 44100; }
    void SetFrequency(std::int32_t) override { ++calls_; }
    std::int32_t GetStatus() override { return 0; }
    std::int32_t GetCurrentPosition() override { return 0; }
    void SetCurrentPosition(std::int32_t) override {}
    void Play(std::int32_t) override {}
    void Stop() override {}
    void SetVolume(std::int32_t) override { ++calls_; }
    void SetPan(std::int32_t) override { ++calls_; }
    void ReadBuffer(std::int32_t, std::span<std::uint8_t>) override {}
    void WriteBuffer(std::int32_t, std::span<const std::uint8_t>) override {}
    std::unique_ptr<DirectSound3DBuffer> GetDirectSound3dBuffer() override { return nullptr; }
    std::unique_ptr<DirectSound3DListener> GetDirectSound3dListener() override { return nullptr; }

private:
    int& calls_;
};

TEST(Allocation, TheMapRoutinesAllocateNothing) {
    test::Instrument i;
    int calls = 0;
    for (Row row = 0; row < kLoopTracks; ++row) {
        i.s.Run[row].Buffer = std::make_unique<QuietBuffer>(calls);
        i.s.Run[row].Loaded = True;
        i.s.Set[row].SampleRate = 44100;
        i.s.Set[row].PlayMode = kTrack;
        for (int pattern = 0; pattern < kPatternRows; ++pattern) i.s.Set[row].Pattern[pattern][kPatternOffset] = 100;
    }
    const std::size_t before = allocations;
    MapVolAll(i.s);
    MapPanAll(i.s);
    MapHZAll(i.s);
    const std::size_t after = allocations;
    EXPECT_EQ(after, before);
    EXPECT_EQ(calls, 12);
}

TEST(Allocation, TheCounterSeesAnAllocation) {
    const std::size_t before = allocations;
    const auto memory = std::make_unique<std::array<int, 64>>();
    ASSERT_NE(memory, nullptr);
    EXPECT_GT(allocations, before);
}

}  // namespace
}  // namespace marvolin

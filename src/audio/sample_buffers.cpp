#include "audio/sample_buffers.h"

#include "audio/ds_error.h"
#include "core/undo/memory_room.h"

namespace marvolin {

namespace {

constexpr float kMinDistance = 1.0F;  // map units
constexpr float kMaxDistance = 4.0F;  // map units

// Puts a new buffer into the row, with its 3D side while 3D sound is on.
void TakeBuffer(Session& s, Row row, std::unique_ptr<DirectSoundBuffer> buffer) {
    LoopTrackRun& run = s.Run[row];
    run.Buffer = std::move(buffer);
    if (!s.Use3D) return;
    run.Buffer3D = run.Buffer->GetDirectSound3dBuffer();
    run.Buffer3D->SetMinDistance(kMinDistance);
    run.Buffer3D->SetMaxDistance(kMaxDistance);
}

}  // namespace

int LoopCreateBuffer(Session& s, Row row, const std::string& path) {
    if (path.empty()) return 1;
    try {
        const std::int32_t flags = s.Use3D ? buffer_flags::kSample3D : buffer_flags::kSample;
        TakeBuffer(s, row, WithRoom(s, [&] { return s.DS->CreateSoundBufferFromFile(path, flags); }));
        return 0;
    } catch (const RuntimeError& e) {
        ReleaseBuffer(s, row);
        ShowDSError(s, "creating sound buffer, make sure WAV file is in PCM format", e.Number());
        return 1;
    }
}

int LoopDuplicateBuffer(Session& s, Row row, Row source) {
    try {
        TakeBuffer(s, row, WithRoom(s, [&] { return s.DS->DuplicateSoundBuffer(BufferOf(s, source)); }));
        return 0;
    } catch (const RuntimeError& e) {
        ReleaseBuffer(s, row);
        ShowDSError(s, "duplicating sound buffer", e.Number());
        return 1;
    }
}

int LoopKeptBuffer(Session& s, Row row, const std::shared_ptr<KeptSample>& sample) {
    try {
        const std::int32_t flags = s.Use3D ? buffer_flags::kSample3D : buffer_flags::kSample;
        TakeBuffer(s, row, WithRoom(s, [&] { return s.DS->CreateSoundBufferFromKept(sample, flags); }));
        return 0;
    } catch (const RuntimeError& e) {
        ReleaseBuffer(s, row);
        ShowDSError(s, "creating sound buffer", e.Number());
        return 1;
    }
}

void ReleaseBuffer(Session& s, Row row) {
    s.Run[row].Buffer3D.reset();
    s.Run[row].Buffer.reset();
}

DirectSoundBuffer& BufferOf(Session& s, Row row) {
    DirectSoundBuffer* buffer = s.Run[row].Buffer.get();
    if (buffer == nullptr) throw NoObjectError();
    return *buffer;
}

}  // namespace marvolin

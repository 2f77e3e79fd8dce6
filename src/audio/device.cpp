#include "audio/device.h"

#include <utility>

#include "audio/carrying.h"
#include "audio/ds_error.h"
#include "audio/headphones.h"
#include "audio/loop_clearing.h"
#include "core/loops/loop_views.h"
#include "parameters/position.h"

namespace marvolin {

namespace {

constexpr std::int32_t kPriorityLevel = 2;
constexpr std::int32_t kNormalLevel = 1;
constexpr std::int32_t kLooping = 1;
constexpr std::int32_t kSpeakerBits = 3;

constexpr std::int16_t kBlockAlign = 32 / 8;
constexpr WaveFormat kPrimaryFormat{1, 2, 44100, 16, kBlockAlign, kBlockAlign * 44100, 0};

bool NoSoundChosen(const Session& s) { return s.Driver + 1 == static_cast<int>(s.Drivers.size()); }

std::unique_ptr<DirectSound> CreateDevice(Session& s, std::int16_t entry) {
    return s.DX->DirectSoundCreate(s.DSEnum->GetGuid(static_cast<std::int16_t>(entry + 1)));
}

/// `created` is null for a device that is still to be made.
void OpenDevice(Session& s, std::unique_ptr<DirectSound> created) {
    s.DS = created ? std::move(created) : CreateDevice(s, s.Driver);
    // The format of the primary buffer can be changed at the priority level only.
    s.DS->SetCooperativeLevel(kPriorityLevel);
    s.PrimaryBuffer =
        s.DS->CreateSoundBuffer(s.Use3D ? buffer_flags::kPrimary | buffer_flags::kControl3D : buffer_flags::kPrimary);
    s.PrimaryBuffer->SetFormat(kPrimaryFormat);
    s.DS->SetCooperativeLevel(kNormalLevel);
    // Keeps the output stream alive while no sample sounds.
    s.PrimaryBuffer->Play(kLooping);
    s.DSReady = true;
    s.OpenDriver = s.Driver;
    if (s.Use3D) {
        s.Listener = s.PrimaryBuffer->GetDirectSound3dListener();
        SetRollOff(s, 1.0F);
    } else {
        s.Listener.reset();
        s.RollOffValue = 0;
    }
    if ((s.DS->GetSpeakerConfig() & kSpeakerBits) == kSpeakerBits) s.DS->SetSpeakerConfig(kSpeakerBits);
}

void TryToOpenDevice(Session& s, std::unique_ptr<DirectSound> created) {
    try {
        OpenDevice(s, std::move(created));
    } catch (const RuntimeError& e) {
        if (!s.DSReady) s.DS.reset();
        ShowDSError(s, "creating sound device", e.Number());
    }
}

void InitDevice(Session& s, std::unique_ptr<DirectSound> created) {
    s.DSReady = false;
    s.OpenDriver = -1;
    if (!NoSoundChosen(s)) TryToOpenDevice(s, std::move(created));
    HeadphonesRestore(s);
    // A bar of the window shows the open device, which may differ from the previous one.
    s.World.Screen.ShowDrivers();
}

}  // namespace

void InitAudioDriversList(Session& s) {
    s.DSEnum = s.DX->GetDSEnum();
    const std::int16_t count = s.DSEnum->GetCount();
    for (std::int16_t driver = 1; driver <= count; ++driver) s.Drivers.push_back(s.DSEnum->GetDescription(driver));
    s.Drivers.emplace_back("No Sound");
    s.World.Screen.ShowDrivers();
}

void cboDrivers_Click(Session& s, std::int16_t entry) {
    const std::int16_t before = s.Driver;
    s.Driver = entry;
    s.World.Screen.ShowDrivers();

    const auto reopen = [&s] {
        UnInitDirectSound(s);
        InitDirectSound(s);
        ListenerRestore(s);
    };
    if (!s.DeviceSwapArmed) return reopen();
    if (CarryAcross(s, reopen)) return;
    s.Driver = before;
    s.World.Screen.ShowDrivers();
}

TakenOutput TakeOutput(Session& s, std::int16_t entry) {
    std::unique_ptr<DirectSound> created;
    try {
        created = CreateDevice(s, entry);
    } catch (const RuntimeError&) {
        return TakenOutput::Refused;
    }
    const bool kept = CarryAcross(s, [&] {
        s.Driver = entry;
        UnInitDirectSound(s);
        InitDevice(s, std::move(created));
        ListenerRestore(s);
    });
    return kept ? TakenOutput::Taken : TakenOutput::NotKept;
}

void InitDirectSound(Session& s) { InitDevice(s, nullptr); }

void UnInitDirectSound(Session& s) {
    if (s.DSReady) {
        for (Row row = 0; row < kLoopTracks; ++row) LoopClear(s, row);
        s.DS.reset();
    }
    s.DSReady = false;
    s.OpenDriver = -1;
    PatternsRefresh(s);
}

}  // namespace marvolin

#include "soak/player.h"

#include <array>
#include <filesystem>
#include <utility>

#include "audio/loop_clearing.h"
#include "audio/play_commands.h"
#include "audio/play_modes.h"
#include "audio/recording.h"
#include "audio/reverse.h"
#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "browser/clipboard.h"
#include "parameters/fades.h"
#include "parameters/setters.h"
#include "parameters/wires.h"
#include "performance/map/scatter.h"
#include "performance/map/sound_map.h"
#include "performance/map/use_3d.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "performance/selection/selection.h"
#include "persistence/quick_load.h"
#include "persistence/save_open.h"
#include "persistence/snapshot.h"
#include "persistence/undo/undo_commands.h"
#include "sequencing/patterns.h"
#include "sequencing/timing.h"

namespace marvolin::soak {

namespace {

constexpr int kSets = 8;
constexpr std::int16_t kMostClips = 6;

}  // namespace

Player::Player(Evening& evening, std::vector<std::string> samples, std::vector<std::string> scripts, std::string folder,
               unsigned seed)
    : e_(evening),
      s_(evening.s),
      samples_(std::move(samples)),
      scripts_(std::move(scripts)),
      folder_(std::move(folder)),
      random_(seed) {
    s_.CurrentFolder = folder_;
}

void Player::Act() {
    ++gestures_;
    // Those that come oftener stand there oftener.
    constexpr std::array kGestures{&Player::Load, &Player::Load,     &Player::Turn,     &Player::Turn,  &Player::Fade,
                                   &Player::Fade, &Player::Sequence, &Player::Sequence, &Player::Mix,   &Player::Mix,
                                   &Player::Map,  &Player::Play,     &Player::Play,     &Player::Clips, &Player::Undo,
                                   &Player::Undo, &Player::Files,    &Player::Record,   &Player::Script};
    const auto gesture = kGestures[static_cast<std::size_t>(Any(static_cast<int>(kGestures.size())))];
    e_.Gesture([&] { (this->*gesture)(); });
}

void Player::Load() {
    const std::string& sample = samples_[static_cast<std::size_t>(Any(static_cast<int>(samples_.size())))];
    LoadSample(s_, {.Path = sample, .Target = RowOrAll(), .Play = Any(3) > 0, .Origin = SampleOrigin::File});
}

void Player::Turn() {
    switch (Any(4)) {
        case 0:
            return LoopVolChangeGang(s_, RowOrAll(), Value(0, kVolFull), UpdateDisplay::Yes);
        case 1:
            return LoopPanChangeGang(s_, RowOrAll(), Value(0, kPanRight));
        case 2:
            return LoopHzChangeGang(s_, RowOrAll(), Value(1, kHzTop));
        default:
            return LoopReverse(s_, AnyRow());
    }
}

void Player::Fade() {
    switch (Any(4)) {
        case 0:
            return LoopFadeTo(s_, AnyRow(), Value(0, kVolFull), kOwnBand);
        case 1:
            return FadeFactor_Change(s_, Value(kFadeFactorLow, kFadeFactorHigh));
        default:
            return LoopSetFadeGang(s_, RowOrAll(), static_cast<FadeCommand>(Any(4)), kOwnBand);
    }
}

void Player::Sequence() {
    switch (Any(5)) {
        case 0:
            return PatternStep(s_, Any(kPatternRows), Any(s_.StepsShown), Value(-30, 30));
        case 1:
            return NSteps_Step(s_, Value(-3, 3));
        case 2:
            return TimeDigit_Step(s_, Any(9), Value(-3, 3));
        case 3:
            return SetCurrentLoop(s_, AnyRow(), OpenPattern::No);
        default:
            return LoopSetPlayModeRows(s_, AnyRow(), Value(kOneShot, kDrum));
    }
}

void Player::Mix() {
    switch (Any(4)) {
        case 0:
            return PadType_Click(s_, Value(kPitch300Pad, kPanPad));
        case 1:
            return SelectToggle(s_, AnyRow());
        case 2: {
            std::int16_t wires = Value(0, 255);
            return LoopSetChannelGang(s_, RowOrAll(), wires, Apply::Yes);
        }
        default:
            return PadMove(s_, Value(-2000, 2000), Value(-2000, 2000), 1, {});
    }
}

void Player::Map() {
    switch (Any(8)) {
        case 0:
            if (ChangesDevice) ChangeUse3D(s_, !s_.Use3D);
            return;
        case 1:
            return ScatterAbsolute(s_);
        case 2:
            return CentreAll_Click(s_);
        default:
            PosMove(s_, Value(-2000, 2000), Value(-2000, 2000), Any(kLoopTracks), {});
    }
}

void Player::Play() {
    switch (Any(6)) {
        case 0:
            return StopAll(s_);
        case 1:
            return PlayAll(s_);
        case 2:
            return ToggleSilence(s_);
        default:
            return TogglePlay(s_, RowOrAll());
    }
}

void Player::Clips() {
    s_.Clips.ClipStaging = s_.Set[AnyRow()];
    if (s_.Clips.ClipTop < kMostClips) {
        AddNewClip(s_);
    } else {
        DeleteClip(s_, Value(0, kMostClips));
    }
}

void Player::Undo() {
    if (Any(3) == 0) {
        Redo_Click(s_);
    } else {
        Undo_Click(s_);
    }
}

void Player::Files() {
    // A set that was saved under the other kind of sound would change the device.
    const std::string set =
        folder_ + (s_.Use3D ? "space" : "set") + std::to_string(Any(kSets)) + (Any(4) == 0 ? ".mvp" : ".mvn");
    const bool isThere = std::filesystem::exists(set);
    switch (Any(4)) {
        case 0:
            return SnapShot_MouseUp(s_);
        case 1:
            if (isThere) OpenIt_Chosen(s_, CurrentChoices(s_), set);
            return;
        case 2:
            QuickLoadPop_MouseUp(s_, kLeftButton);
            return QuickLoad_LostFocus(s_);
        default:
            return SaveItAs_Chosen(s_, CurrentChoices(s_), set);
    }
}

void Player::Record() { ToggleRecording(s_, e_.Now()); }

void Player::Script() {
    if (scripts_.empty() || Any(4) == 0) return e_.Room().Stop();
    e_.Room().Run(scripts_[static_cast<std::size_t>(Any(static_cast<int>(scripts_.size())))], "evening.mvs");
}

void Player::TidyUp() {
    std::filesystem::remove_all(folder_ + "Recordings");
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
        if (entry.path().filename().string().starts_with("Snapshot")) std::filesystem::remove(entry.path());
    }
    UpdateQuickLoad(s_);
}

}  // namespace marvolin::soak

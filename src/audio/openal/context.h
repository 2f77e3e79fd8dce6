#pragma once
/// \file
/// The mixer: a loopback device of OpenAL, which renders when it is asked to.

#ifndef AL_ALEXT_PROTOTYPES
#define AL_ALEXT_PROTOTYPES
#endif
#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "audio/openal/call.h"
#include "audio/openal/call_sender.h"
#include "audio/openal/load_meter.h"
#include "audio/openal/owner_thread.h"
#include "audio/openal/source_gate.h"
#include "audio/output/output_chain.h"
#include "audio/output/seam.h"

namespace marvolin {

class CallApplier;
class SourcePool;

inline constexpr int kOutputRate = 44100;  ///< Hz

/// What the library holds of a mixer: a loopback device and its context, which is current in no thread yet. Any thread
/// may make one.
class OpenAlMixer {
public:
    /// `SoundError` `kNoDriver` when the library opens no device, `kOutOfMemory` when it has no memory for one.
    OpenAlMixer();

    ALCdevice* Device() const { return device_.get(); }
    ALCcontext* Context() const { return context_.get(); }

    /// Makes space for headphones, or for speakers, while nothing renders. False when the library does not do it.
    bool Reset(bool headphones);

private:
    struct Close {
        void operator()(ALCdevice* device) const;
        void operator()(ALCcontext* context) const;
    };
    std::unique_ptr<ALCdevice, Close> device_;
    std::unique_ptr<ALCcontext, Close> context_;
};

/// One mixer. It belongs to the thread that makes it; only `Render_rt` may be called from another one. What changes the
/// sound is posted as a `Call` and applied by the thread that renders.
class OpenAlContext {
public:
    /// What is rendered passes `chain`; null for none. Without a `mixer` it makes one; see there for errors.
    explicit OpenAlContext(std::shared_ptr<LoadMeter> meter, std::shared_ptr<OutputChain> chain = nullptr,
                           OpenAlMixer mixer = OpenAlMixer());
    ~OpenAlContext();
    OpenAlContext(const OpenAlContext&) = delete;
    OpenAlContext& operator=(const OpenAlContext&) = delete;

    /// Renders the next `frames` stereo frames of 16 bits, with each call at its frame; nothing for 0 or less.
    /// `hasGone`: the device was pulled out and does not set the pace any more.
    void Render_rt(std::int16_t* out, int frames, bool hasGone = false) noexcept;

    /// Stops a debug build when another thread than the owner calls.
    void AssertOwner() const noexcept { owner_.Assert(); }

    /// From now on `clock` follows the callbacks, which ask for `period` frames at a time, and gives the calls their
    /// frames. Before the first callback.
    void JoinClock(std::shared_ptr<CardClock> clock, int period);
    /// The clock follows another device or none; calls to this one are heard as soon as can be.
    void LeaveClock();
    /// No output renders, or none but a program that waits for each rendering: calls may be applied by the owner as
    /// well, so that what has been released is freed even when nothing is rendered.
    void RenderByHand();

    /// Posts a call; see `CallSender::Post`.
    void Post(const Call& call, Pace pace, std::int64_t& last);
    /// See `CallSender::Forget`.
    void Forget(const std::int64_t& last) { sender_.Forget(last); }
    /// Something that takes long begins: what was posted before is heard meanwhile.
    void Renew();
    /// Posts a call to the listener or about the roll-off.
    void PostToListener(const Call& call) { Post(call, Pace::Soon, listenerLast_); }
    /// What the thread that renders uses.
    class Thing {
    public:
        virtual ~Thing() = default;
        /// True when it has been used for the last time.
        virtual bool Past() const = 0;
    };
    /// Keeps `thing` until it is past.
    void Retire(std::unique_ptr<Thing> thing);
    /// Posts what had to wait for room, and frees what is past.
    void CatchUp();
    /// Calls posted while `Held` lives are heard at one frame.
    class Held {
    public:
        explicit Held(OpenAlContext& context) : context_(context) { context_.sender_.Hold(); }
        ~Held() { context_.LetGo(); }
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;

    private:
        OpenAlContext& context_;
    };

    CallCounts Counts() const;

    /// Whether the library has the data of a head. It reads folders for that: asked once, and remembered.
    bool HasHeadphones();
    /// Makes space for headphones, or for speakers, from the next period on; see `HeadphoneSwitch`. An output that asks
    /// meanwhile waits.
    void SetHeadphones(bool on);
    /// Waits until an output has been given a period, at most a tenth of a second. Right behind it there is most time
    /// until the next one.
    void AwaitRendering() const;

    /// Sources that do not sound, for the owner. False when there are not so many left.
    bool TakeSources(std::span<ALuint> sources);
    void GiveBackSources(std::span<const ALuint> sources);
    /// Gives a source that does not sound a buffer, 0 for none. False when it does not take it.
    bool Bind(ALuint source, ALuint buffer);

private:
    friend class OpenAlSetting;
    void TellClock_rt(bool hasGone) noexcept;
    void LetGo();
    /// Takes and counts the error of the calls that have been applied. OpenAL keeps one by mixer, not by thread: the
    /// owner does not ask for errors, but looks at results.
    void TakeErrors_rt() noexcept;
    /// Applies everything that has been posted, if nobody renders at this moment and the owner may.
    void ApplyByHand();

    std::shared_ptr<LoadMeter> meter_;
    std::shared_ptr<OutputChain> chain_;
    OwnerThread owner_;
    OpenAlMixer mixer_;

    CallRing ring_;
    CallSender sender_;
    std::unique_ptr<CallApplier> applier_;
    std::unique_ptr<SourcePool> pool_;
    SourceGate gate_;
    /// Held while rendering. The owner takes it only by hand, and only if it is free, and to reset the mixer.
    std::mutex applying_;
    bool byHand_ = false;
    std::optional<bool> hasHeadphones_;
    std::int64_t listenerLast_ = 0;
    std::vector<std::unique_ptr<Thing>> retired_;
    std::atomic<std::uint64_t> refused_{0};
    std::atomic<std::uint64_t> renderings_{0};
    Seam seam_;

    std::shared_ptr<CardClock> clock_;
    std::mutex clocking_;  ///< held while the clock is told, and to stop telling it
    CardClock* toldClock_ = nullptr;
};

/// While it lives, calls of OpenAL go to this mixer. Rendering goes on meanwhile.
class OpenAlSetting {
public:
    explicit OpenAlSetting(OpenAlContext& context);
};

}  // namespace marvolin

#include "audio/openal/context.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>
#include <utility>

#include "audio/openal/call_applier.h"
#include "audio/openal/source_pool.h"
#include "core/errors.h"

namespace marvolin {

namespace {

/// A gesture makes some ten calls and a tick at most about a hundred.
constexpr std::size_t kRingCalls = 4096;
/// An output that has not asked for so long asks for nothing.
constexpr std::chrono::milliseconds kLongestPeriod{100};

/// While it lives, the calls of this thread go to a context.
class CurrentContext {
public:
    explicit CurrentContext(ALCcontext* context) : before_(alcGetThreadContext()), context_(context) {
        if (before_ != context_) alcSetThreadContext(context_);
    }
    ~CurrentContext() {
        if (before_ != context_) alcSetThreadContext(before_);
    }
    CurrentContext(const CurrentContext&) = delete;
    CurrentContext& operator=(const CurrentContext&) = delete;

private:
    ALCcontext* before_;
    ALCcontext* context_;
};

std::array<ALCint, 15> Attributes(bool headphones) {
    // The limiter would delay the sound by its look-ahead and change the volume where the sum is loud. Nothing is sent
    // to an effect, and room for sends costs the library 0.8 MB.
    return {ALC_FREQUENCY,
            kOutputRate,
            ALC_FORMAT_CHANNELS_SOFT,
            ALC_STEREO_SOFT,
            ALC_FORMAT_TYPE_SOFT,
            ALC_SHORT_SOFT,
            ALC_MONO_SOURCES,
            SourcePool::kMostSources,
            ALC_HRTF_SOFT,
            headphones ? ALC_TRUE : ALC_FALSE,
            ALC_OUTPUT_LIMITER_SOFT,
            ALC_FALSE,
            ALC_MAX_AUXILIARY_SENDS,
            0,
            0};
}

}  // namespace

OpenAlMixer::OpenAlMixer() : device_(alcLoopbackOpenDeviceSOFT(nullptr)) {
    if (!device_) throw SoundError(sound_error::kNoDriver);
    context_.reset(alcCreateContext(device_.get(), Attributes(false).data()));
    if (context_) return;
    const bool memory = alcGetError(device_.get()) == ALC_OUT_OF_MEMORY;
    throw SoundError(memory ? sound_error::kOutOfMemory : sound_error::kNoDriver);
}

void OpenAlMixer::Close::operator()(ALCdevice* device) const { alcCloseDevice(device); }

void OpenAlMixer::Close::operator()(ALCcontext* context) const {
    if (alcGetThreadContext() == context) alcSetThreadContext(nullptr);
    alcDestroyContext(context);
}

bool OpenAlMixer::Reset(bool headphones) {
    if (alcResetDeviceSOFT(device_.get(), Attributes(headphones).data()) != ALC_TRUE) return false;
    ALCint on = ALC_FALSE;
    alcGetIntegerv(device_.get(), ALC_HRTF_SOFT, 1, &on);
    return (on == ALC_TRUE) == headphones;
}

OpenAlContext::OpenAlContext(std::shared_ptr<LoadMeter> meter, std::shared_ptr<OutputChain> chain, OpenAlMixer mixer)
    : meter_(std::move(meter)), chain_(std::move(chain)), mixer_(std::move(mixer)), ring_(kRingCalls), sender_(ring_) {
    const OpenAlSetting setting(*this);
    alDistanceModel(AL_INVERSE_DISTANCE_CLAMPED);
    pool_ = std::make_unique<SourcePool>(mixer_.Device());
    applier_ = std::make_unique<CallApplier>(ring_, SourcePool::kMostSources / 2);
}

OpenAlContext::~OpenAlContext() {
    AssertOwner();
    LeaveClock();
    retired_.clear();
}

void OpenAlContext::JoinClock(std::shared_ptr<CardClock> clock, int period) {
    AssertOwner();
    clock_ = std::move(clock);
    clock_->Open(period);
    sender_.SetClock(clock_);
    clock_->SetFlush([this] {
        sender_.Flush();
        CatchUp();
    });
    const std::lock_guard<std::mutex> guard(clocking_);
    toldClock_ = clock_.get();
}

void OpenAlContext::LeaveClock() {
    AssertOwner();
    if (!clock_) return;
    sender_.SetClock(nullptr);
    clock_->SetFlush(nullptr);
    {
        const std::lock_guard<std::mutex> guard(clocking_);
        toldClock_ = nullptr;
    }
    clock_->Close();
    clock_.reset();
}

void OpenAlContext::TellClock_rt(bool hasGone) noexcept {
    const std::unique_lock<std::mutex> guard(clocking_, std::try_to_lock);
    if (guard.owns_lock() && toldClock_ != nullptr)
        toldClock_->Called_rt(toldClock_->Steadily(), applier_->Position(), hasGone);
}

void OpenAlContext::Render_rt(std::int16_t* out, int frames, bool hasGone) noexcept {
    if (frames <= 0) return;
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    // While an output renders, the owner holds this only to reset the mixer, which the player asks for.
    const std::lock_guard<std::mutex> applying(applying_);
    const CurrentContext current(mixer_.Context());
    TellClock_rt(hasGone);
    std::int16_t* end = out;
    for (int left = frames; left > 0;) {
        int piece = std::min(left, kShortestPiece);
        if (gate_.Try_rt()) {
            piece = applier_->Prepare_rt(left);
            gate_.unlock();
        }
        alcRenderSamplesSOFT(mixer_.Device(), end, piece);
        applier_->Rendered_rt(piece);
        end += 2 * piece;
        left -= piece;
    }
    seam_.Pass_rt(out, frames);
    if (chain_) chain_->Pass_rt(out, frames, hasGone);
    if (gate_.Try_rt()) {
        applier_->Publish_rt();
        TakeErrors_rt();
        gate_.unlock();
    }
    renderings_.fetch_add(1, std::memory_order_release);
    meter_->Add_rt(std::chrono::duration<double>(Clock::now() - begin).count(),
                   static_cast<double>(frames) / kOutputRate);
}

void OpenAlContext::TakeErrors_rt() noexcept {
    if (alGetError() != AL_NO_ERROR) refused_.fetch_add(1, std::memory_order_relaxed);
}

void OpenAlContext::Post(const Call& call, Pace pace, std::int64_t& last) {
    AssertOwner();
    CatchUp();
    if (sender_.Waiting() >= CallApplier::kMostCalls) ApplyByHand();
    sender_.Post(call, pace, last);
}

void OpenAlContext::Renew() {
    AssertOwner();
    sender_.Renew();
    ApplyByHand();
    CatchUp();
}

void OpenAlContext::LetGo() {
    sender_.LetGo();
    if (!retired_.empty()) ApplyByHand();
    CatchUp();
}

void OpenAlContext::RenderByHand() {
    AssertOwner();
    byHand_ = true;
    ApplyByHand();
    CatchUp();
}

void OpenAlContext::ApplyByHand() {
    if (!byHand_ || sender_.Holds()) return;
    const std::unique_lock<std::mutex> applying(applying_, std::try_to_lock);
    if (!applying.owns_lock()) return;
    const OpenAlSetting setting(*this);
    do {
        sender_.Flush();
        const std::lock_guard<SourceGate> gate(gate_);
        applier_->ApplyAll_rt();
        TakeErrors_rt();
    } while (sender_.Full());
}

void OpenAlContext::Retire(std::unique_ptr<Thing> thing) {
    retired_.push_back(std::move(thing));
    ApplyByHand();
    CatchUp();
}

void OpenAlContext::CatchUp() {
    sender_.CatchUp();
    if (retired_.empty()) return;
    std::erase_if(retired_, [](const std::unique_ptr<Thing>& thing) { return thing->Past(); });
}

CallCounts OpenAlContext::Counts() const {
    CallCounts counts;
    applier_->Count(counts);
    counts.Overflowed = sender_.Overflowed();
    counts.Refused = refused_;
    return counts;
}

bool OpenAlContext::HasHeadphones() {
    AssertOwner();
    if (hasHeadphones_) return *hasHeadphones_;
    ALCint heads = 0;
    if (alcIsExtensionPresent(mixer_.Device(), "ALC_SOFT_HRTF") == ALC_TRUE)
        alcGetIntegerv(mixer_.Device(), ALC_NUM_HRTF_SPECIFIERS_SOFT, 1, &heads);
    hasHeadphones_ = heads > 0;
    return *hasHeadphones_;
}

void OpenAlContext::AwaitRendering() const {
    const std::uint64_t before = renderings_.load(std::memory_order_acquire);
    const auto end = std::chrono::steady_clock::now() + kLongestPeriod;
    while (renderings_.load(std::memory_order_acquire) == before && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::microseconds(50));
}

void OpenAlContext::SetHeadphones(bool on) {
    AssertOwner();
    const std::lock_guard<std::mutex> applying(applying_);
    seam_.Open();
    if (mixer_.Reset(on)) return;
    if (on) mixer_.Reset(false);
    throw SoundError(sound_error::kControlUnavailable);
}

bool OpenAlContext::TakeSources(std::span<ALuint> sources) {
    while (!pool_->Take(sources))
        if (!pool_->Grow(gate_)) return false;
    return true;
}

void OpenAlContext::GiveBackSources(std::span<const ALuint> sources) { pool_->GiveBack(sources); }

bool OpenAlContext::Bind(ALuint source, ALuint buffer) {
    const std::lock_guard<SourceGate> gate(gate_);
    ALint bound = 0;
    alSourcei(source, AL_BUFFER, static_cast<ALint>(buffer));
    alGetSourcei(source, AL_BUFFER, &bound);
    return bound == static_cast<ALint>(buffer);
}

OpenAlSetting::OpenAlSetting(OpenAlContext& context) {
    context.AssertOwner();
    ALCcontext* mixer = context.mixer_.Context();
    if (alcGetThreadContext() != mixer) alcSetThreadContext(mixer);
}

}  // namespace marvolin

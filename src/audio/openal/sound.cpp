#include "audio/openal/sound.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <functional>
#include <future>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "audio/openal/device.h"
#include "audio/openal/load_meter.h"
#include "audio/openal/owner_thread.h"
#include "audio/openal/sdl_output.h"
#include "core/errors.h"

namespace marvolin {

namespace {

struct Driver {
    std::string Guid;
    std::string Description;
};

const Driver kPrimaryDriver{"", "Primary Sound Driver"};

/// The drivers at the moment the list was made.
class DriverList final : public DSEnum {
public:
    explicit DriverList(std::vector<Driver> drivers) : drivers_(std::move(drivers)) {}
    std::int16_t GetCount() override {
        owner_.Assert();
        return static_cast<std::int16_t>(drivers_.size());
    }
    std::string GetGuid(std::int16_t index) override { return At(index).Guid; }
    std::string GetDescription(std::int16_t index) override { return At(index).Description; }

private:
    const Driver& At(std::int16_t index) const {
        owner_.Assert();
        if (index < 1 || index > static_cast<std::int16_t>(drivers_.size()))
            throw SoundError(sound_error::kInvalidArgument);
        return drivers_[static_cast<std::size_t>(index - 1)];
    }
    OwnerThread owner_;
    std::vector<Driver> drivers_;
};

/// A root that knows its open device.
class MeteredRoot : public DirectX7 {
public:
    MeteredRoot(std::shared_ptr<CardClock> clock, std::shared_ptr<OutputChain> chain)
        : clock_(std::move(clock)), chain_(std::move(chain)) {}

    double Load() const { return IsOpen() ? meter_->Percent() : 0; }
    bool Gone() const { return IsOpen() && device_->Gone(); }
    int Period() const { return IsOpen() ? period_ : 0; }
    double Delay() const {
        if (!IsOpen() || !clock_) return 0;
        const double ahead = std::max(1000.0 * period_ / kFramesASecond, serverBuffer_);
        return 1000.0 * clock_->Lead() / kFramesASecond + ahead;
    }
    CallCounts Counts() const { return IsOpen() ? device_->Counts() : CallCounts{}; }

protected:
    void AssertOwner() const { owner_.Assert(); }
    std::shared_ptr<OpenAlContext> OpenContext(OpenAlMixer mixer = OpenAlMixer()) {
        meter_->Reset();
        return std::make_shared<OpenAlContext>(meter_, chain_, std::move(mixer));
    }
    /// The clock follows the new device, which asks for `period` frames at a time, into a server's buffer of
    /// `serverBuffer` milliseconds.
    void Follow(const std::shared_ptr<OpenAlContext>& context, int period, double serverBuffer = 0) {
        period_ = period;
        serverBuffer_ = serverBuffer;
        if (!clock_) return;
        if (const auto previous = followed_.lock()) previous->LeaveClock();
        context->JoinClock(clock_, period);
        followed_ = context;
    }
    std::unique_ptr<DirectSound> Opened(std::shared_ptr<OpenAlContext> context, std::unique_ptr<SdlOutput> output) {
        auto device = std::make_unique<OpenAlDevice>(std::move(context), std::move(output));
        device_ = device.get();
        open_ = device->Life();
        return device;
    }

private:
    bool IsOpen() const {
        AssertOwner();
        return !open_.expired();
    }
    OwnerThread owner_;
    std::shared_ptr<CardClock> clock_;
    std::shared_ptr<OutputChain> chain_;
    std::shared_ptr<LoadMeter> meter_ = std::make_shared<LoadMeter>();
    std::weak_ptr<OpenAlContext> followed_;
    int period_ = 0;
    double serverBuffer_ = 0;
    const OpenAlDevice* device_ = nullptr;  // valid until `open_` expires
    std::weak_ptr<const void> open_;
};

/// A mixer takes a good part of the start, and so do the windows: it is made beside them, on a thread of its own.
class MixerAhead {
public:
    void Begin() {
        try {
            mixer_ = std::async(std::launch::async, [] { return OpenAlMixer(); });
        } catch (const std::system_error&) {
            // Without a thread it is made when it is asked for.
        }
    }
    /// The mixer that was made ahead, the first time; then, and when there was none to be had, a new one or its error.
    OpenAlMixer Take() {
        if (!mixer_.valid()) return {};
        try {
            return mixer_.get();
        } catch (const SoundError&) {
            return {};
        }
    }

private:
    std::future<OpenAlMixer> mixer_;
};

class SdlRoot final : public MeteredRoot {
public:
    SdlRoot(std::shared_ptr<CardClock> clock, std::shared_ptr<OutputChain> chain)
        : MeteredRoot(std::move(clock), std::move(chain)) {
        if (audio_.HasOutput()) ahead_.Begin();
    }
    std::unique_ptr<DSEnum> GetDSEnum() override {
        AssertOwner();
        std::vector<Driver> drivers;
        if (audio_.HasOutput()) {
            drivers.push_back(kPrimaryDriver);
            for (const std::string& name : audio_.OutputNames()) drivers.push_back({name, name});
        }
        return std::make_unique<DriverList>(std::move(drivers));
    }
    std::unique_ptr<DirectSound> DirectSoundCreate(const std::string& guid) override {
        AssertOwner();
        if (!audio_.HasOutput()) throw SoundError(sound_error::kNoDriver);
        auto context = OpenContext(ahead_.Take());
        auto output = std::make_unique<SdlOutput>(guid, *context);
        Follow(context, output->Period(), ServerBuffer(audio_.Driver(), std::getenv("PULSE_LATENCY_MSEC")));
        output->Start();
        return Opened(std::move(context), std::move(output));
    }

private:
    SdlAudio audio_;
    MixerAhead ahead_;
};

}  // namespace

/// The mixer that is rendered by hand.
struct LoopbackRenderer::Slot {
    std::weak_ptr<OpenAlContext> Context;
    std::shared_ptr<CardClock> Clock;
    int Period = 0;
    std::shared_ptr<OutputChain> Chain;
};

namespace {

class LoopbackRoot final : public MeteredRoot {
public:
    LoopbackRoot(std::shared_ptr<CardClock> clock, int period, std::shared_ptr<OutputChain> chain,
                 std::function<void(std::shared_ptr<OpenAlContext>)> opened)
        : MeteredRoot(clock, std::move(chain)),
          byHand_(clock == nullptr),
          period_(period),
          opened_(std::move(opened)) {}
    std::unique_ptr<DSEnum> GetDSEnum() override {
        AssertOwner();
        return std::make_unique<DriverList>(std::vector<Driver>{kPrimaryDriver});
    }
    std::unique_ptr<DirectSound> DirectSoundCreate(const std::string& guid) override {
        AssertOwner();
        if (guid != kPrimaryDriver.Guid) throw SoundError(sound_error::kNoDriver);
        auto context = OpenContext();
        Follow(context, period_);
        if (byHand_) context->RenderByHand();
        opened_(context);
        return Opened(std::move(context), nullptr);
    }

private:
    bool byHand_;
    int period_;
    std::function<void(std::shared_ptr<OpenAlContext>)> opened_;
};

}  // namespace

std::unique_ptr<DirectX7> CreateOpenAlSound(std::shared_ptr<CardClock> clock, std::shared_ptr<OutputChain> chain) {
    if (alcIsExtensionPresent(nullptr, "ALC_SOFT_loopback") != ALC_TRUE)
        throw RuntimeError(sound_error::kNoDriver, "OpenAL has no loopback device");
    return std::make_unique<SdlRoot>(std::move(clock), std::move(chain));
}

double OpenAlSoundLoad(const DirectX7& service) {
    const auto* root = dynamic_cast<const MeteredRoot*>(&service);
    return root == nullptr ? 0 : root->Load();
}

bool OpenAlSoundGone(const DirectX7& service) {
    const auto* root = dynamic_cast<const MeteredRoot*>(&service);
    return root != nullptr && root->Gone();
}

int OpenAlPeriod(const DirectX7& service) {
    const auto* root = dynamic_cast<const MeteredRoot*>(&service);
    return root == nullptr ? 0 : root->Period();
}

double OpenAlDelay(const DirectX7& service) {
    const auto* root = dynamic_cast<const MeteredRoot*>(&service);
    return root == nullptr ? 0 : root->Delay();
}

double ServerBuffer(std::string_view driver, const char* latency) {
    if (driver != "pulseaudio" || latency == nullptr) return 0;
    const std::string_view text(latency);
    unsigned milliseconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), milliseconds);
    return error == std::errc() && end == text.data() + text.size() ? milliseconds : 0;
}

CallCounts OpenAlCallCounts(const DirectX7& service) {
    const auto* root = dynamic_cast<const MeteredRoot*>(&service);
    return root == nullptr ? CallCounts{} : root->Counts();
}

LoopbackRenderer::LoopbackRenderer(std::shared_ptr<CardClock> clock, int period, std::shared_ptr<OutputChain> chain)
    : slot_(std::make_shared<Slot>(Slot{{}, std::move(clock), period, std::move(chain)})) {}
LoopbackRenderer::~LoopbackRenderer() = default;
LoopbackRenderer::LoopbackRenderer(LoopbackRenderer&&) noexcept = default;
LoopbackRenderer& LoopbackRenderer::operator=(LoopbackRenderer&&) noexcept = default;

std::unique_ptr<DirectX7> LoopbackRenderer::Root() {
    return std::make_unique<LoopbackRoot>(
        slot_->Clock, slot_->Period, slot_->Chain,
        [slot = slot_](std::shared_ptr<OpenAlContext> context) { slot->Context = std::move(context); });
}

void LoopbackRenderer::Render(std::int16_t* frames, int count) {
    if (const auto context = slot_->Context.lock())
        context->Render_rt(frames, count);
    else
        std::fill_n(frames, 2 * static_cast<std::size_t>(std::max(count, 0)), std::int16_t{0});
}

}  // namespace marvolin

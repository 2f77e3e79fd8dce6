#pragma once
/// \file
/// The output of all devices, as the session uses it.

#include <memory>

#include "audio/output/output_chain.h"
#include "audio/output/recorder.h"
#include "core/card_output.h"

namespace marvolin {

/// A chain with its recorder. The services of sound get the chain; see `CreateOpenAlSound`.
class ChainedOutput final : public CardOutput {
public:
    ChainedOutput() : recorder_(chain_) {}

    const std::shared_ptr<OutputChain>& Chain() const { return chain_; }

    void SetSilent(bool silent) override { chain_->SetSilent(silent); }
    bool IsSilent() const override { return chain_->IsSilent(); }
    OutputLevels TakeLevels() override { return chain_->TakeLevels(); }
    void StartRecording(const std::string& path) override { recorder_.Start(path); }
    void StopRecording() override { recorder_.Stop(); }
    void FinishRecording() override { recorder_.Finish(); }
    bool IsRecording() const override { return recorder_.IsRunning(); }
    RecordingState Recording() const override {
        return {recorder_.Frames(), recorder_.Missed(), recorder_.IsEnding(), recorder_.Failure()};
    }

private:
    std::shared_ptr<OutputChain> chain_ = std::make_shared<OutputChain>();
    Recorder recorder_;
};

}  // namespace marvolin

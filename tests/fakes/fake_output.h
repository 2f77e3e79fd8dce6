#pragma once
/// \file
/// The sound on its way to the card, as a test says it is.

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "core/card_output.h"
#include "core/errors.h"

namespace marvolin::test {

class FakeOutput : public CardOutput {
public:
    bool Silent = false;
    OutputLevels Levels;
    RecordingState State;
    std::string Path;                ///< of the recording that runs
    std::vector<std::string> Paths;  ///< all recordings
    std::string Refusal;             ///< no recording can be started
    bool SlowDisk = false;           ///< a recording that was stopped is not yet whole

    void SetSilent(bool silent) override { Silent = silent; }
    bool IsSilent() const override { return Silent; }
    OutputLevels TakeLevels() override { return Levels; }
    void StartRecording(const std::string& path) override {
        if (!Refusal.empty()) throw RuntimeError(70, Refusal);
        Path = path;
        Paths.push_back(path);
        State = {};
        std::ofstream(path) << "a recording";
    }
    void StopRecording() override {
        State.Ending = SlowDisk && IsRecording();
        if (!SlowDisk) FinishRecording();
    }
    void FinishRecording() override {
        State.Ending = false;
        Path.clear();
    }
    bool IsRecording() const override { return !Path.empty() && !State.Failure; }
    RecordingState Recording() const override { return State; }
};

}  // namespace marvolin::test

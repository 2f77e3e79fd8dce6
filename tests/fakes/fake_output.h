#pragma once
/// \file
/// The sound on its way to the card, as a test says it is.

#include <cstdint>
#include <fstream>
#include <functional>
#include <new>
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
    bool OutOfMemory = false;        ///< nor while this is true
    bool SlowDisk = false;           ///< a recording that was stopped is not yet whole
    bool DiskHangs = false;          ///< nor does it become so
    int Taken = 0;                   ///< names that another program takes just before a recording is started

    std::function<void(const char* what)> OnCall;  ///< "Stop" and "Finish" of a recording

    void SetSilent(bool silent) override { Silent = silent; }
    bool IsSilent() const override { return Silent; }
    OutputLevels TakeLevels() override { return Levels; }
    void StartRecording(const std::string& path) override {
        if (!Refusal.empty()) throw RuntimeError(70, Refusal);
        if (OutOfMemory) throw std::bad_alloc();
        if (Taken > 0) {
            --Taken;
            std::ofstream(path) << "another file";
            throw RuntimeError(58, "File already exists");
        }
        Path = path;
        Paths.push_back(path);
        State = {};
        std::ofstream(path) << "a recording";
    }
    void StopRecording() override {
        if (OnCall) OnCall("Stop");
        State.Ending = (SlowDisk || DiskHangs) && IsRecording();
        if (!SlowDisk) End();
    }
    void FinishRecording() override {
        if (OnCall) OnCall("Finish");
        End();
    }
    bool IsRecording() const override { return !Path.empty() && !State.Failure; }
    RecordingState Recording() const override { return State; }

private:
    void End() {
        if (DiskHangs) return;
        State.Ending = false;
        Path.clear();
    }
};

}  // namespace marvolin::test

#pragma once
/// \file
/// What the session can do with the sound on its way to the card. Behind it stands `audio/output/chained_output.*`.

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace marvolin {

/// How loud the sound has been.
struct OutputLevels {
    std::array<int, 2> Peak{};  ///< left, right: the furthest from 0, 0..32768
    bool CutOff = false;        ///< the sum did not fit full scale
};

/// What is known of the recording that runs, or of the last one.
struct RecordingState {
    std::int64_t Frames = 0;             ///< in the file, 44100 a second, 4 bytes each
    std::uint64_t Missed = 0;            ///< frames that the disk was too slow for; they are silence in the file
    bool Ending = false;                 ///< nothing more is recorded; the rest goes to the disk
    std::optional<std::string> Failure;  ///< why the disk takes no more, in words
};

/// The output of all devices together.
class CardOutput {
public:
    virtual ~CardOutput() = default;

    /// Everything is silent within a period, or heard again where it would be by now.
    virtual void SetSilent(bool silent) = 0;
    virtual bool IsSilent() const = 0;

    /// The levels since this was last called.
    virtual OutputLevels TakeLevels() = 0;

    /// Records into the new WAV file `path` from the next period on; a recording that runs is finished first. Failures
    /// are a `RuntimeError` with the reason in words: nothing is recorded, and there is no file.
    virtual void StartRecording(const std::string& path) = 0;
    /// Records no more. Does not wait for the disk. Nothing without a recording.
    virtual void StopRecording() = 0;
    /// The same, and waits until the file is whole; when the disk hangs, for some seconds. Then `IsRecording` is true.
    virtual void FinishRecording() = 0;
    /// True from `StartRecording` until the file is whole: after a stop, or when the disk takes no more.
    virtual bool IsRecording() const = 0;
    virtual RecordingState Recording() const = 0;
};

}  // namespace marvolin

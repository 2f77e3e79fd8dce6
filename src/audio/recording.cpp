#include "audio/recording.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <string>

#include "core/errors.h"
#include "core/files/file_errors.h"
#include "core/files/paths.h"
#include "core/routines.h"

namespace marvolin {

namespace {

constexpr std::int64_t kRecordedRate = 44100;    // frames a second
constexpr std::int64_t kRecordedFrameBytes = 4;  // 16 bits, stereo

std::string Formatted(const char* format, const std::tm& time) {
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

std::string NameWithoutEnding(const std::string& file) {
    const std::size_t dot = file.rfind('.');
    return dot == std::string::npos || dot == 0 ? file : file.substr(0, dot);
}

/// The folder of the recordings, made when it is missing.
std::string RecordingsFolder(Session& s) {
    const std::string folder = s.World.Desk.ProgramFolder() + "/Recordings";
    struct stat found {};
    if (::mkdir(folder.c_str(), 0777) == 0 || (::stat(folder.c_str(), &found) == 0 && S_ISDIR(found.st_mode)))
        return folder + "/";
    RaiseFileError(errno == EEXIST || errno == 0 ? ENOTDIR : errno);
}

/// A path in `folder` that no file has.
std::string FreePath(const std::string& folder, const std::string& name) {
    std::string path = folder + name + ".wav";
    struct stat found {};
    for (int number = 2; ::lstat(path.c_str(), &found) == 0; ++number)
        path = folder + name + " (" + std::to_string(number) + ").wav";
    return path;
}

std::string TimeText(std::int64_t frames) {
    const std::int64_t seconds = frames / kRecordedRate;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%lld:%02lld", static_cast<long long>(seconds / 60),
                  static_cast<long long>(seconds % 60));
    return text.data();
}

std::string SizeText(std::int64_t frames) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f MB", static_cast<double>(frames * kRecordedFrameBytes) / 1e6);
    return text.data();
}

void ShowState(Session& s, const std::string& text) {
    if (s.RecordingText == text) return;
    s.RecordingText = text;
    s.World.Screen.ShowRecording();
}

void StartRecording(Session& s, const std::tm& now) {
    try {
        const std::string set = s.CurrentFile.empty() ? "marvolin" : NameWithoutEnding(s.CurrentFile);
        const std::string path = FreePath(RecordingsFolder(s), set + Formatted(" %Y-%m-%d %H-%M-%S", now));
        s.World.Output->StartRecording(path);
        s.RecordingFile = path;
    } catch (const RuntimeError& error) {
        s.World.Desk.Report(std::string("Error starting recording: ") + error.what(), "", BoxStyle::Critical);
        return;
    }
    ShowState(s, TimeText(0) + "  " + SizeText(0));
    ShowStatus(s, "Recording into \"" + LastPathPart(s.RecordingFile) + "\"");
}

}  // namespace

void ToggleRecording(Session& s, const std::tm& now) {
    if (s.World.Output == nullptr) return;
    if (s.RecordingFile.empty())
        StartRecording(s, now);
    else
        EndRecording(s);
}

void EndRecording(Session& s) {
    if (s.RecordingFile.empty()) return;
    s.World.Output->StopRecording();
    const RecordingState state = s.World.Output->Recording();
    std::string text = "Recorded " + TimeText(state.Frames) + " into \"" + LastPathPart(s.RecordingFile) + "\"";
    const std::uint64_t missing = 1000 * state.Missed / kRecordedRate;
    if (state.Missed > 0) text += "; the disk was too slow for " + std::to_string(missing) + " ms";
    s.RecordingFile.clear();
    ShowState(s, "");
    ShowStatus(s, text);
}

void WatchRecording(Session& s) {
    if (s.RecordingFile.empty()) return;
    const RecordingState state = s.World.Output->Recording();
    if (!state.Failure) {
        ShowState(s, TimeText(state.Frames) + "  " + SizeText(state.Frames));
        return;
    }
    const std::string name = LastPathPart(s.RecordingFile);
    EndRecording(s);
    s.World.Desk.Report("The recording has ended: " + *state.Failure + ". What was recorded is in \"" + name + "\".",
                        "", BoxStyle::Critical);
}

void ToggleSilence(Session& s) {
    if (s.World.Output == nullptr) return;
    const bool silent = !s.World.Output->IsSilent();
    s.World.Output->SetSilent(silent);
    s.World.Screen.ShowSilence();
    ShowStatus(s, silent ? "Silence: F12 brings the sound back" : "The sound is back");
}

}  // namespace marvolin

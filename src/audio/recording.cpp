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
constexpr std::size_t kLongestSetName = 200;     // bytes; a file name has 255 at most

std::string Formatted(const char* format, const std::tm& time) {
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

std::string NameWithoutEnding(const std::string& file) {
    const std::size_t dot = file.rfind('.');
    return dot == std::string::npos || dot == 0 ? file : file.substr(0, dot);
}

/// The first bytes of a name in UTF-8, no letter cut in two.
std::string Shortened(const std::string& name, std::size_t bytes) {
    if (name.size() <= bytes) return name;
    while (bytes > 0 && (static_cast<unsigned char>(name[bytes]) & 0xC0) == 0x80) --bytes;
    return name.substr(0, bytes);
}

/// Makes the folder of the recordings when it is missing.
void MakeFolder(const std::string& folder) {
    if (::mkdir(folder.c_str(), 0777) == 0) return;
    const int error = errno;
    struct stat found {};
    const bool isThere = ::stat(folder.c_str(), &found) == 0;
    if (!isThere) RaiseFileError(error);
    if (!S_ISDIR(found.st_mode)) throw RuntimeError(76, "there is a file of that name");
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
    const std::string folder = s.World.Desk.ProgramFolder() + "/Recordings";
    try {
        MakeFolder(folder);
        const std::string set = s.CurrentFile.empty() ? "marvolin" : NameWithoutEnding(s.CurrentFile);
        const std::string name = Shortened(set, kLongestSetName) + Formatted(" %Y-%m-%d %H-%M-%S", now);
        const std::string path = FreePath(folder + "/", name);
        s.World.Output->StartRecording(path);
        s.RecordingFile = path;
    } catch (const RuntimeError& error) {
        const std::string place = "\"" + folder + "\": ";
        s.World.Desk.Report("Error starting recording in " + place + error.what(), "", BoxStyle::Critical);
        return;
    }
    ShowState(s, TimeText(0) + "  " + SizeText(0));
    ShowStatus(s, "Recording into \"" + LastPathPart(s.RecordingFile) + "\"");
}

/// The file is whole: says how long it is, and what has gone wrong.
void Conclude(Session& s) {
    const RecordingState state = s.World.Output->Recording();
    const std::string name = LastPathPart(s.RecordingFile);
    s.RecordingFile.clear();
    ShowState(s, "");
    const std::uint64_t missing = 1000 * state.Missed / kRecordedRate;
    ShowStatus(s, "Recorded " + TimeText(state.Frames) + " into \"" + name + "\"" +
                      (state.Missed == 0 ? "" : "; the disk was too slow for " + std::to_string(missing) + " ms"));
    if (!state.Failure) return;
    s.World.Desk.Report("The recording has ended: " + *state.Failure + ". What was recorded is in \"" + name + "\".",
                        "", BoxStyle::Critical);
}

}  // namespace

void ToggleRecording(Session& s, const std::tm& now) {
    if (s.World.Output == nullptr) return;
    if (s.RecordingFile.empty()) return StartRecording(s, now);
    if (s.World.Output->Recording().Ending) return ShowStatus(s, "The disk still writes the last recording");
    s.World.Output->StopRecording();
    WatchRecording(s);
}

void FinishRecording(Session& s) {
    if (s.RecordingFile.empty()) return;
    s.World.Output->FinishRecording();
    Conclude(s);
}

void WatchRecording(Session& s) {
    if (s.RecordingFile.empty()) return;
    if (!s.World.Output->IsRecording()) return Conclude(s);
    const std::int64_t frames = s.World.Output->Recording().Frames;
    ShowState(s, TimeText(frames) + "  " + SizeText(frames));
}

void ToggleSilence(Session& s) {
    if (s.World.Output == nullptr) return;
    const bool silent = !s.World.Output->IsSilent();
    s.World.Output->SetSilent(silent);
    s.World.Screen.ShowSilence();
    ShowStatus(s, silent ? "Silence: F12 brings the sound back" : "The sound is back");
}

}  // namespace marvolin

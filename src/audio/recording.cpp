#include "audio/recording.h"

#include <strings.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "core/errors.h"
#include "core/files/file_errors.h"
#include "core/files/paths.h"
#include "core/routines.h"

namespace marvolin {

namespace {

constexpr std::int64_t kRecordedRate = 44100;    // frames a second
constexpr std::int64_t kRecordedFrameBytes = 4;  // 16 bits, stereo
constexpr std::size_t kLongestSetName = 200;     // bytes; a file name has 255 at most
constexpr std::uint32_t kFileExists = 58;
constexpr std::uint32_t kDiskError = 57;
constexpr int kMostTries = 10;  // for a name of a file

std::string Formatted(const char* format, const std::tm& time) {
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

/// The name of a set without the ending of a set. Other dots belong to the name.
std::string SetName(const std::string& file) {
    const std::size_t dot = file.rfind('.');
    if (dot == std::string::npos || dot == 0) return file;
    const char* ending = file.c_str() + dot;
    const bool ofSet = ::strcasecmp(ending, ".mvn") == 0 || ::strcasecmp(ending, ".mvp") == 0;
    return ofSet ? file.substr(0, dot) : file;
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
    for (int number = 2; ::lstat(path.c_str(), &found) == 0; ++number) {
        path = folder + name + " (" + std::to_string(number) + ").wav";
    }
    return path;
}

/// Starts a recording in `folder`, and returns its path. A name that another program takes meanwhile is not ours.
std::string StartIn(Session& s, const std::string& folder, const std::string& name) {
    for (int tries = 1;; ++tries) {
        const std::string path = FreePath(folder + "/", name);
        try {
            s.World.Output->StartRecording(path);
            return path;
        } catch (const RuntimeError& error) {
            if (error.Number() != kFileExists || tries == kMostTries) throw;
        }
    }
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

std::string MissingText(std::uint64_t frames) {
    const std::uint64_t milliseconds = std::max<std::uint64_t>(1, 1000 * frames / kRecordedRate);
    if (milliseconds < 1000) return std::to_string(milliseconds) + " ms";
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f s", static_cast<double>(milliseconds) / 1000);
    return text.data();
}

void ShowState(Session& s, const std::string& text) {
    if (s.RecordingText == text) return;
    s.RecordingText = text;
    s.World.Screen.ShowRecording();
}

/// Time and size; in place of the size what is missing, once something is.
std::string StateText(const RecordingState& state) {
    if (state.Missed == 0) return TimeText(state.Frames) + "  " + SizeText(state.Frames);
    return TimeText(state.Frames) + "  gap " + MissingText(state.Missed);
}

void StartRecording(Session& s, const std::tm& now) {
    const std::string folder = RecordingsFolder(s);
    const std::string place = "\"" + folder + "\": ";
    try {
        MakeFolder(folder);
        const std::string set = s.CurrentFile.empty() ? "marvolin" : SetName(s.CurrentFile);
        const std::string name = Shortened(set, kLongestSetName) + Formatted(" %Y-%m-%d %H-%M-%S", now);
        s.RecordingFile = StartIn(s, folder, name);
    } catch (const std::bad_alloc&) {
        s.World.Desk.Report("Error starting recording in " + place + "Out of memory", "", BoxStyle::Critical);
        return;
    } catch (const std::exception& error) {
        s.World.Desk.Report("Error starting recording in " + place + error.what(), "", BoxStyle::Critical);
        return;
    }
    ShowState(s, StateText({}));
    ShowStatus(s, "Recording into \"" + LastPathPart(s.RecordingFile) + "\"");
}

/// The file is whole: says how long it is and where, or what has gone wrong.
void Conclude(Session& s) {
    const RecordingState state = s.World.Output->Recording();
    const std::string path = s.RecordingFile;
    s.RecordingFile.clear();
    ShowState(s, "");
    if (state.Failure) {
        s.World.Desk.Report(
            "The recording has ended: " + *state.Failure + ". What was recorded is in \"" + path + "\".", "",
            BoxStyle::Critical);
        return ShowStatus(s, "The recording has ended: " + *state.Failure);
    }
    const std::string gap =
        state.Missed == 0 ? "" : ", " + MissingText(state.Missed) + " missing, the disk was too slow";
    ShowStatus(s, "Recorded " + TimeText(state.Frames) + gap + ": \"" + path + "\"");
}

}  // namespace

std::string RecordingsFolder(const Session& s) { return s.World.Desk.ProgramFolder() + "/Recordings"; }

void ToggleRecording(Session& s, const std::tm& now) {
    if (s.World.Output == nullptr) return;
    if (s.RecordingFile.empty()) return StartRecording(s, now);
    if (s.World.Output->Recording().Ending) return ShowStatus(s, "The disk still writes the last recording");
    s.World.Output->StopRecording();
    WatchRecording(s);
}

void StopRecording(Session& s) {
    if (!s.RecordingFile.empty()) s.World.Output->StopRecording();
}

void FinishRecording(Session& s) {
    if (s.RecordingFile.empty()) return;
    s.World.Output->FinishRecording();
    std::optional<std::string> reason = s.World.Output->Recording().Failure;
    if (s.World.Output->IsRecording()) reason = "the disk does not take it";
    if (!reason) return Conclude(s);
    const std::string path = std::exchange(s.RecordingFile, "");
    ShowState(s, "");
    throw RuntimeError(kDiskError, *reason + ". What was recorded is in \"" + path + "\"");
}

void WatchRecording(Session& s) {
    if (s.RecordingFile.empty()) return;
    if (!s.World.Output->IsRecording()) return Conclude(s);
    ShowState(s, StateText(s.World.Output->Recording()));
}

void ToggleSilence(Session& s) {
    if (s.World.Output == nullptr) return;
    const bool silent = !s.World.Output->IsSilent();
    s.World.Output->SetSilent(silent);
    s.World.Screen.ShowSilence();
    ShowStatus(s, silent ? "Silence: F12 brings the sound back" : "The sound is back");
}

}  // namespace marvolin

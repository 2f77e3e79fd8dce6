#include "persistence/start_up_demo.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include "audio/silent_starts.h"
#include "core/errors.h"
#include "core/files/paths.h"
#include "core/help.h"
#include "core/routines.h"
#include "parameters/fades.h"
#include "persistence/quick_load.h"

namespace marvolin {

namespace {

constexpr const char* kDemoFile = "startup.mvp";
constexpr const char* kDisabledDemoFile = "disabledstartup.mvp";
constexpr const char* kPreferencesFile = "preferences.mvn";

std::string InProgramFolder(Session& s, const char* name) { return JoinPath(s.World.Desk.ProgramFolder(), name); }

bool LoadEverything(Session& s, const std::string& path) {
    return s.World.Store.LoadSession(s, path, SetAsCurrent::No, AllSwitches(), AdoptSwitches::No);
}

void StartDemo(Session& s) {
    s.DemoStep = 1;
    s.StartUpDemoCountDown = s.World.Timers.Create([&s](std::int32_t) { StartUpDemoCountDown_Timer(s); });
    s.StartUpDemoCountDown->SetInterval(3000);
    s.StartUpDemoCountDown->SetEnabled(true);
}

void NextStage(Session& s, Row fading, std::int32_t milliseconds) {
    LoopSetFade(s, fading, FadeCommand::Down);
    ++s.DemoStep;
    s.StartUpDemoCountDown->SetInterval(milliseconds);
    s.StartUpDemoCountDown->SetEnabled(true);
}

/// The demo leaves LoopTracks at volume 0, whose keys then seem silent: the status line says how they come back.
void TellWhatHasFaded(Session& s) {
    std::vector<Row> rows;
    std::vector<Row> faded;
    for (const Row row : kDemoFades) {
        if (s.Run[row].Loaded == False) continue;
        const bool silent = s.Set[row].Vol == 0;
        if (silent) faded.push_back(row);
        if (silent || (s.Run[row].FadeState == kFalling && s.Run[row].FadeTarget == 0)) rows.push_back(row);
    }
    if (rows.empty()) return;
    // Some may still be falling; the text stays true after they have faded out.
    std::string verb = rows.size() == 1 ? " fades out: " : " fade out: ";
    if (faded.size() == rows.size()) verb = rows.size() == 1 ? " has faded out: " : " have faded out: ";
    ShowStatus(s, LettersOf(rows) + verb + HowItFadesIn(faded.empty() ? rows.front() : faded.front()));
}

/// Without this the keyboard would stay with Help, or with no window at all.
void CloseQuestion(Session& s) {
    s.World.Forms.Unload(Form::StartUpQuery);
    s.World.Forms.BringToFront(Form::Main);
    TellWhatHasFaded(s);
}

void UnloadSplash(Session& s) {
    try {
        s.World.Forms.Unload(Form::Splash);
    } catch (const RuntimeError&) {
        // The player has already closed it.
        return;
    }
}

}  // namespace

void LoadStartUpContent(Session& s) {
    const std::string demo = InProgramFolder(s, kDemoFile);
    const std::string preferences = InProgramFolder(s, kPreferencesFile);
    if (FileExists(demo)) {
        if (!LoadEverything(s, demo)) return;
        UpdateQuickLoad(s);
        StartDemo(s);
    } else if (FileExists(preferences)) {
        LoadEverything(s, preferences);
        UpdateQuickLoad(s);
    }
}

void StartUpDemoCountDown_Timer(Session& s) {
    switch (s.DemoStep) {
        case 1:
            UnloadSplash(s);
            s.World.Forms.BringToFront(Form::Main);
            NextStage(s, kDemoFades[0], 2000);
            return;
        case 2:
            NextStage(s, kDemoFades[1], 4000);
            return;
        case 3:
            LoopSetFade(s, kDemoFades[2], FadeCommand::Down);
            s.DemoStep = 4;
            s.StartUpDemoCountDown->SetEnabled(false);
            s.StartUpDemoCountDown.reset();
            s.World.Forms.Show(Form::StartUpQuery);
            TellWhatHasFaded(s);
            return;
        default:
            return;
    }
}

void StartUpQuery_Activate(Session& s) {
    // The question comes by itself; a message about missing help would only disturb.
    if (FileExists(s.HelpFile)) ShowHelp(s, kHelpDragName, kStartUpQueryTopic);
}

void cmdYes_Click(Session& s) { CloseQuestion(s); }

void cmdNo_Click(Session& s) {
    const std::string demo = InProgramFolder(s, kDemoFile);
    std::error_code error;
    // In one step: an older file of that name goes only when the demo takes its place.
    const std::string disabled = InProgramFolder(s, kDisabledDemoFile);
    std::filesystem::rename(demo, disabled, error);
    // Two names of one file stay two names.
    if (!error && FileExists(demo)) std::filesystem::remove(demo, error);
    if (FileExists(demo)) {
        s.World.Desk.Report("The startup demo could not be renamed, so it will be shown again: " + error.message());
    } else {
        s.World.Desk.Report(
            "To re-enable the startup demo, change the name disabledstartup.mvp in your marvolin directory to "
            "startup.mvp");
    }
    CloseQuestion(s);
}

}  // namespace marvolin

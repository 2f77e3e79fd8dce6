#include "persistence/save_open.h"

#include "core/files/name_order.h"
#include "core/files/paths.h"
#include "core/undo/undo_step.h"
#include "persistence/kept/last_state.h"
#include "persistence/quick_load.h"
#include "persistence/session_format.h"

namespace marvolin {

namespace {

/// True for a name that a list or a filter of sets shows.
bool HasSetExtension(std::string_view name) {
    return EndsInIgnoringCase(name, kSessionExtension) || name.ends_with(kPackageExtension);
}

/// Name of the set of which `name` is the copy; `name` itself for any other file.
std::string WithoutCopy(const std::string& name) {
    const std::string_view set = WithoutCopyMark(name);
    return HasSetExtension(set) ? std::string(set) : name;
}

std::string OpenText(const std::string& path) { return "Open of " + LastPathPart(path); }

void ShowCurrent(Session& s) {
    s.Title = "marvolin-" + s.CurrentFile;
    s.World.Screen.ShowTitle();
}

void CloseDialogue(Session& s) { s.World.Forms.Hide(Form::Save); }

void AfterSuccess(Session& s) {
    s.SaveItEnabled = !s.DialogueFile.empty();
    s.World.Screen.ShowSaveOpen();
    UpdateQuickLoad(s);
}

// By value: `path` may be made from the fields that are set here.
void TakeFile(Session& s, const std::string path) {
    SplitFilePath(path, s.CurrentFolder, s.CurrentFile);
    s.DialogueFile = s.CurrentFile;
}

// The title stays, but the status bar has the name that was chosen.
void ShowFailed(Session& s) { s.World.Screen.ShowTitle(); }

/// What is in hand has no file yet.
void LetGoOfFile(Session& s) {
    s.CurrentFile.clear();
    s.DialogueFile.clear();
    s.SaveItEnabled = false;
    s.Title = "marvolin";
    s.World.Screen.ShowTitle();
}

/// Whether `opened` has all of `inFile` that the next save would write.
bool IsWhole(clsSwitchRecord opened, const clsSwitchRecord& inFile) {
    opened.Put(Element::PlayState, true);
    clsSwitchRecord both;
    clsSwitchRecord::AndSwitch(opened, inFile, both);
    return both == inFile;
}

/// Tells so when a save there would be lost.
bool IsWrittenByItself(Session& s, const std::string& path) {
    if (!IsLastState(s, path)) return false;
    s.World.Desk.Report("The program itself writes " + LastPathPart(path) + ". Choose another name.");
    return true;
}

}  // namespace

bool SaveAsChosen(Session& s, const std::string& path) {
    if (IsWrittenByItself(s, path)) return false;
    const LoopsSaved loops = s.SelectionsOnlySetting == 1 ? LoopsSaved::SelectionsOnly : LoopsSaved::All;
    if (!s.World.Store.SaveSession(s, path, loops, s.SaveOpenSwitches[kWhenSaving])) return false;
    NoteSetOnDisk(s, path);
    return true;
}

bool OpenAsChosen(Session& s, const std::string& path) {
    const clsSwitchRecord& elements = s.SaveOpenSwitches[kWhenOpening];
    const bool last = IsLastState(s, path);
    const SetAsCurrent current = last ? SetAsCurrent::No : SetAsCurrent::Yes;
    if (!s.World.Store.LoadSession(s, path, current, elements, AdoptSwitches::Yes)) return false;
    if (last) LetGoOfFile(s);
    if (!last && IsWhole(elements, s.SaveOpenSwitches[kWhenSaving])) {
        NoteSetOnDisk(s, path);
    } else {
        NoteSetDiffers(s, path);
    }
    return true;
}

bool OpenBesideDialogue(Session& s, const std::string& path) {
    const UndoStep step(s, OpenText(path), UndoScope::Everything);
    if (!OpenAsChosen(s, path)) return false;
    s.DialogueFile = s.CurrentFile;
    s.World.Screen.ShowSaveOpen();
    return true;
}

std::string SetFileName(const std::string& name, std::string_view extension) {
    const std::string set = WithoutCopy(name);
    return HasSetExtension(set) ? set : set + std::string(extension);
}

void OpenSaveOpen(Session& s, const std::string& fileName) {
    s.DialogueFile = fileName;
    s.World.Screen.ShowSaveOpen();
    s.World.Forms.Show(Form::Save);
}

SaveOpenChoices CurrentChoices(const Session& s) {
    SaveOpenChoices choices;
    for (std::size_t list = 0; list < choices.Elements.size(); ++list) {
        for (std::size_t row = 0; row < kElementRows.size(); ++row) {
            choices.Elements[list][row] = s.SaveOpenSwitches[list].Get(kElementRows[row].Switch);
        }
    }
    choices.SelectionsOnly = s.SelectionsOnlySetting == 1;
    choices.EmptyBlank = s.EmptyBlankSetting == 1;
    choices.Session = s.SessionName;
    return choices;
}

std::string SaveOpenTitle(const Session& s) {
    return s.DialogueFile.empty() ? "Save/Open" : "Save/Open-" + s.DialogueFile;
}

void ChoosePreset(SaveOpenChoices& choices, int list, const ElementPreset& preset) {
    std::array<bool, kElements>& rows = choices.Elements[static_cast<std::size_t>(list)];
    for (std::size_t row = 0; row < rows.size(); ++row) rows[row] = preset.Selects(static_cast<int>(row));
}

void TakeBack(Session& s, const SaveOpenChoices& choices) {
    for (std::size_t list = 0; list < choices.Elements.size(); ++list) {
        for (std::size_t row = 0; row < kElementRows.size(); ++row) {
            s.SaveOpenSwitches[list].Put(kElementRows[row].Switch, choices.Elements[list][row]);
        }
    }
    s.SelectionsOnlySetting = choices.SelectionsOnly ? 1 : 0;
    s.EmptyBlankSetting = choices.EmptyBlank ? 1 : 0;
    s.SessionName = choices.Session;
}

void SaveIt_Click(Session& s, const SaveOpenChoices& choices) {
    if (s.DialogueFile.empty()) return;
    TakeBack(s, choices);
    const std::string file = WithoutCopy(s.DialogueFile);
    const bool saved = SaveAsChosen(s, JoinPath(s.CurrentFolder, file));
    CloseDialogue(s);
    if (!saved) return;
    if (file != s.DialogueFile && s.CurrentFile == s.DialogueFile) {
        s.CurrentFile = file;
        ShowCurrent(s);
    }
    s.DialogueFile = file;
    UpdateQuickLoad(s);
}

void Reload_Click(Session& s, const SaveOpenChoices& choices) {
    TakeBack(s, choices);
    CloseDialogue(s);
    const std::string path = JoinPath(s.CurrentFolder, s.DialogueFile);
    const UndoStep step(s, OpenText(path), UndoScope::Everything);
    if (OpenAsChosen(s, path)) AfterSuccess(s);
}

void SaveItAs_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path) {
    std::string folder;
    std::string name;
    SplitFilePath(path, folder, name);
    const std::string file = JoinPath(folder, SetFileName(name, kSessionExtension));
    // The dialogue stays open for another name.
    if (IsWrittenByItself(s, file)) return TakeBack(s, choices);
    TakeFile(s, file);
    TakeBack(s, choices);
    CloseDialogue(s);
    if (!SaveAsChosen(s, file)) return ShowFailed(s);
    ShowCurrent(s);
    AfterSuccess(s);
}

void OpenIt_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path) {
    const UndoStep step(s, OpenText(path), UndoScope::Everything);
    TakeFile(s, path);
    TakeBack(s, choices);
    CloseDialogue(s);
    if (OpenAsChosen(s, path)) return AfterSuccess(s);
    ShowFailed(s);
    // "Save" would write what is loaded over a file of which something could still be read.
    s.SaveItEnabled = false;
    s.World.Screen.ShowSaveOpen();
}

}  // namespace marvolin

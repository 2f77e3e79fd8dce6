#include "persistence/save_open.h"

#include "core/files/paths.h"
#include "persistence/quick_load.h"

namespace marvolin {

namespace {

void CloseDialogue(Session& s) { s.World.Forms.Hide(Form::Save); }

void AfterSuccess(Session& s) {
    s.SaveItEnabled = true;
    s.World.Screen.ShowSaveOpen();
    UpdateQuickLoad(s);
}

// By value: `path` may be made from the fields that are set here.
void TakeFile(Session& s, const std::string path) {
    SplitPath(path, s.CurrentFolder, s.CurrentFile);
    s.DialogueFile = s.CurrentFile;
}

}  // namespace

bool SaveAsChosen(Session& s, const std::string& path) {
    const LoopsSaved loops = s.SelectionsOnlySetting == 1 ? LoopsSaved::SelectionsOnly : LoopsSaved::All;
    return s.World.Store.SaveSession(s, path, loops, s.SaveOpenSwitches[kWhenSaving]);
}

bool OpenAsChosen(Session& s, const std::string& path) {
    return s.World.Store.LoadSession(s, path, SetAsCurrent::Yes, s.SaveOpenSwitches[kWhenOpening], AdoptSwitches::Yes);
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
    const bool saved = SaveAsChosen(s, JoinPath(s.CurrentFolder, s.DialogueFile));
    CloseDialogue(s);
    if (saved) UpdateQuickLoad(s);
}

void Reload_Click(Session& s, const SaveOpenChoices& choices) {
    TakeBack(s, choices);
    CloseDialogue(s);
    const std::string path = JoinPath(s.CurrentFolder, s.DialogueFile);
    if (OpenAsChosen(s, path)) AfterSuccess(s);
}

void SaveItAs_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path) {
    TakeFile(s, path);
    TakeBack(s, choices);
    CloseDialogue(s);
    if (!SaveAsChosen(s, path)) return;
    s.Title = "marvolin-" + s.CurrentFile;
    s.World.Screen.ShowTitle();
    AfterSuccess(s);
}

void OpenIt_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path) {
    TakeFile(s, path);
    TakeBack(s, choices);
    CloseDialogue(s);
    if (OpenAsChosen(s, path)) AfterSuccess(s);
}

}  // namespace marvolin

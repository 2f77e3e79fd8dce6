#include "persistence/save_open.h"

#include "core/paths.h"
#include "persistence/quick_load.h"

namespace marvolin {

namespace {

void CloseDialogue(Session& s) { s.World.Forms.Hide(Form::Save); }

void AfterSuccess(Session& s) {
    s.SaveItEnabled = true;
    s.World.Screen.ShowSaveOpen();
    UpdateQuickLoad(s);
}

bool Save(Session& s, const std::string& path) {
    return s.World.Store.SaveSession(s, path, s.SelectionsOnlySetting == 1, s.SaveOpenSwitches[0]);
}

// The path is taken by value: what it was made from changes under it.
void TakeFile(Session& s, const std::string path) {
    SplitPath(path, s.CurrentFolder, s.CurrentFile);
    s.DialogueFile = s.CurrentFile;
}

}  // namespace

void SaveIt_Click(Session& s, const SaveOpenChoices& choices) {
    if (s.DialogueFile.empty()) return;
    TakeBack(s, choices);
    const bool saved = Save(s, JoinPath(s.CurrentFolder, s.DialogueFile));
    CloseDialogue(s);
    if (saved) UpdateQuickLoad(s);
}

void Reload_Click(Session& s, const SaveOpenChoices& choices) {
    TakeBack(s, choices);
    CloseDialogue(s);
    const std::string path = JoinPath(s.CurrentFolder, s.DialogueFile);
    if (s.World.Store.LoadSession(s, path, true, s.SaveOpenSwitches[1], true)) AfterSuccess(s);
}

void SaveItAs_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path) {
    TakeFile(s, path);
    TakeBack(s, choices);
    CloseDialogue(s);
    if (!Save(s, path)) return;
    s.Title = "marvolin-" + s.CurrentFile;
    s.World.Screen.ShowTitle();
    AfterSuccess(s);
}

void OpenIt_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path) {
    TakeFile(s, path);
    TakeBack(s, choices);
    CloseDialogue(s);
    if (s.World.Store.LoadSession(s, path, true, s.SaveOpenSwitches[1], true)) AfterSuccess(s);
}

}  // namespace marvolin

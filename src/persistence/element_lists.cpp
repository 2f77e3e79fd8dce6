#include "persistence/element_lists.h"

namespace marvolin {

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

}  // namespace marvolin

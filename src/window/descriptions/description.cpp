#include "window/descriptions/description.h"

#include <stdexcept>

#include "window/descriptions/browser.h"
#include "window/descriptions/dialogues.h"
#include "window/descriptions/help.h"
#include "window/descriptions/loop_rows.h"
#include "window/descriptions/main_window.h"
#include "window/descriptions/mix_pad.h"
#include "window/descriptions/options.h"
#include "window/descriptions/patterns.h"
#include "window/descriptions/save_open.h"
#include "window/descriptions/scripts.h"
#include "window/descriptions/sound_map.h"
#include "window/descriptions/start_forms.h"
#include "window/descriptions/undo.h"

namespace marvolin {

std::array<DescriptionTable, 14> DescriptionTables() {
    return {{{"frmMain", MainWindowDescriptions()},
             {"frmMain", UndoDescriptions()},
             {"frmMain", LoopRowDescriptions()},
             {"frmMain", MixPadDescriptions()},
             {"frmMain", SoundMapDescriptions()},
             {"frmMain", PatternDescriptions()},
             {"frmMain", OptionDescriptions()},
             {"frmBrowse", BrowserDescriptions()},
             {"frmSave", SaveOpenDescriptions()},
             {"frmSplash", SplashDescriptions()},
             {"frmStartUpQuery", StartUpQueryDescriptions()},
             {"frmScripts", ScriptsDescriptions()},
             {"dialogues", DialogueDescriptions()},
             {"frmHelp", HelpDescriptions()}}};
}

const Description& DescriptionOf(std::string_view name, int index) {
    for (const DescriptionTable& table : DescriptionTables()) {
        for (const Description& row : table.Rows) {
            if (row.Name == name && index >= row.Range.First && index <= row.Range.Last) return row;
        }
    }
    throw std::out_of_range("no description of " + ObjectNameOf(name, index));
}

std::string ObjectNameOf(std::string_view name, int index) {
    return index < 0 ? std::string(name) : std::string(name) + "_" + std::to_string(index);
}

}  // namespace marvolin

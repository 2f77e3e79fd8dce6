#include "window/editor/scintilla/code_view_plugin.h"

#include "window/editor/scintilla/scintilla_view.h"

namespace marvolin {

CodeView* CodeViewPlugin::Make(QWidget* parent, const QFont& font, const std::vector<ScriptWord>& words) {
    return new ScintillaView(parent, font, words);  // belongs to the parent
}

}  // namespace marvolin

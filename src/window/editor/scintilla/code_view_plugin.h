#pragma once

#include "window/editor/code_view.h"

namespace marvolin {

/// What the module gives to the program.
class CodeViewPlugin : public QObject, public CodeViewMaker {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID MARVOLIN_CODE_VIEW)
    Q_INTERFACES(marvolin::CodeViewMaker)

public:
    CodeView* Make(QWidget* parent, const QFont& font, const std::vector<ScriptWord>& words) override;
};

}  // namespace marvolin

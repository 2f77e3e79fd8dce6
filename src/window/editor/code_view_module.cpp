#include "window/editor/code_view_module.h"

#include <QPluginLoader>

#include "core/files/paths.h"
#include "window/editor/code_view.h"
#include "window/toolkit/strings.h"

namespace marvolin {

CodeViewMaker* LoadCodeView(const std::string& folder, std::string& error) {
    const std::string path = JoinPath(folder, kCodeViewModule);
    if (!TargetExists(path)) {
        error = "There is no file " + path;
        return nullptr;
    }
    QPluginLoader module(ToQString(path));
    // What is missing in the library must not end the program later.
    module.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    if (auto* maker = qobject_cast<CodeViewMaker*>(module.instance())) return maker;
    error =
        module.isLoaded() ? path + " belongs to another version of the program" : module.errorString().toStdString();
    return nullptr;
}

}  // namespace marvolin

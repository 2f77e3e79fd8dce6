#include "window/toolkit/application.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "core/errors.h"
#include "window/descriptions/accessible.h"
#include "window/toolkit/theme.h"

namespace marvolin {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName("marvolin");
    setApplicationVersion(MARVOLIN_VERSION);
    theme::Apply(*this);
    InstallAccessibility();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError& e) {
        std::fprintf(stderr, "marvolin: %s (#%u); the program ends\n", e.what(), e.Number());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "marvolin: %s; the program ends\n", e.what());
    }
    std::_Exit(EXIT_FAILURE);
}

}  // namespace marvolin

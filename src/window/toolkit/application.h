#pragma once

#include <QApplication>

namespace marvolin {

/// The toolkit's application. An error that no routine traps, as one of the service in the tick, ends the program.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace marvolin

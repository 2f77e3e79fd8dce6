#pragma once

#include <QApplication>

namespace marvolin {

/// The toolkit's application. An exception that no routine catches, such as an error of the sound service in a tick,
/// is printed and ends the program.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace marvolin

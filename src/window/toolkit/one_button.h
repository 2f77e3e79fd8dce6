#pragma once

#include <QObject>

namespace marvolin {

/// As long as this lives, only the mouse buttons that are down when it is made reach anything: presses go nowhere, and
/// of the releases only theirs pass. For drags: the toolkit would give the press of another button to what is under the
/// pointer, and take its release for the drop. It works from the next turn of the event loop on, when the toolkit's own
/// drag runs.
class OneButton : public QObject {
public:
    OneButton();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    const Qt::MouseButtons began_;
};

}  // namespace marvolin

#pragma once

#include <QObject>

namespace marvolin {

/// As long as this lives, only the mouse button that holds the drag reaches anything: presses go nowhere, and of the
/// releases only its own passes. For drags: the toolkit would give the press of another button to what is under the
/// pointer, and take its release for the drop. It works from the next turn of the event loop on, when the toolkit's own
/// drag runs.
class OneButton : public QObject {
public:
    /// `holder` is the button that began the drag; with `Qt::NoButton` it is those that are down now.
    explicit OneButton(Qt::MouseButton holder = Qt::NoButton);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    const Qt::MouseButtons began_;
};

}  // namespace marvolin

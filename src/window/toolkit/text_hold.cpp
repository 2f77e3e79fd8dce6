#include "window/toolkit/text_hold.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QMouseEvent>

namespace marvolin {

namespace {

/// Gives the text its release before its timer acts on a button that is up. Timers that run while the text waits for no
/// release are not its concern.
class TextHold : public QObject {
public:
    explicit TextHold(QAbstractScrollArea& text) : QObject(&text), view_(*text.viewport()) {
        text.installEventFilter(this);
        view_.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == &view_) {
            NoteButton(*event);
        } else if (held_ && event->type() == QEvent::Timer && !QApplication::mouseButtons().testFlag(Qt::LeftButton)) {
            Release();
        }
        return false;
    }

private:
    void NoteButton(const QEvent& event) {
        const bool down = event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
        if (!down && event.type() != QEvent::MouseButtonRelease) return;
        if (static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton) held_ = down;
    }
    void Release() {
        // Beside the text, so that it is no click on a link.
        const QPointF place(-1, -1);
        QMouseEvent release(QEvent::MouseButtonRelease, place, view_.mapToGlobal(place), Qt::LeftButton, Qt::NoButton,
                            Qt::NoModifier);
        QCoreApplication::sendEvent(&view_, &release);
    }

    QWidget& view_;      ///< the text's, which may be asked for no more while the text goes
    bool held_ = false;  ///< the text has had a press, and not yet its release
};

}  // namespace

void LetGoWithoutButton(QAbstractScrollArea& text) { new TextHold(text); }  // owned by the text

}  // namespace marvolin

#include "window/toolkit/text_hold.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QMouseEvent>

namespace marvolin {

namespace {

/// Gives the text its release before its timer acts on a button that is up.
class TextHold : public QObject {
public:
    explicit TextHold(QAbstractScrollArea& text) : QObject(&text), text_(text) { text.installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Timer || QApplication::mouseButtons().testFlag(Qt::LeftButton)) return false;
        // Beside the text, so that it is no click on a link.
        QWidget& view = *text_.viewport();
        const QPointF place(-1, -1);
        QMouseEvent release(QEvent::MouseButtonRelease, place, view.mapToGlobal(place), Qt::LeftButton, Qt::NoButton,
                            Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &release);
        return false;
    }

private:
    QAbstractScrollArea& text_;
};

}  // namespace

void LetGoWithoutButton(QAbstractScrollArea& text) { new TextHold(text); }  // owned by the text

}  // namespace marvolin

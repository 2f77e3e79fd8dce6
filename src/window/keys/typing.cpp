#include "window/keys/typing.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace marvolin {

bool IsTyping() {
    QWidget* focus = QApplication::focusWidget();
    const auto* text = dynamic_cast<QTextEdit*>(focus);
    return dynamic_cast<QLineEdit*>(focus) != nullptr || dynamic_cast<QAbstractSpinBox*>(focus) != nullptr ||
           dynamic_cast<QPlainTextEdit*>(focus) != nullptr || (text != nullptr && !text->isReadOnly());
}

const QWidget& WindowBehind(const QWidget& widget) {
    const QWidget* window = widget.window();
    while (window->windowType() == Qt::Popup && window->parentWidget() != nullptr) {
        window = window->parentWidget()->window();
    }
    return *window;
}

}  // namespace marvolin

#include "window/keys/return_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>

#include "window/descriptions/described.h"

namespace marvolin {

bool PressByReturn(QWidget& focus, const QKeyEvent& key) {
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) return false;
    auto* button = qobject_cast<QAbstractButton*>(&focus);
    const Described* described = button == nullptr ? nullptr : DescribedOf(focus);
    if (described == nullptr || !Takes(described->Row().Taken, Keys::Press) || !button->isEnabled()) return false;
    const auto* push = qobject_cast<QPushButton*>(button);
    if (push != nullptr && (push->autoDefault() || push->isDefault())) return false;
    if (!key.isAutoRepeat() && QApplication::mouseButtons() == Qt::NoButton) button->click();
    return true;
}

}  // namespace marvolin

#include "window/controls/choice.h"

#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include "window/descriptions/described.h"
#include "window/toolkit/theme.h"

namespace marvolin {

ChoiceList::ChoiceList(Session& session, QWidget* parent, std::string_view name, int index,
                       std::function<void(int)> choose)
    : QComboBox(parent) {
    Described& described = Describe(session, *this, name, index);
    connect(this, &QComboBox::highlighted, this, [&described](int entry) { described.ShowHint(entry + 1, false); });
    setItemDelegate(new QStyledItemDelegate(this));  // gives the rows the height that the stylesheet sets
    connect(this, &QComboBox::activated, this, [choose = std::move(choose)](int entry) { choose(entry); });
}

void ChoiceList::Show(int entry) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(entry);
}

void ChoiceList::hidePopup() {
    QComboBox::hidePopup();
    if (Described* described = DescribedOf(*this)) described->TakeHintAway();
}

bool ChoiceList::event(QEvent* event) {
    // The pointer that goes from the list's field into its open entries leaves the field without a repaint.
    if (event->type() == QEvent::Leave) update();
    return QComboBox::event(event);
}

void ChoiceList::SetEntries(const QStringList& entries) {
    QStringList shown;
    for (int i = 0; i < count(); ++i) shown << itemText(i);
    if (shown == entries) return;
    const QSignalBlocker quiet(this);
    clear();
    addItems(entries);
}

ChoiceBox::ChoiceBox(Session& session, QWidget* parent, std::string_view name, int index,
                     std::function<void(bool)> choose)
    : QCheckBox(parent) {
    Describe(session, *this, name, index);
    connect(this, &QCheckBox::clicked, this, [choose = std::move(choose)](bool on) { choose(on); });
}

void ChoiceBox::Show(bool on) {
    const QSignalBlocker quiet(this);
    setChecked(on);
}

QLabel* MakeLabel(QWidget* parent, const QString& text, const QRect& place) {
    auto* label = new QLabel(text, parent);  // belongs to `parent`
    label->setGeometry(place);
    label->setFont(theme::Sans(12));
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, theme::kQuiet);
    label->setPalette(palette);
    return label;
}

}  // namespace marvolin

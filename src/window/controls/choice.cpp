#include "window/controls/choice.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include "core/routines.h"
#include "window/toolkit/hint_window.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

void Tell(Session& s, const QWidget& widget, std::string_view hint) {
    if (hint.empty()) return;
    if (auto* form = dynamic_cast<HintWindow*>(widget.window())) {
        form->ShowHint(hint);
    } else {
        ShowStatus(s, hint);
    }
}

}  // namespace

ChoiceList::ChoiceList(Session& session, QWidget* parent, const QString& name, const QString& label,
                       std::string_view hint, std::function<void(int)> choose)
    : QComboBox(parent), s(session), hint_(hint) {
    setObjectName(name);
    setAccessibleName(label);
    setToolTip(label);
    setMouseTracking(true);
    setItemDelegate(new QStyledItemDelegate(this));  // rows as high as the stylesheet says
    connect(this, &QComboBox::activated, this, [choose = std::move(choose)](int entry) { choose(entry); });
}

void ChoiceList::Show(int entry) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(entry);
}

void ChoiceList::SetEntries(const QStringList& entries) {
    QStringList shown;
    for (int i = 0; i < count(); ++i) shown << itemText(i);
    if (shown == entries) return;
    const QSignalBlocker quiet(this);
    clear();
    addItems(entries);
}

void ChoiceList::mouseMoveEvent(QMouseEvent* event) {
    Tell(s, *this, hint_);
    QComboBox::mouseMoveEvent(event);
}

void ChoiceList::enterEvent(QEnterEvent* event) {
    Tell(s, *this, hint_);
    QComboBox::enterEvent(event);
}

ChoiceBox::ChoiceBox(Session& session, QWidget* parent, const QString& name, const QString& text, std::string_view hint,
                     std::function<void(bool)> choose)
    : QCheckBox(text, parent), s(session), hint_(hint) {
    setObjectName(name);
    setAccessibleName(text);
    connect(this, &QCheckBox::clicked, this, [choose = std::move(choose)](bool on) { choose(on); });
}

void ChoiceBox::Show(bool on) {
    const QSignalBlocker quiet(this);
    setChecked(on);
}

void ChoiceBox::enterEvent(QEnterEvent* event) {
    Tell(s, *this, hint_);
    QCheckBox::enterEvent(event);
}

QLabel* MakeLabel(QWidget* parent, const QString& text, const QRect& place) {
    auto* label = new QLabel(text, parent);  // owned by the toolkit
    label->setGeometry(place);
    label->setFont(theme::Sans(12));
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, theme::kQuiet);
    label->setPalette(palette);
    return label;
}

}  // namespace marvolin

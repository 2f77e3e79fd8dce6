#include "window/forms/frm_start_up_query.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "persistence/start_up_demo.h"
#include "window/descriptions/described.h"
#include "window/screens/toolkit_scale.h"
#include "window/toolkit/theme.h"

namespace marvolin {

FrmStartUpQuery::FrmStartUpQuery(Session& session) : s(session) {
    Describe(s, *this, "frmStartUpQuery");
    setWindowFlag(Qt::Dialog);
    setWindowTitle(kStartUpQueryTitle);
    auto* label = new QLabel(kStartUpQueryText);
    label->setFont(theme::Sans(14));
    auto* yes = new QPushButton;
    Describe(s, *yes, "cmdYes");
    connect(yes, &QPushButton::clicked, this, [this] { cmdYes_Click(s); });
    auto* no = new QPushButton;
    Describe(s, *no, "cmdNo");
    connect(no, &QPushButton::clicked, this, [this] { cmdNo_Click(s); });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(yes);
    buttons->addWidget(no);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 18);
    column->setSpacing(18);
    column->addWidget(label);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    yes->setFocus();
}

void FrmStartUpQuery::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous() && !IsReopening()) StartUpQuery_Activate(s);
}

// In a plain window of the toolkit only the space bar presses a button.
void FrmStartUpQuery::keyPressEvent(QKeyEvent* event) {
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || button == nullptr) return QWidget::keyPressEvent(event);
    button->click();
}

}  // namespace marvolin

#include "window/editor/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>

#include "window/controls/text_button.h"
#include "window/descriptions/described.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kFindButtonHeight = 26;

}  // namespace

FindBar::FindBar(Session& session, CodeView& view, QWidget* parent) : QWidget(parent), view_(view) {
    Describe(session, *this, "FindBar");
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 5, 8, 5);
    row->setSpacing(6);
    words_ = new QLineEdit;
    Describe(session, *words_, "FindWords");
    words_->setPlaceholderText("Find");
    words_->setFixedWidth(230);
    connect(words_, &QLineEdit::textEdited, this, [this] { Go(Search::Here); });
    row->addWidget(words_);
    const auto add = [&](const char* name, int width, std::function<void()> click) {
        auto* button = new TextButton(session, nullptr, name, std::move(click));
        button->setFixedSize(width, kFindButtonHeight);
        row->addWidget(button);
    };
    add("FindPrevious", 78, [this] { Go(Search::Previous); });
    add("FindNext", 56, [this] { Go(Search::Next); });
    result_ = new QLabel;
    result_->setFont(theme::Sans(12));
    row->addWidget(result_, 1);
    add("FindClose", 56, [this] { Close(); });
    hide();
}

void FindBar::Open() {
    const QString selected = QString::fromStdString(view_.Selected());
    if (!selected.isEmpty() && !selected.contains('\n') && !selected.contains('\r')) words_->setText(selected);
    result_->clear();
    show();
    words_->setFocus();
    words_->selectAll();
}

void FindBar::Close() {
    hide();
    view_.Widget().setFocus();
}

void FindBar::Go(Search search) {
    const std::string words = words_->text().toStdString();
    if (words.empty() && search != Search::Here) return Open();
    const bool found = words.empty() || view_.Find(words, search);
    result_->setText(found ? QString() : QString("not found"));
    if (!found) show();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            return Close();
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Go(event->modifiers().testFlag(Qt::ShiftModifier) ? Search::Previous : Search::Next);
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace marvolin

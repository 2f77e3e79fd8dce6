#include "window/forms/selector_strip.h"

#include <QPainter>

#include "window/controls/bands_editor.h"
#include "window/controls/selector_radio.h"
#include "window/controls/undo_button.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kFirstButton = 78;
constexpr QRect kBandsPlace{384, 2, 260, 30};
constexpr QRect kWordsPlace{660, 0, 282, SelectorStrip::kHeight};
constexpr QRect kUndoPlace{948, 5, 34, 24};

}  // namespace

SelectorStrip::SelectorStrip(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    Describe(s, *this, "SelectorStrip");
    for (int button = 0; button <= kBands; ++button) {
        auto* made = new SelectorRadioButton(s, this, button);
        made->setGeometry(kFirstButton + button * 32, 5, 28, 24);
        buttons_[static_cast<std::size_t>(button)] = made;
    }
    bands_ = new BandsEditor(s, this);
    bands_->setGeometry(kBandsPlace);
    undo_ = {new UndoButton(s, this, UndoButton::Turn::Back), new UndoButton(s, this, UndoButton::Turn::On)};
    undo_[0]->setGeometry(kUndoPlace);
    undo_[1]->setGeometry(kUndoPlace.translated(kUndoPlace.width() + 4, 0));
}

void SelectorStrip::RefreshButton(int button) { buttons_[static_cast<std::size_t>(button)]->Refresh(); }

void SelectorStrip::RefreshBands() { bands_->Refresh(); }

void SelectorStrip::RefreshUndo() {
    // A button that is done hands the focus to its twin; the toolkit would take it away to the next control.
    for (std::size_t i = 0; i < undo_.size(); ++i) {
        UndoButton* other = undo_[1 - i];
        if (!undo_[i]->hasFocus() || undo_[i]->HasStep() || !other->HasStep()) continue;
        other->Refresh();
        other->setFocus();
        break;
    }
    for (UndoButton* button : undo_) button->Refresh();
}

void SelectorStrip::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kPanel);
    p.drawRoundedRect(rect(), 5, 5);
    p.setFont(theme::Sans(12));
    p.setPen(theme::kQuiet);
    p.drawText(QRect(16, 0, 60, kHeight), Qt::AlignVCenter | Qt::AlignLeft, "Control");
    p.drawText(QRect(330, 0, 50, kHeight), Qt::AlignVCenter | Qt::AlignLeft, "Bands");
    p.drawText(kWordsPlace, Qt::AlignVCenter | Qt::AlignLeft, "Row Z moves what is lit: S selection, 0 to 5 bands");
}

}  // namespace marvolin

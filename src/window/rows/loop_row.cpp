#include "window/rows/loop_row.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>

#include "audio/loop_controls.h"
#include "instrument/dropped_files.h"
#include "instrument/loop_drops.h"
#include "performance/selection/selection.h"
#include "persistence/missing/missing_sample.h"
#include "window/controls/knob.h"
#include "window/controls/text_button.h"
#include "window/rows/channel_flag.h"
#include "window/rows/drop_down.h"
#include "window/rows/find_button.h"
#include "window/rows/letter_badge.h"
#include "window/rows/loop_it.h"
#include "window/rows/play_button.h"
#include "window/rows/select_flag.h"
#include "window/rows/sound_display.h"
#include "window/rows/thumb.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kRound = 6;  // pixels at both ends that the round corners and the stripe of the row's colour take

}  // namespace

LoopRow::LoopRow(Session& session, QWidget* parent, Row row) : QWidget(parent), s(session), row_(row) {
    Describe(s, *this, "LoopRow", row);
    setAcceptDrops(true);
    MakeLeftSide();
    Play = new PlayButton(s, this, row);
    Play->setGeometry(114, 7, 36, 36);
    LoopIt = new LoopItControl(s, this, row);
    LoopIt->setGeometry(154, 7, 36, 36);
    Name = new DropDownControl(s, this, row);
    Name->setGeometry(196, 6, 150, 38);
    Sound = new SoundDisplay(s, this, row);
    Sound->setGeometry(352, 3, 432, 44);
    Vol = new KnobControl(s, this, Knob::Vol, row);
    Vol->setGeometry(792, 0, 48, 50);
    Pan = new KnobControl(s, this, Knob::Pan, row);
    Pan->setGeometry(842, 0, 48, 50);
    Hz = new KnobControl(s, this, Knob::Hz, row);
    Hz->setGeometry(892, 0, 48, 50);
    Flag = new ChannelFlagControl(s, this, row);
    Flag->setGeometry(950, 9, 64, 32);
    if (row != kSelectionRow) {
        Find = new FindButton(s, this, row);
        Find->setGeometry(303, 17, 40, 24);
    }
    RefreshEnabled();
    RefreshName();
}

void LoopRow::RefreshName() {
    Name->Refresh();
    if (Find != nullptr) Find->setVisible(!MissingName(s, row_).empty());
}

void LoopRow::MakeLeftSide() {
    if (row_ == kSelectionRow) {
        auto* popUp = new TextButton(s, this, "SelectPopUp", [this] { SelectPopUp_Click(s); });
        popUp->setGeometry(12, 8, 60, 34);
    } else {
        Selected = new SelectFlag(s, this, row_);
        Selected->setGeometry(10, 11, 26, 28);
        Thumb = new ThumbControl(s, this, row_);
        Thumb->setGeometry(38, 8, 34, 34);
    }
    Letter = new LetterBadge(s, this, row_);
    Letter->setGeometry(78, 9, 31, 32);
}

KnobControl& LoopRow::KnobOf(Knob knob) const { return knob == Knob::Vol ? *Vol : knob == Knob::Pan ? *Pan : *Hz; }

void LoopRow::RefreshEnabled() { Pan->setEnabled(PanKnobEnabled(s, row_)); }

void LoopRow::dragEnterEvent(QDragEnterEvent* event) {
    const auto source = FromMimeData(*event->mimeData());
    event->setAccepted(source ? LoopTakesDrop(s, row_, *source)
                              : WhyDropIsRefused(s, row_, FilePaths(*event->mimeData())).empty());
}

void LoopRow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    if (const auto source = FromMimeData(*event->mimeData())) {
        LoopDragDrop(s, row_, *source);
    } else {
        DropFiles(s, row_, FilePaths(*event->mimeData()));
    }
}

// Drawn again below each control that changes: away from its round ends the row is plain.
void LoopRow::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    const QColor ground = row_ == kSelectionRow ? QColor(0x2b, 0x2c, 0x2a) : theme::kPanel;
    if (rect().adjusted(kRound, 0, -kRound, 0).contains(event->rect())) {
        p.fillRect(event->rect(), ground);
        return;
    }
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(ground);
    p.drawRoundedRect(rect(), 5, 5);
    p.setBrush(theme::RowColour(row_));
    if (theme::RowEdge(row_) != theme::RowColour(row_)) p.setPen(QPen(theme::RowEdge(row_), 1));
    p.drawRoundedRect(QRectF(0.5, 0.5, 4, height() - 1), 2, 2);
}

}  // namespace marvolin

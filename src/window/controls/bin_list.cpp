#include "window/controls/bin_list.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "browser/bin_gestures.h"
#include "browser/destinations.h"
#include "window/descriptions/parts.h"

namespace marvolin {

namespace {

constexpr int kRowHeight = 22;
constexpr int kBar = 10;         // width of a scroll bar
constexpr int kSizeColumn = 54;  // pixels
constexpr int kNotchRows = 3;

/// Inks of a list. On the darker ground of a bin with a destination they are darker, too: it must not look disabled.
struct BinInks {
    QColor Text;
    QColor Faint;
};
BinInks InksOf(const SampleBin& bin) {
    if (bin.Destination == kDragDestination) return {QColor(0x1d, 0x1f, 0x23), QColor(0x4c, 0x50, 0x58)};
    return {QColor(0x00, 0x00, 0x00), QColor(0x30, 0x34, 0x3a)};
}

}  // namespace

BinList::BinList(Session& session, QWidget* parent, int bin)
    : FolderTarget(session, parent, drags::kPickFile, bin),
      rows_(new QScrollBar(Qt::Vertical, this)),
      columns_(new QScrollBar(Qt::Horizontal, this)) {
    setFocusPolicy(Qt::StrongFocus);
    for (QScrollBar* bar : {rows_, columns_}) {
        bar->setFocusPolicy(Qt::NoFocus);
        bar->setStyleSheet("QScrollBar { background: #b4b8b1; } QScrollBar::handle { background: #4c5058; }");
        connect(bar, &QScrollBar::valueChanged, this, [this] { update(); });
    }
}

int BinList::RowCount() const { return static_cast<int>(s.Bins[index].Rows.size()); }

int BinList::Page() const {
    return std::max(1, (height() - 2 - (columns_->isVisibleTo(this) ? kBar : 0)) / kRowHeight);
}

double BinList::NameWidth() const { return s.Bins[index].FirstColumn / kTwipsPerPixel; }

double BinList::ListWidth() const { return width() - (rows_->isVisibleTo(this) ? kBar : 0); }

void BinList::PlaceBars() {
    rows_->setVisible(RowCount() * kRowHeight > height() - 2);
    rows_->setGeometry(width() - kBar - 1, 1, kBar, height() - 2);
    const int wide = static_cast<int>(NameWidth()) + kSizeColumn;
    const int over = std::max(0, wide - static_cast<int>(ListWidth()));
    columns_->setVisible(over > 0 && RowCount() > 0);
    columns_->setGeometry(1, height() - kBar - 1, static_cast<int>(ListWidth()) - 1, kBar);
    columns_->setRange(0, over);
    columns_->setPageStep(static_cast<int>(ListWidth()));
    rows_->setRange(0, std::max(0, RowCount() - Page()));
    rows_->setPageStep(Page());
}

void BinList::Refresh() {
    PlaceBars();
    update();
}

void BinList::resizeEvent(QResizeEvent*) { PlaceBars(); }

int BinList::RowAt(double y) const {
    const int row = static_cast<int>(std::floor((y - 1) / kRowHeight)) + rows_->value();
    return y >= 1 && row >= 0 && row < RowCount() ? row : -1;
}

void BinList::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    const QPointF at = twips / kTwipsPerPixel;
    const int row = RowAt(at.y());
    if (phase == Phase::Down) {
        if (const auto source = PickFile_MouseDown(s, index, button, row, at.x(), ListWidth())) {
            ArmDrag(*source);
        }
    } else if (phase == Phase::Up) {
        if (QRectF(rect()).contains(at)) PickFile_MouseUp(s, index, button, row);
    } else {
        if (row != hovered_) {
            update();
            refused_ = false;
        }
        hovered_ = row;
        setCursor(row >= 0 && BinDragsAt(s, index, at.x(), ListWidth()) ? Qt::OpenHandCursor : Qt::ArrowCursor);
    }
}

// Where samples are only dragged a double click loads nothing. The bar says what does, as long as the pointer stays.
void BinList::DoubleClick(std::int16_t button, QPointF twips) {
    const QPointF at = twips / kTwipsPerPixel;
    refused_ = s.Bins[index].Destination == kDragDestination && RowAt(at.y()) >= 0;
    Gesture(Phase::Down, button, twips);
    described.ShowHint(PartAt(at), false);
}

int BinList::PartAt(QPointF place) const {
    const int row = RowAt(place.y());
    return refused_ && row >= 0 && s.Bins[index].Destination == kDragDestination ? kDragOnlyPart : row;
}

void BinList::leaveEvent(QEvent* event) {
    hovered_ = -1;
    refused_ = false;
    update();
    Control::leaveEvent(event);
}

void BinList::Select(int row) {
    if (RowCount() == 0) return;
    const int chosen = std::clamp(row, 0, RowCount() - 1);
    s.Bins[index].Selected = chosen;
    if (chosen < rows_->value()) rows_->setValue(chosen);
    if (chosen >= rows_->value() + Page()) rows_->setValue(chosen - Page() + 1);
    update();
}

void BinList::Step(int units) { Select(s.Bins[index].Selected - units); }

void BinList::Activate() {
    if (RowCount() == 0) return PickDir_Click(s, index);
    PickFile_MouseUp(s, index, kLeftButton, s.Bins[index].Selected);
}

InnerPart BinList::Inner(int part) const {
    const BinRow& row = s.Bins[index].Rows[static_cast<std::size_t>(part)];
    return {.Label = row.Name + " (" + row.Size + "k)",
            .Role = QAccessible::ListItem,
            .Chosen = part == s.Bins[index].Selected,
            .Place = LineOf(part).intersected(rect())};
}

void BinList::PressInner(int part) {
    Select(part);
    Activate();
}

void BinList::RightButton(Phase phase) {
    if (phase == Phase::Up) PickFile_MouseUp(s, index, kRightButton, s.Bins[index].Selected);
}

std::optional<DragSource> BinList::Carried(std::int16_t) {
    if (RowCount() == 0) return std::nullopt;
    // From the right margin every bin is dragged.
    return PickFile_MouseDown(s, index, kLeftButton, s.Bins[index].Selected, ListWidth(), ListWidth());
}

void BinList::keyPressEvent(QKeyEvent* event) {
    const int here = s.Bins[index].Selected;
    switch (event->key()) {
        case Qt::Key_Home:
            return Select(0);
        case Qt::Key_End:
            return Select(RowCount() - 1);
        case Qt::Key_PageUp:
            return Select(here - Page());
        case Qt::Key_PageDown:
            return Select(here + Page());
        default:
            Control::keyPressEvent(event);
    }
}

void BinList::wheelEvent(QWheelEvent* event) {
    rows_->setValue(rows_->value() - event->angleDelta().y() * kNotchRows / QWheelEvent::DefaultDeltasPerStep);
    event->accept();
}

QRectF BinList::LineOf(int row) const {
    return {1, 1.0 + (row - rows_->value()) * kRowHeight, ListWidth() - 1, kRowHeight};
}

void BinList::PaintRow(QPainter& p, int row) const {
    const BinRow& shown = s.Bins[index].Rows[static_cast<std::size_t>(row)];
    const QRectF line = LineOf(row);
    const double y = line.top();
    if (row == s.Bins[index].Selected) {
        p.fillRect(line, theme::kAccent);
    } else if (row == hovered_) {
        p.fillRect(line, QColor(255, 255, 255, 110));
    }
    const double left = 8 - columns_->value();
    const double nameWidth = std::max(NameWidth(), ListWidth() - kSizeColumn) - 12;
    const BinInks inks = InksOf(s.Bins[index]);
    p.setPen(inks.Text);
    p.setFont(theme::Sans(13));
    p.drawText(QRectF(left, y, nameWidth, kRowHeight), Qt::AlignVCenter | Qt::AlignLeft,
               QString::fromStdString(shown.Name));
    p.setPen(inks.Faint);
    p.setFont(theme::Digits(11));
    p.drawText(QRectF(left + nameWidth, y, kSizeColumn - 8, kRowHeight), Qt::AlignVCenter | Qt::AlignRight,
               QString::fromStdString(shown.Size));
}

void BinList::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const Colour back = BinColour(s, index);
    p.setPen(QPen(hasFocus() ? theme::kAccent : theme::kFrame, 1));
    p.setBrush(QColor(back.Red, back.Green, back.Blue));
    p.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    p.setClipRect(rect().adjusted(1, 1, -1, -1));
    if (RowCount() == 0) {
        p.setPen(InksOf(s.Bins[index]).Faint);
        p.setFont(theme::Sans(12));
        p.drawText(rect().adjusted(12, 0, -12, 0), Qt::AlignCenter | Qt::TextWordWrap,
                   "No samples in this folder.\nClick to choose another one.");
        return;
    }
    const int last = std::min(RowCount(), rows_->value() + Page() + 2);
    for (int row = rows_->value(); row < last; ++row) PaintRow(p, row);
    if (s.Bins[index].Destination == kDragDestination) return;
    // The right margin, from which samples are dragged.
    p.setPen(QPen(QColor(0, 0, 0, 40), 1, Qt::DotLine));
    const double margin = ListWidth() * 2 / 3;
    p.drawLine(QPointF(margin, 1), QPointF(margin, height() - 1));
}

}  // namespace marvolin

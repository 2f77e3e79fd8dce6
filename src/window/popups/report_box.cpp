#include "window/popups/report_box.h"

#include <QAccessible>
#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include "window/descriptions/described.h"
#include "window/screens/toolkit_scale.h"

namespace marvolin {

namespace {

constexpr int kBoxGap = 12;  // pixels between the box and what it keeps clear

QPoint CentredIn(const QRect& area, QSize box) { return area.center() - QPoint(box.width() / 2, box.height() / 2); }

constexpr qsizetype kMostTexts = 4;
constexpr int kLeastText = 220;  // pixels: the whole title fits beside the buttons of the frame

/// Says that there have been more messages than are shown; "" when there have not.
QString CountText(int count, qsizetype shown) {
    if (count <= shown) return "";
    return QString(shown == 1 ? "%1 messages; this is the newest." : "%1 messages; these are the newest.").arg(count);
}

}  // namespace

QPoint PlaceClearOf(const QRect& rows, const QRect& area, QSize box, std::initializer_list<QPoint> wanted) {
    for (const QPoint& place : wanted) {
        const QRect there(place, box);
        if (area.contains(there) && !there.intersects(rows)) return place;
    }
    return {area.center().x() - box.width() / 2, area.bottom() - kBoxGap - box.height()};
}

ReportBox::ReportBox() : QMessageBox(nullptr) {
    setModal(false);
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                   Qt::WindowDoesNotAcceptFocus);
    setAttribute(Qt::WA_ShowWithoutActivating);
    Describe(*this, "MessageBox");
    setTextFormat(Qt::PlainText);
    setStandardButtons(QMessageBox::Ok);
    Describe(*button(QMessageBox::Ok), "BoxOk");
    go_.setSingleShot(true);
    qApp->installEventFilter(this);
}

ReportBox::~ReportBox() { qApp->removeEventFilter(this); }

void ReportBox::Attach(QWidget* mainWindow) { main_ = mainWindow; }

void ReportBox::Show(const QString& text, const QString& title, Icon icon, QWidget* owner) {
    owner_ = owner;
    dialogue_ = QApplication::activeModalWidget();
    ++count_;
    // The player has not seen what came a moment before.
    if (!go_.isActive()) texts_.clear();
    texts_.removeAll(text);
    texts_.append(text);
    if (texts_.size() > kMostTexts) texts_.removeFirst();
    go_.start(0);
    setWindowTitle(title);
    setText(texts_.join("\n\n"));
    setInformativeText(CountText(count_, texts_.size()));
    // The toolkit makes the line's label hidden, and would leave it out of the size of an open box.
    if (auto* line = findChild<QLabel*>("qt_msgbox_informativelabel")) line->show();
    setIcon(icon);
    LeaveRoomForTitle();
    winId();  // makes the window that gets an owner
    windowHandle()->setTransientParent(owner == nullptr ? nullptr : owner->window()->windowHandle());
    if (!isVisible()) return show();
    Place();
    raise();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

// The toolkit makes a box as narrow as its text, and lays it out again for each.
void ReportBox::LeaveRoomForTitle() {
    auto* grid = qobject_cast<QGridLayout*>(layout());
    auto* text = findChild<QLabel*>("qt_msgbox_label");
    if (grid == nullptr || text == nullptr) return;
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(text), &row, &column, &rows, &columns);
    grid->setColumnMinimumWidth(column, kLeastText);
}

// The size is known only now.
void ReportBox::showEvent(QShowEvent* event) {
    QMessageBox::showEvent(event);
    Place();
}

void ReportBox::hideEvent(QHideEvent* event) {
    if (!IsReopening()) {
        count_ = 0;
        go_.stop();
    }
    QMessageBox::hideEvent(event);
}

// Some desktops activate every new window, and every window that is clicked.
void ReportBox::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && owner_ != nullptr) owner_->activateWindow();
    QMessageBox::changeEvent(event);
}

QRect ReportBox::Rows() const {
    QRect rows;
    if (main_ == nullptr || !main_->isVisible()) return rows;
    for (const QWidget* child : main_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!child->objectName().startsWith("LoopRow")) continue;
        rows = rows.united(QRect(child->mapToGlobal(QPoint(0, 0)), child->size()));
    }
    return rows;
}

void ReportBox::Place() {
    const QWidget* at = owner_ != nullptr ? owner_->window() : main_.data();
    const QScreen* screen = at != nullptr ? at->screen() : QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    const QRect rows = Rows();
    const QSize box = frameGeometry().size();
    const QRect form = at != nullptr ? at->frameGeometry() : area;
    QRect below = form;  // what a form has below the rows
    if (at == main_ && !rows.isNull()) below.setTop(rows.bottom() + kBoxGap);
    const int middle = form.center().x() - box.width() / 2;
    move(PlaceClearOf(rows, area, box,
                      {CentredIn(below, box),
                       {middle, form.bottom() - kBoxGap - box.height()},
                       {middle, form.bottom() + kBoxGap},
                       {middle, form.top() - kBoxGap - box.height()},
                       {area.left() + kBoxGap, area.bottom() - kBoxGap - box.height()},
                       {area.right() - kBoxGap - box.width(), area.bottom() - kBoxGap - box.height()}}));
}

// What opened later than the report has the keyboard: a box that asks, a dialogue, an open list.
bool ReportBox::TakesKeys() const {
    return isVisible() && QApplication::activePopupWidget() == nullptr &&
           QApplication::activeModalWidget() == dialogue_;
}

// The key that closes the box does nothing else, also when it repeats and when it is released.
bool ReportBox::KeyEvent(QEvent& event) {
    const auto& key = static_cast<const QKeyEvent&>(event);
    if (key.key() != Qt::Key_Escape && key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) return false;
    if (event.type() == QEvent::KeyRelease) {
        const bool taken = key.key() == takenKey_;
        if (taken && !key.isAutoRepeat()) takenKey_ = 0;
        return taken;
    }
    if (key.isAutoRepeat() && key.key() == takenKey_) return true;
    if (!TakesKeys() || key.isAutoRepeat()) return false;
    event.accept();
    if (event.type() == QEvent::ShortcutOverride) return true;
    takenKey_ = key.key();
    hide();
    return true;
}

bool ReportBox::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return KeyEvent(*event);
        case QEvent::Show:
        case QEvent::Move:
            if (object == main_ && isVisible() && frameGeometry().intersects(Rows())) Place();
            return false;
        default:
            return QMessageBox::eventFilter(object, event);
    }
}

}  // namespace marvolin

#include "window/keys/key_drag.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <algorithm>

#include "audio/sample_loading.h"
#include "browser/bin_gestures.h"
#include "core/routines.h"
#include "window/keys/carried.h"
#include "window/toolkit/drag.h"
#include "window/toolkit/drag_source.h"
#include "window/toolkit/drop_ring.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

/// Where something can be carried: in the main window and the browser, while no list or question is open over them.
bool IsWhereOneCarries(const QWidget& focus) {
    if (QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr) return false;
    const QString window = focus.window()->objectName();
    return window == "frmMain" || window == "frmBrowse";
}

/// The sample, clip or LoopTrack that `source` stands for now. A drop takes what is there then.
std::string ContentOf(const Session& s, const DragSource& source) {
    std::string content = DragName(s, source);
    const auto row = static_cast<std::size_t>(source.Index);
    if (source.Name == drags::kPickFile) content += "\n" + SampleAt(s, source.Index, s.Bins[row].Selected);
    if (source.Name == drags::kPickDir) content += "\n" + s.Bins[row].Folder;
    if (source.Name == drags::kDropDown && row < kLoopTracks) content += "\n" + s.Set[source.Index].FileName;
    if (source.Name == drags::kClipBoardList) content += "\n" + std::to_string(s.Clips.Selected);
    if (source.Name == drags::kHistoryList) {
        content += "\n" + std::to_string(s.HistoryRow) + " " + std::to_string(s.HistoryChoice);
        for (const std::string& path : s.History[s.HistoryRow]) content += "\n" + path;
    }
    return content;
}

bool IsCarryKey(int key) { return key == Qt::Key_Insert || key == Qt::Key_F9; }

/// A list keeps its drops for what it scrolls.
QWidget& DroppedAt(QWidget& widget) {
    auto* scrolled = qobject_cast<QAbstractScrollArea*>(&widget);
    return scrolled == nullptr ? widget : *scrolled->viewport();
}

/// Whether the arrows stop here: the mouse drops on anything in a row, the keys on what takes the drop itself.
bool IsTarget(QWidget& widget) {
    return DroppedAt(widget).acceptDrops() && widget.isVisible() && widget.isEnabled() &&
           (widget.focusPolicy() & Qt::TabFocus) != 0;
}

}  // namespace

KeyDrag::KeyDrag(Session& session) : s(session) {
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { ShowWhere(now); });
}

KeyDrag::~KeyDrag() {
    if (load_) DropRing::Of(*qApp).Hide();
    delete sign_;
}

bool KeyDrag::Enters(QWidget& at, const QMimeData& data) {
    const QScopedValueRollback asking(asks_, true);
    QDragEnterEvent enter(at.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&at, &enter);
    return enter.isAccepted();
}

bool KeyDrag::TakenBy(QWidget& widget) {
    const auto data = ToMimeData(*load_);
    QWidget& at = DroppedAt(widget);
    if (!Enters(at, *data)) return false;
    // The toolkit would pass the moves of the next drag on to what was entered last, also when that is gone.
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&at, &leave);
    return true;
}

// What is carried stands below the focus as long as it is carried, whatever the status line says meanwhile.
void KeyDrag::ShowSign(const QWidget& focus) {
    delete sign_;
    sign_ = new QLabel(focus.window());  // owned by the window; here only seen
    sign_->setObjectName("Carried");
    sign_->setAccessibleName(ToQString(carried_));
    sign_->setAttribute(Qt::WA_TransparentForMouseEvents);
    sign_->setPixmap(DragPicture(s, *load_, focus.devicePixelRatioF()));
    sign_->adjustSize();
    const QPoint below = focus.mapTo(focus.window(), QPoint(focus.width() / 2, focus.height() + 2));
    const QPoint last(focus.window()->width() - sign_->width(), focus.window()->height() - sign_->height());
    sign_->move(std::max(0, std::min(below.x(), last.x())), std::max(0, std::min(below.y(), last.y())));
    sign_->show();
    sign_->raise();
}

// As under the mouse, a ring is around what takes the drop.
void KeyDrag::ShowWhere(QWidget* focus) {
    if (!load_) return;
    if (focus == nullptr || !IsWhereOneCarries(*focus)) {
        delete sign_;
        return DropRing::Of(*qApp).Hide();
    }
    ShowSign(*focus);
    if (TakenBy(*focus)) {
        DropRing::Of(*qApp).Show(*focus);
    } else {
        DropRing::Of(*qApp).Hide();
    }
}

void KeyDrag::PickUp(QWidget& focus, std::int16_t button) {
    auto* from = dynamic_cast<Carries*>(&focus);
    if (from != nullptr && focus.isEnabled()) load_ = from->Carried(button);
    if (!load_) return ShowStatus(s, "Nothing can be picked up here");
    carried_ = DragName(s, *load_);
    former_.emplace(s, focus);
    content_ = ContentOf(s, *load_);
    ShowSign(focus);
    Say(carried_ + ": key Arrows Choose where; key Insert Drop; key Esc Let go");
    // The browser's samples and clips go to the rows.
    const bool toRows = load_->Name == drags::kPickFile || load_->Name == drags::kClipBoardList;
    if (toRows) s.World.Forms.BringToFront(Form::Main);
}

void KeyDrag::DropOn(QWidget& focus) {
    const auto data = ToMimeData(*load_);
    QWidget& at = DroppedAt(focus);
    if (!Enters(at, *data)) return Say(carried_ + " cannot be dropped here; key Esc Let go");
    if (former_) former_->ForgetReport();
    LetGo();
    QDropEvent drop(QRectF(at.rect()).center(), Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(&at, &drop);
}

void KeyDrag::LetGo() {
    load_.reset();
    delete sign_;
    DropRing::Of(*qApp).Hide();
    // A report of the meantime stays.
    if (former_ && s.StatusText == said_) former_->BringBack();
    former_.reset();
}

void KeyDrag::Say(const std::string& text) {
    said_ = text;
    ShowStatus(s, text);
}

void KeyDrag::GoToTarget(QWidget& focus, bool forward, bool otherRow) {
    QWidget* at = &focus;
    do {
        at = forward ? at->nextInFocusChain() : at->previousInFocusChain();
        const bool same = otherRow && at->parentWidget() == focus.parentWidget();
        if (same || at->window() != focus.window() || !IsTarget(*at) || !TakenBy(*at)) continue;
        if (at != &focus) return at->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    } while (at != &focus);
    ShowWhere(&focus);  // the ring went with the asking
}

bool KeyDrag::CarryOn(QWidget& focus, const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Escape:
            LetGo();
            return true;
        case Qt::Key_Right:
        case Qt::Key_Left:
            GoToTarget(focus, key.key() == Qt::Key_Right, false);
            return true;
        case Qt::Key_Down:
        case Qt::Key_Up:
            GoToTarget(focus, key.key() == Qt::Key_Down, true);
            return true;
        default:
            return false;
    }
}

bool KeyDrag::TakeKey(QWidget& focus, const QKeyEvent& key) {
    if (load_ && !IsWhereOneCarries(focus)) return false;
    if (!IsCarryKey(key.key())) return load_ && CarryOn(focus, key);
    const auto* carries = dynamic_cast<Carries*>(&focus);
    if (!load_ && carries == nullptr) return false;  // a field of text has an Insert of its own
    if (key.isAutoRepeat() || QApplication::mouseButtons() != Qt::NoButton) return true;
    if (load_ && ContentOf(s, *load_) != content_) {
        const std::string gone = carried_;
        LetGo();
        ShowStatus(s, gone + " is not there any more");
    } else if (load_) {
        DropOn(focus);
    } else {
        PickUp(focus, key.modifiers().testFlag(Qt::ShiftModifier) ? kRightButton : kLeftButton);
    }
    return true;
}

void KeyDrag::MouseDrags() {
    if (load_ && !asks_) LetGo();
}

}  // namespace marvolin

#include "window/descriptions/described.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QMouseEvent>

#include "core/routines.h"
#include "window/toolkit/hint_window.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

/// The widget that gets the pointer's events.
QWidget& PointedAt(QWidget& widget) {
    auto* scrolled = qobject_cast<QAbstractScrollArea*>(&widget);
    return scrolled == nullptr ? widget : *scrolled->viewport();
}

Described& Attach(Session* session, QWidget& widget, std::string_view name, int index) {
    widget.setObjectName(ToQString(ObjectNameOf(name, index)));
    auto* described = new Described(session, widget, DescriptionOf(name, index), index);  // the widget owns it
    auto* button = qobject_cast<QAbstractButton*>(&widget);
    const QString caption = ToQString(described->Caption());
    // The toolkit takes a single "&" for the mark of a key.
    if (button != nullptr && !caption.isEmpty()) button->setText(QString(caption).replace("&", "&&"));
    const std::string label = described->Label();
    if (!label.empty()) widget.setAccessibleName(ToQString(label));
    if (!described->Row().Tip.Empty()) described->RefreshTip();
    return *described;
}

}  // namespace

Described::Described(Session* session, QWidget& widget, const Description& row, int index)
    : QObject(&widget), session_(session), widget_(widget), row_(row), index_(index) {
    if (session_ == nullptr) return;
    QWidget& pointed = PointedAt(widget_);
    if (!row_.Hint.Empty()) pointed.setMouseTracking(true);
    pointed.installEventFilter(this);
}

std::string Described::Say(const ControlText& text, int part, bool held) const {
    return session_ == nullptr ? text.Without(index_) : text.At({*session_, index_, part, held});
}

std::string Described::Caption() const { return Say(row_.Caption); }
std::string Described::Label() const { return Say(row_.Label.Empty() ? row_.Caption : row_.Label); }

std::string Described::Tip() const {
    const std::string tip = Say(row_.Tip);
    return tip == kLabelAsTip ? Label() : tip;
}

std::string Described::Value() const { return Say(row_.Value); }
std::string Described::Shortcut() const { return Say(row_.Shortcut); }
std::string Described::Hint(int part, bool held) const { return Say(row_.Hint, part, held); }

void Described::RefreshTip() { widget_.setToolTip(ToQString(Tip())); }

void Described::ShowHint(int part, bool held) {
    const std::string hint = Hint(part, held);
    if (hint.empty() || session_ == nullptr) return;
    if (auto* window = dynamic_cast<HintWindow*>(widget_.window())) {
        window->ShowHint(hint);
    } else {
        ShowStatus(*session_, hint);
    }
}

void Described::HintAt(QPointF place, bool held) {
    const auto* parts = dynamic_cast<const HasParts*>(&widget_);
    ShowHint(parts == nullptr ? 0 : parts->PartAt(place), held);
}

bool Described::eventFilter(QObject*, QEvent* event) {
    // A disabled control gets the pointer's moves too, and ignores them.
    if (event->type() == QEvent::MouseMove && widget_.isEnabled()) {
        const auto& move = static_cast<const QMouseEvent&>(*event);
        HintAt(move.position(), move.buttons() != Qt::NoButton);
    }
    return false;
}

Described& Describe(Session& session, QWidget& widget, std::string_view name, int index) {
    return Attach(&session, widget, name, index);
}

Described& Describe(QWidget& widget, std::string_view name, int index) { return Attach(nullptr, widget, name, index); }

Described* DescribedOf(const QObject& object) {
    for (QObject* child : object.children()) {
        if (auto* described = dynamic_cast<Described*>(child)) return described;
    }
    return nullptr;
}

}  // namespace marvolin

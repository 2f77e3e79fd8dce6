#include "window/tabs/tab_control.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include "performance/tabs.h"
#include "window/tabs/tab_map.h"
#include "window/tabs/tab_mix_pad.h"
#include "window/tabs/tab_options.h"
#include "window/tabs/tab_pattern.h"

namespace marvolin {

namespace {

constexpr int kCaptionHeight = 26;
constexpr int kCaptionWidth = 94;

}  // namespace

TabButton::TabButton(Session& session, QWidget* parent, TabStrip strip, int tab)
    : Control(session, parent, strip == TabStrip::Main ? "Tab" : "OptionSubTab", tab), strip_(strip) {}

std::int16_t TabButton::OpenTab() const { return strip_ == TabStrip::Main ? s.ActiveTab : s.ActiveSubTab; }

std::optional<DragSource> TabButton::Carried(std::int16_t) {
    if (strip_ != TabStrip::Main || OpenTab() != kPatternTab) return std::nullopt;
    return DragSource{drags::kTabControl, 0, ""};
}

void TabButton::GoTo(int tab) {
    auto* beside = parentWidget()->findChild<QWidget*>(QString::fromStdString(ObjectNameOf(described.Row().Name, tab)));
    if (beside == nullptr) return;  // there is none at the ends
    beside->setFocus(Qt::TabFocusReason);
    const auto opened = static_cast<std::int16_t>(tab);
    strip_ == TabStrip::Main ? SetTab(s, opened) : OptionSubTabs_Click(s, opened);
}

void TabButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Up:
            return GoTo(index - 1);
        case Qt::Key_Right:
        case Qt::Key_Down:
            return GoTo(index + 1);
        default:
            Control::keyPressEvent(event);
    }
}

void TabButton::Gesture(Phase phase, std::int16_t button, QPointF) {
    if (phase != Phase::Down) return;
    const bool main = strip_ == TabStrip::Main;
    if (button == kLeftButton) main ? SetTab(s, index) : OptionSubTabs_Click(s, index);
    if (button == kRightButton && main && OpenTab() == kPatternTab) ArmDrag({drags::kTabControl, 0, ""});
}

void TabButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const bool open = OpenTab() == index;
    QPainterPath shape;
    shape.addRoundedRect(QRectF(0.5, 0.5, width() - 1, height() + 8), 6, 6);
    p.setPen(QPen(theme::kFrame, open ? 0 : 1));
    p.setBrush(open ? theme::kPanel : underMouse() ? theme::kRaised : theme::kWindow);
    p.drawPath(shape);
    p.setFont(theme::Sans(13, open ? QFont::DemiBold : QFont::Normal));
    p.setPen(open ? theme::kText : theme::kQuiet);
    p.drawText(rect(), Qt::AlignCenter, Caption());
    if (hasFocus()) theme::DrawFocus(p, QRectF(rect()).adjusted(2, 2, -2, -2), 5);
}

TabControl::TabControl(Session& session, QWidget* parent) : Control(session, parent, drags::kTabControl) {
    for (int tab = 0; tab < kTabs; ++tab) {
        auto* caption = new TabButton(s, this, TabStrip::Main, tab);
        caption->setGeometry(tab * (kCaptionWidth + 2), 0, kCaptionWidth, kCaptionHeight);
        captions_.push_back(caption);
    }
    pages_ = {MixPad = new TabMixPad(s, this), Map = new TabMap(s, this), Pattern = new TabPattern(s, this),
              Options = new TabOptions(s, this)};
    for (QWidget* page : pages_) page->setGeometry(0, kCaptionHeight, 1024, kHeight - kCaptionHeight);
    Refresh();
}

void TabControl::Refresh() {
    for (int tab = 0; tab < kTabs; ++tab) pages_[static_cast<std::size_t>(tab)]->setVisible(tab == s.ActiveTab);
    for (TabButton* caption : captions_) caption->Refresh();
    Options->Refresh();
}

void TabControl::Gesture(Phase phase, std::int16_t button, QPointF) {
    if (phase == Phase::Down && button == kRightButton && s.ActiveTab == kPatternTab)
        ArmDrag({drags::kTabControl, 0, ""});
}

void TabControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kPanel);
    p.drawRoundedRect(QRectF(0, kCaptionHeight, width(), height() - kCaptionHeight), 5, 5);
    p.drawRect(QRectF(0, kCaptionHeight, 20, 8));
}

}  // namespace marvolin

#include "window/toolbar.h"

#include <QPainter>

#include "window/controls/fade_factor.h"
#include "window/controls/knob.h"
#include "window/controls/limiter.h"
#include "window/controls/play_stop.h"
#include "window/controls/text_button.h"
#include "window/hints.h"
#include "window/theme.h"

namespace marvolin {

namespace {

constexpr int kButtonTop = 8;
constexpr int kButtonHeight = 30;

void DrawLabel(QPainter& p, int right, const QString& text) {
    p.drawText(QRect(right - 80, 0, 80, Toolbar::kHeight), Qt::AlignVCenter | Qt::AlignRight, text);
}

}  // namespace

Toolbar::Toolbar(Session& s, QWidget* parent, std::function<void()> toggleMode) : QWidget(parent) {
    setObjectName("Toolbar");
    struct Place {
        const char* Name;
        const char* Text;
        const char* Tip;
        std::string_view Hint;
        int Left;
        int Width;
    };
    constexpr Place kButtons[] = {
        {"Browse", "Browse", "Open the browser", hints::kBrowse, 8, 72},
        {"SaveOpen", "Save/Open", "Save and open sessions", hints::kSaveOpen, 85, 90},
        {"QuickLoadPop", "QuickLoad", "Sessions of the current folder", hints::kQuickLoad, 180, 88},
        {"SnapShot", "Snapshot", "Save a snapshot of the session", {}, 273, 86},
        {"Scripts", "Scripts", "Scripts", {}, 364, 70},
    };
    for (const Place& b : kButtons) {
        auto* button = new TextButton(s, this, b.Name, b.Text, b.Tip, b.Hint, nullptr);
        button->setGeometry(b.Left, kButtonTop, b.Width, kButtonHeight);
    }
    auto* playStop = new PlayStopControl(s, this);
    playStop->setGeometry(446, 2, 46, 42);
    Limiter = new LimiterControl(s, this);
    Limiter->setGeometry(546, kButtonTop, 30, kButtonHeight);
    FadeFactor = new FadeFactorControl(s, this);
    FadeFactor->setGeometry(628, kButtonTop, 150, kButtonHeight);
    Master = new KnobControl(s, this, Knob::Vol, kMasterRow);
    Master->setGeometry(850, 3, 40, 40);
    ToTop = new TextButton(s, this, "ToTop", "Mini", "Minimize Toggle", hints::kToTop, std::move(toggleMode));
    ToTop->setGeometry(966, kButtonTop, 66, kButtonHeight);
}

void Toolbar::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setFont(theme::Sans(12));
    p.setPen(theme::kQuiet);
    DrawLabel(p, 540, "Limit");
    DrawLabel(p, 624, "Fade");
    DrawLabel(p, 846, "Master");
}

}  // namespace marvolin

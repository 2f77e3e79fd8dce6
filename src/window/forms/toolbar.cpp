#include "window/forms/toolbar.h"

#include <QPainter>

#include "persistence/quick_load.h"
#include "persistence/save_open.h"
#include "persistence/snapshot.h"
#include "window/controls/fade_factor.h"
#include "window/controls/knob.h"
#include "window/controls/limiter.h"
#include "window/controls/play_stop.h"
#include "window/controls/scripts_button.h"
#include "window/controls/text_button.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kButtonTop = 8;
constexpr int kButtonHeight = 30;

void DrawLabel(QPainter& p, int right, const QString& text) {
    p.drawText(QRect(right - 80, 0, 80, Toolbar::kHeight), Qt::AlignVCenter | Qt::AlignRight, text);
}

}  // namespace

Toolbar::Toolbar(Session& s, QWidget* parent, std::function<void()> toggleMode, std::function<void()> openScripts)
    : QWidget(parent) {
    Describe(s, *this, "Toolbar");
    const auto add = [&](const char* name, QRect place, std::function<void()> click) {
        auto* button = new TextButton(s, this, name, std::move(click));
        button->setGeometry(place);
        return button;
    };
    const auto at = [](int left, int width) { return QRect(left, kButtonTop, width, kButtonHeight); };
    add("Browse", at(8, 72), [&s] {
        s.World.Forms.Show(Form::Browse);
        s.World.Forms.BringToFront(Form::Browse);
    });
    add("SaveOpen", at(85, 90), [&s] { OpenSaveOpen(s, s.CurrentFile); });
    QuickLoadPop = add("QuickLoadPop", at(180, 88), [&s] { QuickLoadPop_MouseUp(s, kLeftButton); });
    QuickLoadPop->OnOtherClick([&s](std::int16_t button) { QuickLoadPop_MouseUp(s, button); });
    add("SnapShot", at(273, 86), [&s] { SnapShot_MouseUp(s); });
    Scripts = new ScriptsButton(s, this, std::move(openScripts));
    Scripts->setGeometry(at(364, 70));
    auto* playStop = new PlayStopControl(s, this);
    playStop->setGeometry(446, 2, 46, 42);
    Limiter = new LimiterControl(s, this);
    Limiter->setGeometry(546, kButtonTop, 30, kButtonHeight);
    FadeFactor = new FadeFactorControl(s, this);
    FadeFactor->setGeometry(628, kButtonTop, 150, kButtonHeight);
    Master = new KnobControl(s, this, Knob::Vol, kMasterRow);
    Master->setGeometry(850, 3, 40, 40);
    ToTop = add("ToTop", at(966, 66), std::move(toggleMode));
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

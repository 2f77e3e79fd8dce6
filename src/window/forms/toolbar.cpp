#include "window/forms/toolbar.h"

#include <QPainter>

#include "persistence/quick_load.h"
#include "persistence/save_open.h"
#include "persistence/snapshot.h"
#include "window/controls/fade_factor.h"
#include "window/controls/knob.h"
#include "window/controls/level_meter.h"
#include "window/controls/limiter.h"
#include "window/controls/play_stop.h"
#include "window/controls/record_button.h"
#include "window/controls/scripts_button.h"
#include "window/controls/text_button.h"
#include "window/keys/stage_keys.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kButtonTop = 8;
constexpr int kButtonHeight = 30;
// The right ends of the labels.
constexpr int kLimitRight = 506;
constexpr int kFadeRight = 576;
constexpr int kMasterRight = 786;

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
    add("Browse", at(8, 68), [&s] {
        s.World.Forms.Show(Form::Browse);
        s.World.Forms.BringToFront(Form::Browse);
    });
    add("SaveOpen", at(80, 86), [&s] { OpenSaveOpen(s, s.CurrentFile); });
    QuickLoadPop = add("QuickLoadPop", at(170, 84), [&s] { QuickLoadPop_MouseUp(s, kLeftButton); });
    QuickLoadPop->OnOtherClick([&s](std::int16_t button) { QuickLoadPop_MouseUp(s, button); });
    add("SnapShot", at(258, 82), [&s] { SnapShot_MouseUp(s); });
    Scripts = new ScriptsButton(s, this, std::move(openScripts));
    Scripts->setGeometry(at(344, 66));
    PlayStop = new PlayStopControl(s, this);
    PlayStop->setGeometry(420, 2, 46, 42);
    Limiter = new LimiterControl(s, this);
    Limiter->setGeometry(at(kLimitRight + 6, 30));
    FadeFactor = new FadeFactorControl(s, this);
    FadeFactor->setGeometry(at(kFadeRight + 4, 150));
    Master = new KnobControl(s, this, Knob::Vol, kMasterRow);
    Master->setGeometry(kMasterRight + 4, 3, 40, 40);
    Meter = new LevelMeter(s, this);
    Meter->setGeometry(838, 3, 24, 40);
    Record = new RecordButton(s, this);
    Record->setGeometry(at(870, 28));
    ToTop = add("ToTop", at(966, 66), std::move(toggleMode));
    keys_ = std::make_unique<StageKeys>(s);
}

Toolbar::~Toolbar() = default;

void Toolbar::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setFont(theme::Sans(12));
    p.setPen(theme::kQuiet);
    DrawLabel(p, kLimitRight, "Limit");
    DrawLabel(p, kFadeRight, "Fade");
    DrawLabel(p, kMasterRight, "Master");
}

}  // namespace marvolin

#include "window/tabs/tab_map.h"

#include <QPainter>

#include "audio/headphones.h"
#include "core/routines.h"
#include "parameters/position.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/map/scatter.h"
#include "performance/map/sound_map.h"
#include "performance/map/use_3d.h"
#include "window/controls/choice.h"
#include "window/controls/gauge.h"
#include "window/controls/text_button.h"
#include "window/descriptions/described.h"
#include "window/surfaces/map_surface.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

constexpr int kMapMiddle = 352;
constexpr int kMapRight = 700;

QString Shown(double value) { return QString::fromStdString(NumberText(value)); }

}  // namespace

TabMap::TabMap(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    Describe(s, *this, "MapPage");
    Map = new MapSurface(s, this);
    Map->move(14 - BallSurface::kFrame, 10 - BallSurface::kFrame);
    MakeSide();
    Refresh();
    RefreshJoystick();
}

void TabMap::MakeSide() {
    enable_ = new ChoiceBox(s, this, "Enable3d", -1, [this](bool on) { Enable3d_Click(s, on); });
    enable_->setGeometry(kMapMiddle, 14, 120, 26);
    headphones_ = new ChoiceBox(s, this, "Headphones", -1, [this](bool on) { Headphones_Click(s, on); });
    headphones_->setGeometry(kMapMiddle + 134, 14, 150, 26);
    MakeGauges();

    MakeLabel(this, "Positions", {kMapMiddle, 172, 200, 18});
    macros_ = new ChoiceList(s, this, "PosMacros", -1,
                             [this](int entry) { PosMacros_Click(s, static_cast<std::int16_t>(entry)); });
    macros_->addItems(ToQStrings(kPosMacros));
    macros_->setGeometry(kMapMiddle, 192, 220, 30);

    centre_ = new TextButton(s, this, "CentreAll", [this] { CentreAll_Click(s); });
    centre_->setGeometry(kMapMiddle, 234, 106, 30);
    auto* front = new TextButton(s, this, "PosPop", [this] { PosPop_Click(s); });
    front->setGeometry(kMapMiddle + 114, 234, 106, 30);

    relative_ = new ChoiceBox(s, this, "JoyRelative", 1, [this](bool on) { SetJoyRelative(s, 1, on); });
    relative_->setGeometry(kMapMiddle, 278, 260, 24);
}

void TabMap::MakeGauges() {
    MakeLabel(this, "Map size", {kMapMiddle, 56, 200, 18});
    size_ = new Gauge(s, this, "MapSize",
                      {kMapSizeLow, kMapSizeHigh, 1, [this] { return static_cast<int>(s.MapSize); },
                       [this] { return Shown(s.MapSize / 10.0) + " x " + Shown(s.MapSize / 10.0); },
                       [this](int value) { MapSize_Moving(s, static_cast<std::int16_t>(value)); },
                       [this](std::int16_t button, int value) {
                           if (button == kLeftButton) MapSize_Change(s, static_cast<std::int16_t>(value));
                       }});
    size_->setGeometry(kMapMiddle - 8, 76, 312, 26);

    MakeLabel(this, "Roll off", {kMapMiddle, 114, 200, 18});
    rollOff_ = new Gauge(
        s, this, "RollOff",
        {kRollOffLow, kRollOffHigh, 1, [this] { return static_cast<int>(s.RollOff); },
         [this] { return Shown(s.RollOff / 10.0); },
         [this](int value) { RollOff_Moving(s, static_cast<std::int16_t>(value)); },
         [this](std::int16_t button, int value) { RollOff_Release(s, button, static_cast<std::int16_t>(value)); },
         true});
    rollOff_->setGeometry(kMapMiddle - 8, 134, 312, 26);
}

void TabMap::Refresh() {
    enable_->Show(s.Use3D);
    headphones_->Show(s.Headphones);
    headphones_->setEnabled(HeadphonesAvailable(s));
    size_->setEnabled(s.MapEnabled);
    rollOff_->setEnabled(s.MapEnabled);
    centre_->setEnabled(s.MapEnabled);
    macros_->Show(s.PosMacro);
    for (int ball = 0; ball <= kListenerBall; ++ball) {
        Map->BallOf(ball).setEnabled(s.MapEnabled);
        RefreshBall(ball);
    }
    RefreshSize();
    RefreshRollOff();
    update();
}

void TabMap::RefreshBall(int ball) {
    Map->BallOf(ball).Refresh();
    Map->BallOf(ball).update();
    RefreshPlaces();
}

void TabMap::RefreshPlaces() { update(kMapRight, 0, width() - kMapRight, height()); }

void TabMap::RaiseBall(int ball) { Map->BallOf(ball).raise(); }

void TabMap::RefreshSize() {
    size_->Refresh();
    Map->update();
}

void TabMap::RefreshRollOff() { rollOff_->Refresh(); }

void TabMap::RefreshJoystick() {
    relative_->Show(s.Joy.Relative[1] != False);
    DescribedOf(*relative_)->RefreshTip();
}

/// The places of all balls, in map units.
void TabMap::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setFont(theme::Sans(12));
    p.setPen(theme::kQuiet);
    p.drawText(QRect(kMapRight, 8, 300, 18), Qt::AlignLeft | Qt::AlignVCenter, "Places");
    for (int ball = 0; ball <= kListenerBall; ++ball) {
        const int y = 34 + ball * 30;
        const bool listener = ball == kListenerBall;
        const QColor colour = listener ? theme::kText : theme::RowColour(static_cast<Row>(ball));
        const QColor edge = listener ? colour : theme::RowEdge(static_cast<Row>(ball));
        p.setPen(QPen(s.MapEnabled ? edge : theme::kOff, 1));
        p.setBrush(s.MapEnabled ? colour : theme::kRaised);
        p.drawEllipse(QRectF(kMapRight + 0.5, y + 0.5, 17, 17));
        p.setFont(theme::Sans(11, QFont::Bold));
        p.setPen(s.MapEnabled ? theme::InkOn(colour) : theme::kQuiet);
        p.drawText(QRectF(kMapRight, y, 18, 18), Qt::AlignCenter, listener ? QString("L") : QString(QChar('A' + ball)));
        const BallPoint place = ShownPlace(s, ball);
        p.setFont(theme::Digits(12));
        p.setPen(s.MapEnabled ? theme::kText : theme::kQuiet);
        QString text = QString("%1, %2").arg(place.X, 6, 'f', 2).arg(place.Y, 6, 'f', 2);
        if (listener) text += QString("   %1°").arg(s.ListenerAngle);
        p.drawText(QRect(kMapRight + 30, y, 270, 18), Qt::AlignLeft | Qt::AlignVCenter, text);
    }
    p.setFont(theme::Sans(12));
    p.setPen(theme::kQuiet);
    p.drawText(QRect(kMapRight, 200, 300, 90), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
               s.MapEnabled
                   ? "Drag the letters to where their LoopTracks shall sound, and the listener L to where they are "
                     "heard. A right drag turns the listener, a double click puts a ball on the centre."
                   : "Switch 3D sound on to place the LoopTracks around the listener.");
}

}  // namespace marvolin

#include "window/forms/frm_splash.h"

#include <QCoreApplication>
#include <QPainter>
#include <QTimer>
#include <cmath>

#include "window/descriptions/described.h"
#include "window/screens/toolkit_scale.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kShownFor = 3000;  // ms; the demo hides it after the same time

}  // namespace

FrmSplash::FrmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus) {
    Describe(*this, "frmSplash");
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFixedSize(420, 220);
}

void FrmSplash::showEvent(QShowEvent*) {
    if (!IsReopening()) QTimer::singleShot(kShownFor, this, &QWidget::hide);
}

void FrmSplash::mousePressEvent(QMouseEvent*) {}

// At the release, as the window below would get the release of a press that hides the splash.
void FrmSplash::mouseReleaseEvent(QMouseEvent*) { hide(); }

void FrmSplash::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), theme::kWindow);
    p.setPen(QPen(theme::kLine, 1));
    p.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    // Four loops, one for each LoopTrack.
    for (Row row = 0; row < kLoopTracks; ++row) {
        const QColor colour = theme::RowColour(row);
        const double middle = 34 + row * 22;
        for (int pass = theme::Contrast(colour, theme::kWindow) < 3 ? 0 : 1; pass < 2; ++pass) {
            p.setPen(QPen(pass == 0 ? QColor(0xb9, 0xc4, 0xe6) : colour, pass == 0 ? 3.4 : 2));
            for (int i = 0; i < 93; ++i) {
                const double beat = std::fmod(i * (row + 2) / 46.5, 1.0);
                const double half =
                    1 + 8 * std::exp(-3.2 * beat) * (0.6 + 0.4 * std::sin(i * 1.7 + row)) + (pass == 0 ? 0.7 : 0);
                p.drawLine(QPointF(26 + i * 4, middle - half), QPointF(26 + i * 4, middle + half));
            }
        }
    }
    p.setPen(theme::kText);
    p.setFont(theme::Sans(34, QFont::DemiBold));
    p.drawText(QRect(24, 124, 372, 46), Qt::AlignVCenter | Qt::AlignLeft, "Marvolin");
    p.setPen(theme::kQuiet);
    p.setFont(theme::Sans(13));
    p.drawText(QRect(24, 172, 372, 24), Qt::AlignVCenter | Qt::AlignLeft, "A live instrument made of loops");
    p.setPen(theme::kAccent);
    p.drawText(QRect(24, 172, 372, 24), Qt::AlignVCenter | Qt::AlignRight, QCoreApplication::applicationVersion());
}

}  // namespace marvolin

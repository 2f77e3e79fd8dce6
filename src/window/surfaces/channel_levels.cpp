#include "window/surfaces/channel_levels.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "core/routines.h"
#include "window/descriptions/described.h"
#include "window/rows/channel_flag.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr std::array<const char*, kChannels> kLevelNames{"W", "WB", "BW", "B"};
constexpr int kBarPitch = 34;  // pixels from bar to bar
constexpr int kBarLeft = 146;
constexpr int kLettersLeft = 76;  // of the LoopTracks that follow the channel
constexpr int kLetter = 16;       // pixels from letter to letter
constexpr int kNumber = 62;       // width of the numbers

/// A channel's level as a bar from `From` to `To` of its length, and as the number that the status line shows. At
/// `Plain` the channel leaves its LoopTracks unchanged.
struct Level {
    double From;
    double To;
    double Plain;
    QString Text;
};

Level LevelOf(const Session& s, int channel) {
    switch (s.PadTypeIndex) {
        case kVolPad: {
            const int left = kVolFull - s.ChannelVol[channel];
            return {0, left / 500.0, 1, QString::number(left)};
        }
        case kPanPad: {
            const int pan = s.ChannelPan[channel] - kPanCentre;
            const double at = s.ChannelPan[channel] / 1000.0;
            return {std::min(0.5, at), std::max(0.5, at), 0.5, (pan > 0 ? "+" : "") + QString::number(pan)};
        }
        default: {
            const double top = s.PadTypeIndex == kPitch300Pad ? 3000.0 : 4000.0;
            const std::int16_t hz = s.ChannelHz[channel];
            return {0, hz / top, kHzUnity / top, QString::fromStdString(NumberText(hz / 10.0)) + "%"};
        }
    }
}

/// The letters of the LoopTracks whose wire leads to the channel.
void DrawWired(QPainter& p, const Session& s, int channel, double y) {
    p.setFont(theme::Sans(10, QFont::Bold));
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Set[row].Channel != channel) continue;
        const QColor ground = theme::RowColour(row);
        const QRectF badge(kLettersLeft + row * kLetter, y + 2, kLetter - 2, kLetter - 1);
        p.setPen(QPen(theme::kLine, 1));
        p.setBrush(ground);
        p.drawRoundedRect(badge, 3, 3);
        p.setPen(theme::InkOn(ground));
        p.drawText(badge, Qt::AlignCenter, QString(QChar(RowLetter(row))));
    }
}

}  // namespace

ChannelLevels::ChannelLevels(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    Describe(s, *this, "ChannelLevels");
}

void ChannelLevels::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const Colour back = s.PadTable[s.PadTypeIndex].BackColor;
    const QColor colour(back.Red, back.Green, back.Blue);
    p.setFont(theme::Sans(12));
    p.setPen(theme::kQuiet);
    p.drawText(QRect(0, 0, width(), 18), Qt::AlignLeft | Qt::AlignVCenter, "Channels");
    const double length = width() - kBarLeft - kNumber;
    for (int channel = 1; channel <= kChannels; ++channel) {
        const double y = 12 + (channel - 1) * kBarPitch + 14.0;
        const Level level = LevelOf(s, channel);
        DrawWire(p, QRectF(0, y + 1, 30, 17), channel - 1);
        p.setFont(theme::Sans(13, QFont::DemiBold));
        p.setPen(theme::kText);
        p.drawText(QRectF(40, y, 40, 19), Qt::AlignLeft | Qt::AlignVCenter,
                   kLevelNames[static_cast<std::size_t>(channel - 1)]);
        DrawWired(p, s, channel, y);
        p.setPen(QPen(theme::kFrame, 1));
        p.setBrush(theme::kSunk);
        p.drawRoundedRect(QRectF(kBarLeft, y + 3.5, length, 12), 4, 4);
        p.setPen(Qt::NoPen);
        p.setBrush(colour);
        const double from = std::clamp(level.From, 0.0, 1.0) * length;
        const double to = std::clamp(level.To, 0.0, 1.0) * length;
        if (to > from) p.drawRoundedRect(QRectF(kBarLeft + from + 1, y + 4.5, to - from - 1, 10), 3, 3);
        if (level.Plain < 1) {
            const double at = kBarLeft + level.Plain * length;
            p.setPen(QPen(theme::kQuiet, 1));
            p.drawLine(QPointF(at, y + 0.5), QPointF(at, y + 3));
            p.drawLine(QPointF(at, y + 16), QPointF(at, y + 18.5));
        }
        p.setFont(theme::Digits(12));
        p.setPen(theme::kText);
        p.drawText(QRectF(width() - kNumber, y, kNumber, 19), Qt::AlignRight | Qt::AlignVCenter, level.Text);
    }
}

}  // namespace marvolin

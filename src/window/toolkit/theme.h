#pragma once
/// \file
/// Colours, fonts and faces that all controls share.

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRectF>

#include "core/types.h"

class QApplication;
class QWidget;

namespace marvolin::theme {

inline const QColor kWindow{0x1d, 0x1f, 0x23};
inline const QColor kPanel{0x26, 0x29, 0x2f};
inline const QColor kRaised{0x2e, 0x32, 0x38};
inline const QColor kLifted{0x37, 0x3c, 0x44};
inline const QColor kLine{0x3a, 0x3f, 0x47};   ///< what only separates, and frames of what is off
inline const QColor kFrame{0x6c, 0x74, 0x80};  ///< frames that show the shape of a control
inline const QColor kSunk{0x14, 0x16, 0x19};
inline const QColor kText{0xe6, 0xe8, 0xeb};
inline const QColor kQuiet{0xa0, 0xa8, 0xb3};
inline const QColor kAccent{0xff, 0xc9, 0x4d};
inline const QColor kGreen{0x5f, 0xd0, 0x7a};
inline const QColor kGreenGround{0x1d, 0x46, 0x2a};
inline const QColor kAmberGround{0x4a, 0x3a, 0x16};
inline const QColor kRed{0xe5, 0x5b, 0x50};
inline const QColor kRedGround{0x56, 0x21, 0x1e};
inline const QColor kOff{0x7d, 0x85, 0x90};   ///< shapes that are off
inline const QColor kPale{0xb9, 0xc4, 0xe6};  ///< edges of what is too dark for its ground

/// Sets style, palette, icon, font and stylesheet of the whole program.
void Apply(QApplication& application);

/// The interface font, `pixels` logical pixels high.
QFont Sans(int pixels, QFont::Weight weight = QFont::Normal);
/// The same with digits of one width, for numbers that change.
QFont Digits(int pixels, QFont::Weight weight = QFont::Normal);

/// Sets the colour of a label's text.
void SetInk(QWidget& label, const QColor& ink);

/// The colour of a row, exactly as in the model.
QColor RowColour(Row row);
/// The colour of lines and edges of a row: its own, or a pale one where that is too dark for the dark grounds. Always
/// three times as light as they, or more.
QColor RowEdge(Row row);
/// Relative luminance, 0 black..1 white.
double Luminance(const QColor& colour);
/// Contrast ratio of two colours, 1..21.
double Contrast(const QColor& a, const QColor& b);
/// Black or white, whichever has more contrast on `ground`.
QColor InkOn(const QColor& ground);
/// The ground behind a row's waveform: dark, or pale for a dark row colour.
QColor WaveGround(Row row);

/// State in which the face of a control is drawn.
struct FaceState {
    bool Enabled = true;
    bool Hover = false;
    bool Down = false;
    bool Focus = false;
};
/// Draws a rounded face with its border: lighter under the pointer, with a ring in the accent colour when focused. The
/// border of a disabled face is quiet.
void DrawFace(QPainter& p, const QRectF& rect, const FaceState& state, const QColor& fill = kRaised,
              const QColor& line = kFrame, double radius = 6);
/// Draws the focus ring alone: accent, with a dark one inside, so that it stands out on every ground, the accent itself
/// included.
void DrawFocus(QPainter& p, const QRectF& rect, double radius = 6);
/// The same around something round.
void DrawRoundFocus(QPainter& p, const QPointF& centre, double radius);

}  // namespace marvolin::theme

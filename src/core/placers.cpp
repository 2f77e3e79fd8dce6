#include "core/placers.h"

namespace marvolin {

namespace {

double Bottom(const TwipRect& rect) { return rect.Top + rect.Height; }
double Right(const TwipRect& rect) { return rect.Left + rect.Width; }

}  // namespace

void PlaceBelow(TwipRect& control, const TwipRect& other, double gap) {
    control.Top = Bottom(other) + gap;
    control.Left = other.Left;
}

void PlaceBelowRight(TwipRect& control, const TwipRect& other, double gap) {
    control.Top = Bottom(other) + gap;
    control.Left = Right(other) - control.Width;
}

void PlaceAbove(TwipRect& control, const TwipRect& other, double gap) {
    control.Top = other.Top - gap - control.Height;
    control.Left = other.Left;
}

void PlaceAboveRight(TwipRect& control, const TwipRect& other, double gap) {
    control.Top = other.Top - gap - control.Height;
    control.Left = Right(other) - control.Width;
}

void PlaceRightOf(TwipRect& control, const TwipRect& other, double gap) {
    control.Left = Right(other) + gap;
    control.Top = other.Top;
}

void PlaceLeftOf(TwipRect& control, const TwipRect& other, double gap) {
    control.Left = other.Left - gap - control.Width;
    control.Top = other.Top;
}

void MoveDown(TwipRect& control, double amount) { control.Top += amount; }

void MoveRight(TwipRect& control, double amount) { control.Left += amount; }

}  // namespace marvolin

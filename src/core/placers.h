#pragma once
/// \file
/// Placing one control relative to another. Each moves `control` and keeps its size; gaps and amounts are in twips.

#include "core/windows.h"

namespace marvolin {

/// Below `other`, left edges aligned.
void PlaceBelow(TwipRect& control, const TwipRect& other, double gap);
/// Below `other`, right edges aligned.
void PlaceBelowRight(TwipRect& control, const TwipRect& other, double gap);
/// Above `other`, left edges aligned.
void PlaceAbove(TwipRect& control, const TwipRect& other, double gap);
/// Above `other`, right edges aligned.
void PlaceAboveRight(TwipRect& control, const TwipRect& other, double gap);
/// To the right of `other`, tops aligned.
void PlaceRightOf(TwipRect& control, const TwipRect& other, double gap);
/// To the left of `other`, tops aligned.
void PlaceLeftOf(TwipRect& control, const TwipRect& other, double gap);
void MoveDown(TwipRect& control, double amount);
void MoveRight(TwipRect& control, double amount);

}  // namespace marvolin

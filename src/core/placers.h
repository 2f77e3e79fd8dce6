#pragma once
/// \file
/// Placing one control by another. Each moves `control` and keeps its size; gaps and amounts are in twips.

#include "core/windows.h"

namespace marvolin {

/// Under `other`, left edges in line.
void PlaceBelow(TwipRect& control, const TwipRect& other, double gap);
/// Under `other`, right edges in line.
void PlaceBelowRight(TwipRect& control, const TwipRect& other, double gap);
/// Over `other`, left edges in line.
void PlaceAbove(TwipRect& control, const TwipRect& other, double gap);
/// Over `other`, right edges in line.
void PlaceAboveRight(TwipRect& control, const TwipRect& other, double gap);
/// To the right of `other`, tops in line.
void PlaceRightOf(TwipRect& control, const TwipRect& other, double gap);
/// To the left of `other`, tops in line.
void PlaceLeftOf(TwipRect& control, const TwipRect& other, double gap);
void MoveDown(TwipRect& control, double amount);
void MoveRight(TwipRect& control, double amount);

}  // namespace marvolin

#pragma once

#include "catalogue.h"

#include <QImage>

#include <vector>

// Elements laid out as sheets of the kind's default size, and the walk strips that
// show them moving.
namespace Sheet {

// One frame of an element. The right-facing row is the left-facing one mirrored.
Sprite frame(const ElementDesign& design, int kind, int row, int column);
QImage sheet(const ElementDesign& design, int kind);

using Outfit = std::vector<const ElementDesign*>;
// Outfits that together wear every element, and each body bare.
std::vector<Outfit> reviewOutfits();
// For review only: each outfit's four rows, every row's frames in the order the game
// plays them, side by side over a plain ground.
QImage walkStrip(int kind, const std::vector<Outfit>& outfits);

} // namespace Sheet

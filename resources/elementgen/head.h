#pragma once

#include "figure.h"
#include "sprite.h"

// The skull every body shares, 16 pixels wide and 15 high from (HeadLeft, headTop),
// so that each hair style and hat fits each body.
namespace Head {

constexpr int Left = 8;
constexpr int Width = 16;
constexpr int Height = 15;

Mask skull(const Figure& figure);

} // namespace Head

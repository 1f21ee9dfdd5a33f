#pragma once

#include "figure.h"
#include "sprite.h"

#include <vector>

// One element of the library: the category folder it goes in, its file's name, and
// how it draws one frame of a figure.
struct ElementDesign
{
    const char* category;
    const char* name;
    void (*draw)(Sprite& sprite, const Figure& figure);
};

// Every element, category by category in stacking order, bottom to top.
const std::vector<ElementDesign>& catalogue();

// The drawings, one file per category.
namespace Bodies {
void slim(Sprite& sprite, const Figure& figure);
void sturdy(Sprite& sprite, const Figure& figure);
} // namespace Bodies

namespace Tops {
void tshirt(Sprite& sprite, const Figure& figure);
void shirt(Sprite& sprite, const Figure& figure);
void jacket(Sprite& sprite, const Figure& figure);
void tunic(Sprite& sprite, const Figure& figure);
} // namespace Tops

namespace Bottoms {
void trousers(Sprite& sprite, const Figure& figure);
void shorts(Sprite& sprite, const Figure& figure);
void skirt(Sprite& sprite, const Figure& figure);
} // namespace Bottoms

namespace Footwear {
void shoes(Sprite& sprite, const Figure& figure);
void boots(Sprite& sprite, const Figure& figure);
} // namespace Footwear

namespace Hair {
void short_(Sprite& sprite, const Figure& figure);
void long_(Sprite& sprite, const Figure& figure);
void ponytail(Sprite& sprite, const Figure& figure);
void spiky(Sprite& sprite, const Figure& figure);
} // namespace Hair

namespace Accessories {
void hat(Sprite& sprite, const Figure& figure);
void scarf(Sprite& sprite, const Figure& figure);
} // namespace Accessories

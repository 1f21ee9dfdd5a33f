#include "catalogue.h"

const std::vector<ElementDesign>& catalogue()
{
    static const std::vector<ElementDesign> designs = {
        {"Corps", "Corps mince", &Bodies::slim},
        {"Corps", "Corps robuste", &Bodies::sturdy},
        {"Chaussures", "Souliers", &Footwear::shoes},
        {"Chaussures", "Bottes", &Footwear::boots},
        {"Bas", "Pantalon", &Bottoms::trousers},
        {"Bas", "Short", &Bottoms::shorts},
        {"Bas", "Jupe", &Bottoms::skirt},
        {"Hauts", "T-shirt", &Tops::tshirt},
        {"Hauts", "Chemise", &Tops::shirt},
        {"Hauts", "Veste", &Tops::jacket},
        {"Hauts", "Tunique", &Tops::tunic},
        {"Cheveux", "Courts", &Hair::short_},
        {"Cheveux", "Longs", &Hair::long_},
        {"Cheveux", "Queue de cheval", &Hair::ponytail},
        {"Cheveux", "H\u00e9riss\u00e9s", &Hair::spiky},
        {"Accessoires", "Chapeau", &Accessories::hat},
        {"Accessoires", "\u00c9charpe", &Accessories::scarf},
    };
    return designs;
}

#pragma once

class Character;

// Conversion of a whole character between the XP and VX layouts, and the adding of
// one character's elements to another.
class KindConversion
{
public:
    static void toVX(Character& character);
    static void toXP(Character& character);
    static void insert(Character& target, const Character& other, int index, bool rename);
};

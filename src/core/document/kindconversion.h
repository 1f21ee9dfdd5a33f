#pragma once

class Character;
class QImage;

// Conversion of a whole character between the XP and VX layouts, and the adding of
// one character's elements to another.
class KindConversion
{
public:
    static void toVX(Character& character);
    static void toXP(Character& character);
    static void insert(Character& target, const Character& other, int index, bool rename);
    // A sheet made for the other engine, redrawn in document's kind: it is cut into a
    // character of the other kind whose sheet matches the document's (the width scaled
    // by 3/4 or 4/3), converted and composed. Adding an element with conversion and
    // restoring one with re-conversion both go through here, so that the one gives
    // what the other finds again. image must be Format_ARGB32.
    static QImage convertedSheet(const QImage& image, const Character& document);
};

#pragma once

#include <QString>

// The RPG Maker 2003 sheet being filled from one file to the next: single characters
// towards 2003 share a sheet of eight blocks, named after the first of them. The
// converter keeps one for the whole process, and the planner that predicts its names
// keeps another, so that a prediction never disturbs a conversion.
struct SheetState
{
    static constexpr unsigned char SlotsPerSheet = 8;

    unsigned char slot = 0;          // the block the next character goes to
    unsigned char lastDirection = 6; // the reset code: the first run starts a sheet
    QString lastSheetPath;

    void reset()
    {
        slot = 0;
        lastDirection = 6;
        lastSheetPath.clear();
    }
    // A change of direction, or a full sheet, starts again from the first block.
    void restartUnlessGoingOn(unsigned char direction)
    {
        if (lastDirection != direction || slot >= SlotsPerSheet)
            slot = 0;
    }
    bool startsNewSheet() const { return slot == 0 || lastSheetPath.isEmpty(); }
};

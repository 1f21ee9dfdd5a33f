#pragma once

#include <QString>
#include <QStringList>

// The names the sheet converter writes, kept in one place so that the converter and
// the planner that predicts its names cannot drift apart. Paths split on "/" and "\"
// alike (formats/filenames.h), as file dialogs and scripts may hand over either.
class SheetNames
{
public:
    // The directions of a conversion; Reset is no conversion but the code that clears
    // the state of the sheet under way.
    enum Direction : unsigned char
    {
        From2003ToXP = 0,
        From2003ToVX = 1,
        FromXPTo2003 = 2,
        FromXPToVX = 3,
        FromVXTo2003 = 4,
        FromVXToXP = 5,
        Reset = 6
    };

    // True when "$" is the first or second character of the file name: RPG Maker VX
    // marks a sheet holding a single character that way.
    static bool hasDollarMark(const QString& path);

    static bool isTo2003(unsigned char direction) { return direction == 2 || direction == 4; }
    // "XP_CONVERSIONS", "VX_CONVERSIONS" or "2K3_CONVERSIONS"; empty for Reset.
    static QString outputFolderName(unsigned char direction);
    // The sub-folder of the direction beside source.
    static QString outputFolderOf(const QString& source, unsigned char direction);

    // Whether a VX source holds one character: characterCount 1 says so, 0 asks the name.
    static bool isSingleVX(const QString& path, unsigned char characterCount);

    // The file written for a source holding one character (directions 0, 1, 3, 5),
    // with the "$" of single characters towards VX.
    static QString singleOutput(const QString& source, unsigned char direction);
    // The file of the same name without any mark: a sheet of eight towards VX.
    static QString unmarkedOutput(const QString& source, unsigned char direction);
    // The eight files of a sheet of eight characters towards XP (directions 0 and 5).
    static QStringList eightOutputs(const QString& source, unsigned char direction);
    // The sheet towards RPG Maker 2003 that a source starts: named after the source
    // with its own extension.
    static QString sheetOutput(const QString& source);

    // The sources of a run: in folder mode the folder's PNG and GIF files by name,
    // ignoring case, so that sheets fill in an order the user can predict; in file
    // mode the list itself.
    static QStringList sources(const QStringList& paths, bool fileMode);
};

#pragma once

#include "batch/sheetstate.h"

#include <QString>
#include <QStringList>

// Predicts the files a conversion will write, without changing a pixel, so that the
// user can be warned before existing files are replaced. It follows the converter's
// branches with its own sheet state, and leaves the converter's alone.
class ConversionPlanner
{
public:
    // The error answer of predictNames: the file can't be read.
    static QString errorAnswer() { return QStringLiteral("?ERROR?"); }

    // The names path will give, one name, or for sheets of eight characters towards XP
    // eight names each followed by "|". A single character towards 2003 that goes on
    // a sheet already named gives an empty answer: a sheet is named once, after its
    // first character. Direction 6 clears the planner's sheet state.
    static QString predictNames(const QString& path, uchar direction, uchar characterCount);

    // Every file a run would write, in the order of writing, each once. The sources
    // that can't be read go to unreadable, if given.
    static QStringList plannedFiles(const QStringList& paths, bool fileMode, uchar direction,
                                    uchar characterCount, QStringList* unreadable = nullptr);
    // The planned files that exist already; empty while the output folder doesn't.
    static QStringList replacedFiles(const QStringList& paths, bool fileMode, uchar direction,
                                     uchar characterCount);

    static const SheetState& sheetState() { return s_sheet; }

private:
    static QString predictTo2003(const QString& path, uchar direction, bool single);

    static SheetState s_sheet;
};

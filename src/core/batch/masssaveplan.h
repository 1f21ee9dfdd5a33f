#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class Character;

// The names and the walk of saving one character in many hues: which elements each
// entry turns, which number its files bear, and the names of the files. The mass save
// worker walks these entries, and its dialog and the command line predict its files
// from them.
class MassSavePlan
{
public:
    // One entry of the walk: the selection it sets, and the number in its file names.
    struct Entry
    {
        int number = 0;
        // False for a simple element that matched nothing: the selection then stays as
        // the character holds it.
        bool setsSelection = true;
        QList<int> elements;
    };

    // The numbers behind the markers of element sources, as the grouped walk reads them.
    struct Grouping
    {
        QList<int> simpleElements;
        QList<int> groupElements;
    };

    static int variationCount(uint hueStep) { return hueStep == 0 ? 0 : int(360 / hueStep); }
    static QString fileName(const QString& prefix, int number, uint degrees);
    static QStringList fileNames(const QList<Entry>& entries, const QString& prefix, uint hueStep);

    static QList<Entry> plainEntries(const QList<int>& elements);
    static QList<Entry> groupedEntries(const Character& character, const QList<int>& simpleElements,
                                       const QList<int>& groupElements);

    // Marks every element for the grouped walk, on a copy of the document: an element
    // of no group gets "|" and its own index, the only number that finds it (a plain
    // file gives none, and a path may hold a "|" of its own); an element of a group
    // keeps only its "?" and what follows, so that no "|" in its path misleads.
    static void tagSources(Character& character);

    // The simple and group numbers of the chosen elements, each group once.
    static Grouping grouping(const Character& character, const QList<int>& chosenElements);

    // The number of a simple element: what stands behind the first "|" of its source.
    static bool simpleNumber(const QByteArray& source, int* number);
    // The number of a group: behind the first "?" of its source, then its first "_".
    static bool groupNumber(const QByteArray& source, int* number);
};

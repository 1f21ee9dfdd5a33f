#include "batch/masssaveplan.h"

#include "document/character.h"

QString MassSavePlan::fileName(const QString& prefix, int number, uint degrees)
{
    return prefix + QString::number(number) + QLatin1Char('_') + QString::number(degrees) +
           QStringLiteral(".png");
}

QStringList MassSavePlan::fileNames(const QList<Entry>& entries, const QString& prefix,
                                    uint hueStep)
{
    QStringList names;
    const int variations = variationCount(hueStep);
    for (const Entry& entry : entries) {
        for (int v = 0; v < variations; ++v)
            names.append(fileName(prefix, entry.number, uint(v) * hueStep));
    }
    return names;
}

QList<MassSavePlan::Entry> MassSavePlan::plainEntries(const QList<int>& elements)
{
    QList<Entry> entries;
    for (int e : elements)
        entries.append(Entry{e, true, {e}});
    return entries;
}

QList<MassSavePlan::Entry> MassSavePlan::groupedEntries(const Character& character,
                                                        const QList<int>& simpleElements,
                                                        const QList<int>& groupElements)
{
    QList<Entry> entries;
    // One number runs through the whole walk: an entry that finds nothing keeps the
    // number of the entry before it (0 before any match).
    int number = 0;
    for (int id : simpleElements) {
        Entry entry{number, false, {}};
        for (int e = 0; e < character.elementCount(); ++e) {
            int found = 0;
            if (simpleNumber(character.elementSource(e), &found) && found == id) {
                entry = Entry{e, true, {e}};
                number = e;
                break;
            }
        }
        entries.append(entry);
    }
    for (int id : groupElements) {
        // A group always sets the selection, to nothing when nothing matches.
        Entry entry{number, true, {}};
        for (int e = 0; e < character.elementCount(); ++e) {
            int found = 0;
            if (groupNumber(character.elementSource(e), &found) && found == id) {
                entry.elements.append(e);
                entry.number = number = e;
            }
        }
        entries.append(entry);
    }
    return entries;
}

MassSavePlan::Grouping MassSavePlan::grouping(const Character& character,
                                              const QList<int>& chosenElements)
{
    Grouping grouping;
    for (int e : chosenElements) {
        const QByteArray& source = character.elementSource(e);
        int number = 0;
        if (simpleNumber(source, &number))
            grouping.simpleElements.append(number);
        if (groupNumber(source, &number) && !grouping.groupElements.contains(number))
            grouping.groupElements.append(number);
    }
    return grouping;
}

void MassSavePlan::tagSources(Character& character)
{
    for (int e = 0; e < character.elementCount(); ++e) {
        const QByteArray& source = character.elementSource(e);
        const int mark = source.indexOf('?');
        character.setElementSource(e, mark < 0 ? '|' + QByteArray::number(e) : source.mid(mark));
    }
}

// Text that isn't a number reads as 0, as the toolkit's conversion gives.
bool MassSavePlan::simpleNumber(const QByteArray& source, int* number)
{
    const int bar = source.indexOf('|');
    if (bar < 0)
        return false;
    *number = source.mid(bar + 1).toInt();
    return true;
}

bool MassSavePlan::groupNumber(const QByteArray& source, int* number)
{
    const int mark = source.indexOf('?');
    if (mark < 0)
        return false;
    const QByteArray rest = source.mid(mark + 1);
    *number = rest.mid(rest.indexOf('_') + 1).toInt();
    return true;
}

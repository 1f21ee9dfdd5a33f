#pragma once

#include "settings/inientry.h"

#include <QBitArray>
#include <QList>
#include <QString>

// One section of the settings file: its place in the tree and its values, kept in one
// array per type, with the entries giving the order in which the keys were added.
struct IniSection
{
    quint32 parent = 0; // 0 for a root section
    quint32 id = 0;
    QList<qint32> ints;
    QList<double> doubles;
    QList<QString> strings;
    QBitArray bools;
    QList<IniEntry> entries;
};

#pragma once

#include <QByteArray>
#include <QList>

class Character;

// The editing of a character's stack of elements: duplicating, moving, deleting and
// merging. They change the model only; the caller refreshes the views and records the
// history step with its label.
class ElementOperations
{
public:
    // The name of a copy of an element called name, free among names: "Pull" and
    // "Pull copie 2" both give the first free "Pull copie", "Pull copie 2", ...
    static QByteArray copyName(const QByteArray& name, const QList<QByteArray>& names);

    static void duplicate(Character& character, int e, int target);
    static void move(Character& character, int target);
    static void remove(Character& character, const QList<int>& elements);
    static void merge(Character& character, const QList<int>& elements);
};

#pragma once

#include "recovery/recoveryentry.h"

#include <QList>
#include <QString>

// The folder of recovery copies, shared by every running instance: which copies were
// left behind by a program that is gone, and how they are removed.
class RecoveryFolder
{
public:
    // Where the copies live, in the user's data folder.
    static QString defaultPath();

    // The copies whose owner is no longer running, oldest first. An index that cannot
    // be read comes with its errorText. Copies that lost their index (the program died
    // between the two files) are deleted on the way, as are indexes whose copy is gone.
    static QList<RecoveryEntry> abandoned(const QString& folder);
    static void remove(const RecoveryEntry& entry);

    // True when pid names a running Zenkora: a live process with our own executable
    // name, so that a number reused by another program after a crash frees the copy.
    static bool isRunning(qint64 pid);

    // File names: "<pid>-<document>.json" for the index, "<pid>-<document>-<n>.zk" for
    // the n-th copy of that document.
    static QString indexName(qint64 pid, int document);
    static QString copyName(qint64 pid, int document, int sequence);
};

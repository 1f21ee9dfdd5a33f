#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

// What the program knows of one recovery copy: the .zk it wrote, and where the
// document came from. Each copy has its own small index file beside it, so that two
// running instances never write the same file.
class RecoveryEntry
{
public:
    QString indexPath;
    QString copyPath;
    // The file the document was opened from or saved to; empty for a new document.
    QString originalPath;
    QString title;
    int kind = 0;
    QDateTime copied;
    qint64 pid = 0;
    // Set by the scan when the index itself cannot be read.
    QString errorText;

    QByteArray toJson() const;
    // Reads an index; false when it is not one of ours. The copy's path is taken
    // beside indexPath, never from anywhere else.
    static bool fromJson(const QByteArray& json, const QString& indexPath, RecoveryEntry* entry);
};

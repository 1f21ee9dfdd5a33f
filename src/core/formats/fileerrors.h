#pragma once

#include <QString>

// The messages that the readers and writers of the program's files leave for the
// user, chosen by the cause of a failure.
class FileErrors
{
public:
    // A file that could not be opened. Qt reports nearly every such failure as
    // OpenError, so the permission message is chosen by asking the file system.
    static QString openForReading(const QString& path);
    static QString openForWriting(const QString& path);
    // A write or a commit that failed after the file was open (a full disk).
    static QString writeFailed(const QString& path);
};

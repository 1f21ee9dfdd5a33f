#pragma once

#include <QString>
#include <QStringList>

// The list of recently opened files, kept in the settings as paths joined by "|",
// oldest first, at most fifteen.
class RecentFiles
{
public:
    static constexpr int Limit = 15;

    // Puts path at the end of the list (with "\" turned into "/"), removing earlier
    // copies and, past the limit, the oldest entries.
    static void add(const QString& path);
    // The entries to show, newest first.
    static QStringList newestFirst();
};

#pragma once

#include <QString>

// The folders the batch windows start their file dialogs in, kept in the section
// "Path" of the settings.
class FolderKeys
{
public:
    // The folder stored under key, or the home folder.
    static QString read(const QString& key);
    // Stores folder under key, unless it holds a "?", which the settings file would
    // give back as no folder.
    static void store(const QString& key, const QString& folder);
};

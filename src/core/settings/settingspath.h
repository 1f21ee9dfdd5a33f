#pragma once

#include <QString>

// Where "zenkora.ini" lives. A copy in the working directory wins, so a user can keep
// settings per folder; otherwise the file sits beside the executable, unless that
// folder is read-only (an installed program), in which case it goes to the user's
// configuration folder and is read from beside the executable until it exists there.
class SettingsPath
{
public:
    enum Use
    {
        Reading,
        Writing
    };

    struct Folders
    {
        QString working;
        QString application;
        QString config;
        bool applicationWritable = true;
    };

    static QString fileName() { return QStringLiteral("zenkora.ini"); }
    // Looks only at whether a "zenkora.ini" exists in the folders given.
    static QString resolve(const Folders& folders, Use use);
    // The folders of this process: working directory, application folder, and the
    // application's configuration folder (which may not exist yet).
    static Folders current();
};

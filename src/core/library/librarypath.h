#pragma once

#include <QString>

#include <functional>

// Where the element library lives. A library in the working directory wins, so that a
// user can work on a library of their own beside their project; otherwise the one
// beside the executable is taken. The library is written to (new categories, new
// elements), so when the folder found cannot be written (an installed program) the
// user gets a copy of it in their data folder, made once and kept from then on.
//
// The result is the base that the library's paths follow: "" (paths stay relative to
// the working directory) or a folder ending in "/". The library itself is always
// base + "elements/", with the kinds in "elements/XP/" and "elements/VX/".
class LibraryPath
{
public:
    struct Folders
    {
        QString working;
        QString application;
        // The user's data folder (which may not exist yet).
        QString data;
        // Whether a folder that exists can be written to.
        std::function<bool(const QString&)> writable;
    };

    // Whether folder holds both "elements/XP" and "elements/VX".
    static bool holdsLibrary(const QString& folder);
    // The base, after the user's copy was made if it is needed. A copy that cannot be
    // made leaves the library where it was found, to be read at least.
    static QString resolve(const Folders& folders);
    // The folders of this process, with the file system's own permissions.
    static Folders current();

    // The folder that a copy in progress is written to, beside the user's library; it
    // takes the library's name only once complete, so a copy cut short is made again.
    static QString partialName() { return QStringLiteral("elements.partial"); }

private:
    static bool copyTree(const QString& from, const QString& to);
    static bool seed(const QString& library, const QString& data);
};

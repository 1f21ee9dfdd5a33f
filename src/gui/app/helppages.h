#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

// The manual's pages on disk: where the folder "help/" lies, the chapters of its tree,
// and the file of each chapter. Pages are named as the program names them, relative
// to the folder that holds "help/": "help/créer_un_character.html#id_1".
class HelpPages
{
public:
    // A top-level entry of the tree: a page of its own when it has no children, else
    // a folder of pages, which has none.
    struct Chapter
    {
        QString title;
        QStringList children;
    };

    static QList<Chapter> tree();
    // "help/" + the chapter's title with "/" turned into "_", "'" removed, blanks
    // turned into "_", in lower case + ".html"; accents stay.
    static QString pageOf(const QString& chapter);

    // The folder that holds "help/", ending in "/": the working directory when it has
    // "help/introduction.html", as the library is looked for, else the executable's.
    static QString base(const QString& working, const QString& application);
    static QString locateBase();
    // The file URL of a page under base. The fragment is split off first: inside a
    // local file name a "#" would be taken for part of the name.
    static QUrl urlOf(const QString& base, const QString& page);
};

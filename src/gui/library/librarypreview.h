#pragma once

#include <QPixmap>
#include <QString>

// The pictures the library browsers show beside their lists: a sheet as it is, a
// group element composed, a folder by its first readable element, and a blank card
// saying there is nothing to show.
class LibraryPreview
{
public:
    // The preview of a file or a folder.
    static QPixmap of(const QString& path);
    // The card shown when there is no picture: 160 by 224, white, with a line of text.
    static QPixmap none();

private:
    static QImage imageOf(const QString& file);
};

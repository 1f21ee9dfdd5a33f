#include "library/librarypreview.h"

#include "formats/elementfile.h"
#include "formats/filenames.h"
#include "formats/safefile.h"
#include "library/libraryfolder.h"

#include <QFileInfo>
#include <QPainter>

QImage LibraryPreview::imageOf(const QString& file)
{
    if (!hasExtension(file, QStringLiteral("elzk")))
        return SafeFile::readImage(file);
    const std::optional<ElementFile::Pair> pair = ElementFile::load(file, nullptr);
    return pair ? ElementFile::merged(*pair).compose() : QImage();
}

QPixmap LibraryPreview::of(const QString& path)
{
    if (!QFileInfo(path).isDir()) {
        const QImage image = imageOf(path);
        return image.isNull() ? none() : QPixmap::fromImage(image);
    }
    // Only the folder's own files: a category shows what it holds at its first level.
    for (const QFileInfo& file : LibraryFolder::files(path)) {
        const QImage image = imageOf(file.filePath());
        if (!image.isNull())
            return QPixmap::fromImage(image);
    }
    return none();
}

QPixmap LibraryPreview::none()
{
    QPixmap card(160, 224);
    card.fill(Qt::white);
    QPainter painter(&card);
    painter.setPen(Qt::black);
    painter.setFont(QFont(QStringLiteral("Arial"), 8));
    painter.drawText(card.rect(), Qt::AlignCenter, QStringLiteral("Aucun aperçu disponible."));
    return card;
}

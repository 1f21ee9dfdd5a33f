#include "batch/fusioner.h"
#include "formats/safefile.h"

#include "batch/sheetcopier.h"
#include "formats/pngwriter.h"

#include <QImage>
#include <QList>

Fusioner::Fusioner(const QStringList& files, const QString& targetPath, QObject* parent)
    : QThread(parent), m_files(files), m_targetPath(targetPath)
{}

void Fusioner::run()
{
    const uint n = uint(m_files.size());
    QList<QImage> images;
    for (uint i = 0; i < n; ++i) {
        if (i > 0 && stopAsked())
            break;
        const QString& path = m_files.at(i);
        emit changeProgress(i * 20 / n, QStringLiteral("Ouverture de : ") + path);
        const QImage image = SafeFile::readImage(path);
        if (image.isNull())
            m_failedFiles.append(path);
        // A null image keeps its place, so that indexes stay those of the list.
        images.append(SheetCopier::normalised(image));
    }
    // Stopped, nothing is written: the file in place stays as it was.
    if (m_stopped) {
        emit finishThread(m_failedFiles);
        return;
    }
    emit changeProgress(20, QStringLiteral("Création du nouveau tileset"));
    int height = 0;
    for (const QImage& image : images)
        height += image.height();
    QImage tileset(TilesetWidth, height, QImage::Format_ARGB32);
    tileset.fill(0xffffffffu);

    int y = 0;
    for (uint i = 0; i < n; ++i) {
        if (i > 0 && stopAsked())
            break;
        emit changeProgress(i * 65 / n + 25, QStringLiteral("Fusion de : ") + m_files.at(i));
        const QImage& image = images.at(i);
        if (image.isNull())
            continue;
        // The width is the tileset's, not the source's: a wider source is cut, and a
        // narrower one leaves the toolkit's outside value on its right.
        SheetCopier::copyBlock(tileset, image, QPoint(0, y), QPoint(0, 0),
                               QSize(TilesetWidth, image.height()));
        y += image.height();
    }
    // The last moment a stop is heard: once the saving is announced, it happens.
    if (m_stopped || stopAsked()) {
        emit finishThread(m_failedFiles);
        return;
    }
    emit changeProgress(90, QStringLiteral("Enregistrement du tileset"));
    if (!PngWriter::save(tileset, m_targetPath))
        m_failedWrites.append(m_targetPath);
    emit finishThread(m_failedFiles);
}

bool Fusioner::stopAsked()
{
    m_stopped = m_stopped || isInterruptionRequested();
    return m_stopped;
}

#include "formats/pngwriter.h"

#include "formats/safefile.h"

#include <QColorSpace>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>

QImage PngWriter::prepared(const QImage& image)
{
    QImage copy = image;
    copy.setDotsPerMeterX(3780);
    copy.setDotsPerMeterY(3780);
    copy.setColorSpace(QColorSpace());
    return copy;
}

bool PngWriter::write(const QImage& image, QIODevice* device)
{
    QImageWriter writer(device, "png");
    return writer.write(prepared(image));
}

bool PngWriter::save(const QImage& image, const QString& path, QString* errorText)
{
    QSaveFile file(path);
    const bool ok = SafeFile::openForWriting(file) && write(image, &file) && SafeFile::commit(file);
    if (!ok && errorText)
        *errorText = QStringLiteral("Impossible d'enregistrer le fichier :<br />") + path
                     + QLatin1Char('.');
    return ok;
}

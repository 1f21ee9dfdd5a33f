#include "formats/elementfile.h"

#include "formats/characterfile.h"
#include "formats/fileerrors.h"
#include "formats/safefile.h"
#include "formats/streamimage.h"
#include "imaging/cellcutter.h"

#include <QDataStream>
#include <QFile>
#include <QSaveFile>

#include <atomic>

namespace {

// Numbers the loads of the program's run, so that the sources of two loads of one
// file differ and restoration can tell them apart.
std::atomic<int> loadCounter{0};

QString damaged(const QString& path)
{
    return QStringLiteral("Ce fichier est endommagé :<br />") + path +
           QStringLiteral(".<br />Il est impossible de l'ouvrir.");
}

bool fitsCounts(int total, int first)
{
    return total <= ElementFile::MaximumCount && first >= 0 && first <= total;
}

// A file written from no image at all declares 0 by 0, which becomes the default size
// of its kind; any other size must make a sheet that a character file can hold.
bool isReadableSize(QSize size)
{
    return size == QSize(0, 0) || CharacterFile::isReadableSheetSize(size);
}

void writeSheet(QDataStream& out, const QImage& image, QSize maximum, int kind)
{
    const QImage sheet = image.format() == QImage::Format_ARGB32
                             ? image
                             : image.convertToFormat(QImage::Format_ARGB32);
    const CellCutter::Cells cells = CellCutter::cut(sheet, maximum, kind);
    for (qsizetype c = 0; c < cells.images.size(); ++c) {
        out << cells.positions.at(c);
        StreamImage::write(out, cells.images.at(c));
    }
}

} // namespace

bool ElementFile::write(QIODevice* device, const QList<QImage>& images, int firstCount, int kind)
{
    const int total = int(images.size());
    if (!fitsCounts(total, firstCount))
        return false;
    QSize maximum(0, 0);
    for (const QImage& image : images)
        maximum = maximum.expandedTo(image.size());
    const char version = 0;
    if (device->write(&version, 1) != 1)
        return false;
    QDataStream out(device);
    out.setVersion(QDataStream::Qt_4_5);
    out << maximum << qint8(total) << qint8(firstCount) << qint8(kind);
    for (const QImage& image : images) {
        if (out.status() != QDataStream::Ok)
            break;
        writeSheet(out, image, maximum, kind);
    }
    return out.status() == QDataStream::Ok;
}

bool ElementFile::write(const QString& path, const QList<QImage>& images, int firstCount, int kind,
                        QString* errorText)
{
    QString message;
    if (!fitsCounts(int(images.size()), firstCount)) {
        message = QStringLiteral("Impossible de créer l'élément :<br />") + path + QLatin1Char('.');
    } else {
        QSaveFile file(path);
        if (!SafeFile::openForWriting(file))
            message = FileErrors::openForWriting(path);
        else if (!write(&file, images, firstCount, kind) || !SafeFile::commit(file))
            message = FileErrors::writeFailed(path);
    }
    if (errorText && !message.isEmpty())
        *errorText = message;
    return message.isEmpty();
}

namespace {

// Element i of the file goes to the first stack while i < F, and is named and sourced
// by its index in the whole file.
bool readElements(ElementFile::Pair& pair, QDataStream& in, const QByteArray& path, int loadNumber)
{
    const int firstCount = pair.first.elementCount();
    const int total = firstCount + pair.second.elementCount();
    const int cells = pair.first.cellCount();
    for (int i = 0; i < total; ++i) {
        Character& stack = i < firstCount ? pair.first : pair.second;
        const int e = i < firstCount ? i : i - firstCount;
        stack.setElementName(e, "Element " + QByteArray::number(i));
        stack.setElementSource(e, path + '?' + QByteArray::number(i) + '_' +
                                      QByteArray::number(loadNumber));
        stack.setVisible(e, true);
        for (int c = 0; c < cells; ++c) {
            QPoint point;
            in >> point;
            stack.setCellPosition(e, c, point);
            stack.setCellImage(e, c, StreamImage::read(in));
            if (in.status() != QDataStream::Ok)
                return false;
        }
    }
    return true;
}

std::optional<ElementFile::Pair> failure(QString* errorText, const QString& message)
{
    if (errorText)
        *errorText = message;
    return std::nullopt;
}

} // namespace

std::optional<ElementFile::Pair> ElementFile::read(QIODevice* device, const QString& path,
                                                   QString* errorText)
{
    char version = 0;
    if (device->read(&version, 1) == 1 && version != 0)
        return failure(errorText, QStringLiteral("Impossible d'ouvrir ") + path +
                                      QStringLiteral(" car il a été enregistré par une version "
                                                     "plus récente de Zenkora."));
    QDataStream in(device);
    in.setVersion(QDataStream::Qt_4_5);
    QSize size;
    qint8 total = 0;
    qint8 firstCount = 0;
    qint8 kind = 0;
    in >> size >> total >> firstCount >> kind;
    const int loadNumber = ++loadCounter;
    if (in.status() != QDataStream::Ok || total < 0 || !fitsCounts(total, firstCount) ||
        !isReadableSize(size))
        return failure(errorText, damaged(path));
    Pair pair{Character(kind, size), Character(kind, size)};
    pair.first.resetElements(firstCount);
    pair.second.resetElements(total - firstCount);
    if (!readElements(pair, in, path.toLatin1(), loadNumber))
        return failure(errorText, damaged(path));
    return pair;
}

std::optional<ElementFile::Pair> ElementFile::load(const QString& path, QString* errorText)
{
    QFile file(path);
    if (!SafeFile::openForReading(file))
        return failure(errorText, FileErrors::openForReading(path));
    return read(&file, path, errorText);
}

Character ElementFile::merged(const Pair& pair)
{
    Character character = pair.first;
    character.addCharacter(pair.second, false);
    return character;
}

#include "batch/converter.h"

#include "batch/sheetcopier.h"
#include "batch/sheetnames.h"
#include "batch/sheetpalette.h"
#include "formats/filenames.h"
#include "formats/pngwriter.h"
#include "formats/safefile.h"

#include <QDir>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

SheetState Converter::s_sheet;

namespace {

const int SameRows[4] = {0, 1, 2, 3};

// One character of three columns becomes one of four: out is 4 by 4 cells of the
// given size, the block of the source starting at corner.
QImage threeToFour(const QImage& source, QPoint corner, QSize cell, QSize outSize, const int* rows)
{
    QImage out = SheetCopier::whiteCanvas(outSize);
    const int w = cell.width();
    const int h = cell.height();
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            const QPoint from(SheetCopier::ColumnsThreeToFour[column] * w, rows[row] * h);
            SheetCopier::copyBlock(out, source, QPoint(column * w, row * h), corner + from, cell);
        }
    }
    return out;
}

// Rows of full width: four of the given height, and four more below when eight.
void copyRows(QImage& out, const QImage& source, int height, const int* rows, bool eight,
              bool keyed)
{
    for (int block = 0; block < (eight ? 2 : 1); ++block) {
        for (int row = 0; row < 4; ++row) {
            const QPoint to(0, (block * 4 + row) * height);
            const QPoint from(0, (block * 4 + rows[row]) * height);
            const QSize size(source.width(), height);
            if (keyed)
                SheetCopier::copyBlockWithKey(out, source, to, from, size);
            else
                SheetCopier::copyBlock(out, source, to, from, size);
        }
    }
}

} // namespace

Converter::Converter(const QStringList& paths, bool fileMode, uchar direction, QObject* parent,
                     uchar characterCount)
    : QThread(parent), m_paths(paths), m_fileMode(fileMode), m_direction(direction),
      m_characterCount(characterCount)
{}

void Converter::run()
{
    const QString first = m_paths.value(0);
    const QString working = m_fileMode ? directoryOf(first) : first;
    if (working.isEmpty() || !QDir(working).exists()) {
        emit fatalError(QStringLiteral("Impossible d'ouvrir le dossier : ") + first);
        return;
    }
    const QString subFolder = SheetNames::outputFolderName(m_direction);
    QDir(working).mkdir(subFolder);
    const QString outputFolder = working + QLatin1Char('/') + subFolder;

    const bool to2003 = SheetNames::isTo2003(m_direction);
    const QStringList files = SheetNames::sources(m_paths, m_fileMode);
    const uint n = uint(files.size());
    for (uint i = 0; i < n; ++i) {
        // A stop is heard between two files only, so that every file written is whole.
        if (i > 0 && isInterruptionRequested()) {
            m_stopped = true;
            break;
        }
        const uint share = to2003 ? 80 : 100;
        emit changeProgress(i * share / n, QStringLiteral("Conversion de : ") + files.at(i));
        convertFile(files.at(i), m_direction);
    }
    // The sheets begun are finished even after a stop: the engine reads them only with
    // their colour table.
    if (to2003) {
        const uint m = uint(m_depthQueue.size());
        for (uint j = 0; j < m; ++j) {
            emit changeProgress(j * 20 / m + 80,
                                QStringLiteral("Changement de la profondeur des couleurs..."));
            reduceColourDepth(m_depthQueue.at(j));
        }
    }
    emit finishThread(m_failedFiles, outputFolder);
    convertFile(QString(), SheetNames::Reset);
}

bool Converter::convertFile(const QString& path, uchar direction)
{
    if (direction == SheetNames::Reset) {
        s_sheet.reset();
        return true;
    }
    const QImage image = SafeFile::readImage(path);
    if (image.isNull()) {
        m_failedFiles.append(path);
        return false;
    }
    const QImage source = SheetCopier::normalised(image);
    // The sheets towards 2003 are scaled, and scaling picks its pixels by the format
    // the file was read in: they get the image as read.
    switch (direction) {
    case SheetNames::From2003ToXP:
    case SheetNames::From2003ToVX:
        convertFrom2003(path, source, direction);
        break;
    case SheetNames::FromXPTo2003:
        convertXPTo2003(path, image);
        break;
    case SheetNames::FromXPToVX:
    case SheetNames::FromVXToXP:
        convertToXPOrVX(path, source, direction);
        break;
    case SheetNames::FromVXTo2003:
        if (SheetNames::isSingleVX(path, m_characterCount))
            convertSingleVXTo2003(path, image);
        else
            convertWholeVXTo2003(path, image);
        break;
    default:
        break;
    }
    return true;
}

void Converter::convertFrom2003(const QString& path, const QImage& source, uchar direction)
{
    // A charset 72 wide holds one character; any other width a sheet of eight.
    const bool single = source.width() == 72;
    if (direction == SheetNames::From2003ToXP) {
        if (single) {
            const QImage out = threeToFour(source, QPoint(0, 0), QSize(24, 32), QSize(96, 128),
                                           SheetCopier::RowsFrom2003);
            write(out, SheetNames::singleOutput(path, direction));
        } else {
            convertEightToXP(path, source, direction);
        }
        return;
    }
    QImage out = SheetCopier::whiteCanvas(source.size());
    if (single) {
        copyRows(out, source, 32, SheetCopier::RowsFrom2003, false, false);
        write(out, SheetNames::singleOutput(path, direction));
    } else {
        copyRows(out, source, source.height() / 8, SheetCopier::RowsFrom2003, true, false);
        write(out, SheetNames::unmarkedOutput(path, direction));
    }
}

void Converter::convertToXPOrVX(const QString& path, const QImage& source, uchar direction)
{
    if (direction == SheetNames::FromVXToXP) {
        if (!SheetNames::isSingleVX(path, m_characterCount)) {
            convertEightToXP(path, source, direction);
            return;
        }
        const QSize cell(source.width() / 3, source.height() / 4);
        const QImage out = threeToFour(source, QPoint(0, 0), cell,
                                       QSize(4 * cell.width(), 4 * cell.height()), SameRows);
        write(out, SheetNames::singleOutput(path, direction));
        return;
    }
    const int w = source.width() / 4;
    const int h = source.height() / 4;
    QImage out = SheetCopier::whiteCanvas(QSize(3 * w, source.height()));
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 4; ++row) {
            const QPoint from(SheetCopier::ColumnsFourToThree[column] * w, row * h);
            SheetCopier::copyBlock(out, source, QPoint(column * w, row * h), from, QSize(w, h));
        }
    }
    write(out, SheetNames::singleOutput(path, direction));
}

void Converter::convertEightToXP(const QString& path, const QImage& source, uchar direction)
{
    const QSize cell(source.width() / 12, source.height() / 8);
    const QSize outSize(source.width() / 3, source.height() / 2);
    const int* rows = direction == SheetNames::From2003ToXP ? SheetCopier::RowsFrom2003 : SameRows;
    const QStringList names = SheetNames::eightOutputs(path, direction);
    for (int k = 0; k < 8; ++k) {
        const QPoint corner((k & 3) * 3 * cell.width(), k <= 3 ? 0 : 4 * cell.height());
        write(threeToFour(source, corner, cell, outSize, rows), names.at(k));
    }
}

void Converter::convertXPTo2003(const QString& path, const QImage& source)
{
    const QImage scaled = SheetCopier::scaledExactly(source, QSize(96, 128));
    const int w = scaled.width() / 4;
    const int h = scaled.height() / 4;
    s_sheet.restartUnlessGoingOn(SheetNames::FromXPTo2003);
    const QPoint corner((s_sheet.slot & 3) * 3 * w, s_sheet.slot <= 3 ? 0 : scaled.height());
    QImage sheet = sheetToFill();
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 4; ++row) {
            const QPoint from(SheetCopier::ColumnsFourToThree[column] * w,
                              SheetCopier::RowsTo2003[row] * h);
            SheetCopier::copyBlockWithKey(sheet, scaled, corner + QPoint(column * w, row * h), from,
                                          QSize(w, h));
        }
    }
    saveSheet(sheet, path, SheetNames::FromXPTo2003);
}

void Converter::convertSingleVXTo2003(const QString& path, const QImage& source)
{
    const QImage scaled = SheetCopier::scaledExactly(source, QSize(72, 128));
    const int w = scaled.width() / 3;
    const int h = scaled.height() / 4;
    // The corner comes from the slot before the restart: a ninth character lands at
    // the lower left of a new sheet, and the tenth goes on at the second block.
    const QPoint corner((s_sheet.slot & 3) * 3 * w, s_sheet.slot <= 3 ? 0 : scaled.height());
    s_sheet.restartUnlessGoingOn(SheetNames::FromVXTo2003);
    QImage sheet = sheetToFill();
    for (int row = 0; row < 4; ++row) {
        SheetCopier::copyBlockWithKey(sheet, scaled, corner + QPoint(0, row * h),
                                      QPoint(0, SheetCopier::RowsTo2003[row] * h), QSize(3 * w, h));
    }
    saveSheet(sheet, path, SheetNames::FromVXTo2003);
}

void Converter::convertWholeVXTo2003(const QString& path, const QImage& source)
{
    const QImage scaled = SheetCopier::scaledExactly(source, QSize(288, 256));
    s_sheet.restartUnlessGoingOn(SheetNames::FromVXTo2003);
    QImage sheet = SheetCopier::keySheet();
    copyRows(sheet, scaled, scaled.height() / 8, SheetCopier::RowsTo2003, true, true);
    // A whole sheet stands alone: the sheet of single characters under way goes on.
    const QString name = SheetNames::sheetOutput(path);
    write(sheet, name);
    m_depthQueue.append(name);
}

QImage Converter::sheetToFill() const
{
    if (s_sheet.startsNewSheet())
        return SheetCopier::keySheet();
    const QImage sheet = SafeFile::readImage(s_sheet.lastSheetPath);
    // A sheet that can't be read back stays null, and the copies pass it by.
    return sheet.isNull() ? sheet : sheet.convertToFormat(QImage::Format_RGB32);
}

void Converter::saveSheet(const QImage& sheet, const QString& source, uchar direction)
{
    if (s_sheet.startsNewSheet()) {
        s_sheet.lastSheetPath = SheetNames::sheetOutput(source);
        m_depthQueue.append(s_sheet.lastSheetPath);
    }
    write(sheet, s_sheet.lastSheetPath);
    s_sheet.lastDirection = direction;
    ++s_sheet.slot;
}

void Converter::write(const QImage& image, const QString& path)
{
    if (!PngWriter::save(image, path))
        noteFailedWrite(path);
}

// A sheet towards 2003 that can't be written fails again with each of its characters:
// it is listed once.
void Converter::noteFailedWrite(const QString& path)
{
    if (!m_failedWrites.contains(path))
        m_failedWrites.append(path);
}

void Converter::reduceColourDepth(const QString& path)
{
    const QImage image = SafeFile::readImage(path);
    // A sheet that could not be written is listed already.
    if (image.isNull())
        return;
    const QImage indexed = SheetPalette::indexed(image);
    const QByteArray format = QFileInfo(path).suffix().toLower().toLatin1();
    if (indexed.isNull() || format == "png") {
        write(indexed, path);
        return;
    }
    // The format follows the name. One the toolkit cannot write (GIF, in Qt 6) leaves
    // the sheet's PNG data in place rather than an empty file.
    if (!QImageWriter::supportedImageFormats().contains(format))
        return;
    QSaveFile file(path);
    if (!SafeFile::openForWriting(file)) {
        noteFailedWrite(path);
        return;
    }
    QImageWriter writer(&file, format);
    if (!writer.write(indexed) || !SafeFile::commit(file))
        noteFailedWrite(path);
}

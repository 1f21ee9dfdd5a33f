#pragma once

#include "batch/sheetstate.h"

#include <QImage>
#include <QStringList>
#include <QThread>

// The worker that rewrites character sheets from one RPG Maker engine's layout into
// another's, writing PNG files into a sub-folder beside the sources. Sheets towards
// RPG Maker 2003 are filled one character after the other across files, and across
// runs that don't reach their end, through one sheet state for the whole process: only
// one conversion may run at a time. Its owner deletes it only after QThread::finished
// (Qt 6 aborts on deleting a running thread); the run goes on after finishThread.
// requestInterruption() is heard between two files: the files not yet begun are
// skipped, and the sheets begun still get their colour table.
class Converter : public QThread
{
    Q_OBJECT

public:
    Converter(const QStringList& paths, bool fileMode, uchar direction, QObject* parent,
              uchar characterCount);

    // The thread body; the tool calls it directly on its own thread.
    void run() override;

    // Converts one file. Direction 6 clears the sheet state instead.
    bool convertFile(const QString& path, uchar direction);

    const QStringList& failedFiles() const { return m_failedFiles; }
    // The files that could not be written, each once; complete when finishThread comes.
    const QStringList& failedWrites() const { return m_failedWrites; }
    // Whether a stop was asked for while files remained, and they were skipped.
    bool stopped() const { return m_stopped; }
    static const SheetState& sheetState() { return s_sheet; }

signals:
    void changeProgress(uint value, QString info);
    void finishThread(QStringList info, QString infoDir);
    void fatalError(QString info);

private:
    void convertFrom2003(const QString& path, const QImage& source, uchar direction);
    void convertToXPOrVX(const QString& path, const QImage& source, uchar direction);
    void convertEightToXP(const QString& path, const QImage& source, uchar direction);
    void convertXPTo2003(const QString& path, const QImage& source);
    void convertSingleVXTo2003(const QString& path, const QImage& source);
    void convertWholeVXTo2003(const QString& path, const QImage& source);
    // Loads the sheet under way, or starts a new one, for the block of sheetSlot.
    QImage sheetToFill() const;
    // Saves a sheet towards 2003 and records it in the sheet state.
    void saveSheet(const QImage& sheet, const QString& source, uchar direction);
    void reduceColourDepth(const QString& path);
    void write(const QImage& image, const QString& path);
    void noteFailedWrite(const QString& path);

    QStringList m_paths;
    bool m_fileMode;
    uchar m_direction;
    uchar m_characterCount;
    QStringList m_depthQueue;
    QStringList m_failedFiles;
    QStringList m_failedWrites;
    bool m_stopped = false;

    static SheetState s_sheet;
};

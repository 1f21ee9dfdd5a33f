#pragma once

#include <QStringList>
#include <QThread>

// The worker that stacks tilesets one below the other, in the order of the list, into
// one image 256 pixels wide, the width of an RPG Maker XP tileset, and writes it as a
// PNG. Files that can't be opened are listed and passed over. Its owner deletes it only
// after QThread::finished: Qt 6 aborts on deleting a running thread. requestInterruption()
// is heard between two files and last before the saving: a stopped merge writes nothing.
class Fusioner : public QThread
{
    Q_OBJECT

public:
    static constexpr int TilesetWidth = 256;

    Fusioner(const QStringList& files, const QString& targetPath, QObject* parent);

    // The thread body; the tool calls it directly on its own thread.
    void run() override;

    const QStringList& failedFiles() const { return m_failedFiles; }
    // The target, when it could not be written; complete when finishThread comes.
    const QStringList& failedWrites() const { return m_failedWrites; }
    bool stopped() const { return m_stopped; }

signals:
    void changeProgress(uint value, QString info);
    void finishThread(QStringList info);

private:
    bool stopAsked();

    QStringList m_files;
    QStringList m_failedFiles;
    QStringList m_failedWrites;
    QString m_targetPath;
    bool m_stopped = false;
};

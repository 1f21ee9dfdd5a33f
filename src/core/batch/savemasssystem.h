#pragma once

#include "batch/masssaveplan.h"

#include <QList>
#include <QString>
#include <QThread>

class Character;

// The worker that saves one character many times over: for each chosen element, or
// group of elements, it turns the element's hue step by step round the colour circle
// and writes the composed sheet as a PNG at each step. It works on a private copy of
// the character, held by its caller, and leaves it as it found it. Its owner deletes it
// only after QThread::finished, not on finish(): Qt 6 aborts on deleting a running thread.
// requestInterruption() is heard between two files; the character is put back all the
// same and finish() comes.
class SaveMassSystem : public QThread
{
    Q_OBJECT

public:
    // Grouped form: simple elements and groups are found by the numbers of their sources.
    SaveMassSystem(Character* character, const QList<int>& simpleElements,
                   const QList<int>& groupElements, const QString& folder, const QString& prefix,
                   uint hueStep, bool redefine, QObject* parent);
    // Plain form: element indexes.
    SaveMassSystem(Character* character, const QList<int>& elements, const QString& folder,
                   const QString& prefix, uint hueStep, bool redefine, QObject* parent);

    // The thread body; the tool calls it directly on its own thread.
    void run() override;

    // The files the run will write, in order (a name may come twice).
    QStringList plannedFiles() const;
    // The files that could not be written, each once; complete when finish() comes.
    const QStringList& failedWrites() const { return m_failedWrites; }
    // Whether a stop was asked for while files remained, and they were skipped.
    bool stopped() const { return m_stopped; }

signals:
    void changeProgess(uchar percent, QString info);
    void finish();

private:
    QList<MassSavePlan::Entry> entries() const;
    void saveVariations(int number, int& done, int total);

    Character* m_character;
    bool m_redefine;
    bool m_grouped;
    QList<int> m_simpleElements;
    QList<int> m_groupElements;
    uint m_hueStep;
    QString m_folder;
    QString m_prefix;
    QStringList m_failedWrites;
    bool m_stopped = false;
};

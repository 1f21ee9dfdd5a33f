#include "batch/savemasssystem.h"

#include "document/character.h"
#include "formats/pngwriter.h"
#include "imaging/hslshift.h"

#include <QDir>

// A folder that can't be made shows later only as saves that fail.
static void makeFolder(const QString& folder)
{
    if (!QDir(folder).exists())
        QDir().mkpath(folder);
}

SaveMassSystem::SaveMassSystem(Character* character, const QList<int>& simpleElements,
                               const QList<int>& groupElements, const QString& folder,
                               const QString& prefix, uint hueStep, bool redefine, QObject* parent)
    : QThread(parent), m_character(character), m_redefine(redefine), m_grouped(true),
      m_simpleElements(simpleElements), m_groupElements(groupElements), m_hueStep(hueStep),
      m_folder(folder), m_prefix(prefix)
{
    makeFolder(folder);
}

SaveMassSystem::SaveMassSystem(Character* character, const QList<int>& elements,
                               const QString& folder, const QString& prefix, uint hueStep,
                               bool redefine, QObject* parent)
    : QThread(parent), m_character(character), m_redefine(redefine), m_grouped(false),
      m_simpleElements(elements), m_hueStep(hueStep), m_folder(folder), m_prefix(prefix)
{
    makeFolder(folder);
}

QList<MassSavePlan::Entry> SaveMassSystem::entries() const
{
    return m_grouped ? MassSavePlan::groupedEntries(*m_character, m_simpleElements, m_groupElements)
                     : MassSavePlan::plainEntries(m_simpleElements);
}

QStringList SaveMassSystem::plannedFiles() const
{
    QStringList files;
    for (const QString& name : MassSavePlan::fileNames(entries(), m_prefix, m_hueStep))
        files.append(m_folder + QLatin1Char('/') + name);
    return files;
}

void SaveMassSystem::run()
{
    // The whole character is put back at the end, selections and snapshot included;
    // the copy shares its images, so this costs no pixels.
    const Character original = *m_character;
    const QList<MassSavePlan::Entry> walk = entries();
    const int total = MassSavePlan::variationCount(m_hueStep) * int(walk.size());
    int done = 0;

    // Every cell of the chosen elements turns.
    m_character->clearCellSelection();
    m_character->beginPreview();
    for (const MassSavePlan::Entry& entry : walk) {
        if (m_stopped)
            break;
        if (entry.setsSelection)
            m_character->setSelectedElements(entry.elements);
        saveVariations(entry.number, done, total);
        m_character->cancelPreview();
    }
    *m_character = original;
    if (!m_stopped)
        emit changeProgess(100, total == 1 ? QStringLiteral("Enregistrement fini")
                                           : QStringLiteral("Enregistrements finis"));
    emit finish();
}

void SaveMassSystem::saveVariations(int number, int& done, int total)
{
    const int variations = MassSavePlan::variationCount(m_hueStep);
    for (int v = 0; v < variations; ++v) {
        // A stop is heard between two files only, so that every file written is whole.
        if (done > 0 && isInterruptionRequested()) {
            m_stopped = true;
            return;
        }
        const QString name = MassSavePlan::fileName(m_prefix, number, uint(v) * m_hueStep);
        const int percent = int(double(done) / total * 100);
        emit changeProgess(uchar(percent), QStringLiteral("Enregistrement de ") + name);
        // Each file is one shift from the untouched picture, read from the snapshot,
        // so that the steps never add up.
        HslShift shift;
        shift.hue = float(v * m_hueStep);
        m_character->shiftCharacterHsl(shift, m_redefine, true);
        const QString path = m_folder + QLatin1Char('/') + name;
        if (!PngWriter::save(m_character->compose(), path) && !m_failedWrites.contains(path))
            m_failedWrites.append(path);
        ++done;
    }
}

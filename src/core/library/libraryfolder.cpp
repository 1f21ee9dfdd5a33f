#include "library/libraryfolder.h"

#include "document/character.h"
#include "formats/filenames.h"

#include <QDir>

namespace {

const QString labelHead = QStringLiteral("Dossier actuel : ");

QStringList elementFilters()
{
    return {QStringLiteral("*.png"), QStringLiteral("*.elzk")};
}

} // namespace

QString LibraryFolder::ofKind(int kind)
{
    return kind == Character::VX ? QStringLiteral("elements/VX/") : QStringLiteral("elements/XP/");
}

void LibraryFolder::up()
{
    QString dir = m_currentDir;
    if (dir.endsWith(QLatin1Char('/')) || dir.endsWith(QLatin1Char('\\')))
        dir.chop(1);
    const qsizetype separator =
        qMax(dir.lastIndexOf(QLatin1Char('/')), dir.lastIndexOf(QLatin1Char('\\')));
    dir = dir.left(separator + 1);
    m_currentDir = dir.size() < root().size() ? root() : dir;
}

QString LibraryFolder::labelText() const
{
    return labelHead + m_currentDir.mid(root().size());
}

QString LibraryFolder::shortLabelText() const
{
    QString last = m_currentDir;
    last.chop(1);
    last = fileNameOf(last);
    return labelHead + m_currentDir.mid(root().size(), 3) + QStringLiteral(".../") + last +
           QLatin1Char('/');
}

QFileInfoList LibraryFolder::entries(const QString& folder)
{
    return QDir(folder).entryInfoList(elementFilters(),
                                      QDir::Files | QDir::AllDirs | QDir::NoDotAndDotDot,
                                      QDir::Name | QDir::DirsFirst | QDir::IgnoreCase);
}

QFileInfoList LibraryFolder::files(const QString& folder)
{
    return QDir(folder).entryInfoList(elementFilters(), QDir::Files, QDir::Name | QDir::IgnoreCase);
}

bool LibraryFolder::isValidName(const QString& name)
{
    return !name.trimmed().isEmpty() && isValidFileName(name);
}

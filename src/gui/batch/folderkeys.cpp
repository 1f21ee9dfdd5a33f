#include "batch/folderkeys.h"

#include "settings/settings.h"

#include <QDir>

QString FolderKeys::read(const QString& key)
{
    Settings settings;
    QString folder = QDir::homePath();
    settings.get(key, folder);
    return folder;
}

void FolderKeys::store(const QString& key, const QString& folder)
{
    if (folder.contains(QLatin1Char('?')))
        return;
    Settings settings;
    settings.set(QStringLiteral("Path"), key, folder);
}

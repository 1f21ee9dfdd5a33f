#include "settings/datafolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QString DataFolder::resolve(const QString& name, const QString& working, const QString& application)
{
    const QString inWorking = QDir(working).filePath(name);
    const QString folder =
        QFileInfo(inWorking).isDir() ? inWorking : QDir(application).filePath(name);
    return folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
}

QString DataFolder::locate(const QString& name)
{
    return resolve(name, QDir::currentPath(), QCoreApplication::applicationDirPath());
}

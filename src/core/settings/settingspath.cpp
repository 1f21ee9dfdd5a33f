#include "settings/settingspath.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

QString fileIn(const QString& folder)
{
    return QDir(folder).filePath(SettingsPath::fileName());
}

} // namespace

QString SettingsPath::resolve(const Folders& folders, Use use)
{
    const QString working = fileIn(folders.working);
    if (QFileInfo::exists(working))
        return working;
    const QString application = fileIn(folders.application);
    if (folders.applicationWritable)
        return application;
    // A read-only application folder may still hold the settings the program was
    // installed with: they are read until the user's own copy has been written.
    const QString config = fileIn(folders.config);
    if (use == Reading && !QFileInfo::exists(config) && QFileInfo::exists(application))
        return application;
    return config;
}

SettingsPath::Folders SettingsPath::current()
{
    Folders folders;
    folders.working = QDir::currentPath();
    folders.application = QCoreApplication::applicationDirPath();
    folders.config = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    folders.applicationWritable = QFileInfo(folders.application).isWritable();
    return folders;
}

#include "settings/recentfiles.h"

#include "settings/settings.h"

static QStringList stored(Settings& settings)
{
    QString joined;
    settings.get(QStringLiteral("recentFiles"), joined);
    return joined.split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

void RecentFiles::add(const QString& path)
{
    Settings settings;
    QStringList list = stored(settings);
    QString entry = path;
    entry.replace(QLatin1Char('\\'), QLatin1Char('/'));
    list.removeAll(entry);
    while (list.size() >= Limit)
        list.removeFirst();
    list.append(entry);
    settings.set(QStringLiteral("Path"), QStringLiteral("recentFiles"), list.join(QLatin1Char('|')));
}

QStringList RecentFiles::newestFirst()
{
    Settings settings;
    const QStringList list = stored(settings);
    QStringList result;
    for (qsizetype i = list.size() - 1; i >= 0 && result.size() < Limit; --i)
        result.append(list.at(i));
    return result;
}

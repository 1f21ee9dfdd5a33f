#include "recovery/recoveryentry.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

QByteArray RecoveryEntry::toJson() const
{
    QJsonObject object;
    object.insert(u"copy", QFileInfo(copyPath).fileName());
    object.insert(u"original", originalPath);
    object.insert(u"title", title);
    object.insert(u"kind", kind);
    object.insert(u"copied", copied.toUTC().toString(Qt::ISODateWithMs));
    object.insert(u"pid", pid);
    return QJsonDocument(object).toJson();
}

bool RecoveryEntry::fromJson(const QByteArray& json, const QString& indexPath, RecoveryEntry* entry)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return false;
    const QJsonObject object = document.object();
    const QString copy = object.value(u"copy").toString();
    // Only a plain file name: an index must not send the program elsewhere.
    if (copy.isEmpty() || copy.contains(u'/') || copy.contains(u'\\') || copy.startsWith(u'.'))
        return false;
    entry->indexPath = indexPath;
    entry->copyPath = QFileInfo(indexPath).dir().filePath(copy);
    entry->originalPath = object.value(u"original").toString();
    entry->title = object.value(u"title").toString();
    entry->kind = object.value(u"kind").toInt();
    entry->copied = QDateTime::fromString(object.value(u"copied").toString(), Qt::ISODateWithMs);
    entry->pid = qint64(object.value(u"pid").toDouble());
    return entry->pid > 0;
}

#include "settings/settings.h"

#include "settings/settingspath.h"

#include <QDir>
#include <QFileInfo>

#include <cmath>

Settings::Settings()
{
    // A missing or unreadable file is no failure: every getter gives its default.
    load(SettingsPath::resolve(SettingsPath::current(), SettingsPath::Reading));
}

Settings::Settings(const QString& fileName) : m_fileName(fileName)
{
    load(fileName);
}

Settings::~Settings()
{
    if (m_dirty)
        writeBack();
}

bool Settings::save()
{
    if (!m_dirty)
        return true;
    if (!writeBack())
        return false;
    m_dirty = false;
    return true;
}

bool Settings::writeBack()
{
    if (!m_fileName.isEmpty())
        return IniFile::save(m_fileName);
    const QString path = SettingsPath::resolve(SettingsPath::current(), SettingsPath::Writing);
    // The configuration folder of an installed program is made on its first write.
    QDir().mkpath(QFileInfo(path).absolutePath());
    return IniFile::save(path);
}

// The value of a known key, a string being read as the loader would read its text,
// so that any stored value reads the same as it would after a restart.
QVariant Settings::readableValue(const QString& key)
{
    const quint32 id = find(key);
    if (!isFound())
        return {};
    const QVariant value = getValue(id);
    return value.typeId() == QMetaType::QString ? parseValue(value.toString()) : value;
}

bool Settings::get(const QString& key, QString& out)
{
    const quint32 id = find(key);
    if (!isFound())
        return false;
    const QVariant value = getValue(id);
    if (!value.isValid())
        return false;
    // A path made only of digits comes back from the file as a number: its text is
    // still the path.
    out = value.typeId() == QMetaType::QString ? value.toString() : formatValue(value);
    return true;
}

bool Settings::get(const QString& key, bool& out)
{
    const QVariant value = readableValue(key);
    switch (value.typeId()) {
    case QMetaType::Bool:
        out = value.toBool();
        return true;
    case QMetaType::Int:
        out = value.toInt() != 0;
        return true;
    case QMetaType::Double:
        out = value.toDouble() != 0.0;
        return true;
    default:
        return false;
    }
}

// Integers are what colours and delays are stored as, and the file turns an integer 0
// or 1 into a boolean: read back, it is 0 or 1 again. A double is truncated, as every
// conversion of the program to an integer is.
bool Settings::get(const QString& key, qint32& out)
{
    const QVariant value = readableValue(key);
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
        out = value.toInt();
        return true;
    case QMetaType::Double: {
        const double d = std::trunc(value.toDouble());
        if (!(d >= -2147483648.0 && d <= 2147483647.0))
            return false;
        out = qint32(d);
        return true;
    }
    default:
        return false;
    }
}

bool Settings::get(const QString& key, double& out)
{
    const QVariant value = readableValue(key);
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::Double:
        out = value.toDouble();
        return true;
    default:
        return false;
    }
}

quint32 Settings::sectionFor(const QString& section)
{
    const quint32 id = find(section);
    return isFound() ? id : addSection(section, 0);
}

void Settings::set(const QString& section, const QString& key, const QString& value)
{
    const quint32 sectionId = sectionFor(section);
    const quint32 keyId = find(key);
    if (isFound())
        setString(keyId, value);
    else
        addString(key, value, sectionId);
    m_dirty = true;
}

// Without this overload a literal would be taken for a boolean.
void Settings::set(const QString& section, const QString& key, const char* value)
{
    set(section, key, QString::fromUtf8(value));
}

void Settings::set(const QString& section, const QString& key, bool value)
{
    const quint32 sectionId = sectionFor(section);
    const quint32 keyId = find(key);
    if (isFound())
        setBool(keyId, value);
    else
        addBool(key, value, sectionId);
    m_dirty = true;
}

void Settings::set(const QString& section, const QString& key, qint32 value)
{
    const quint32 sectionId = sectionFor(section);
    const quint32 keyId = find(key);
    if (isFound()) {
        if (!setInt(keyId, value))
            retypeBool(keyId, value);
    } else
        addInt(key, value, sectionId);
    m_dirty = true;
}

void Settings::set(const QString& section, const QString& key, double value)
{
    const quint32 sectionId = sectionFor(section);
    const quint32 keyId = find(key);
    if (isFound()) {
        if (!setDouble(keyId, value))
            retypeBool(keyId, value);
    } else
        addDouble(key, value, sectionId);
    m_dirty = true;
}

#pragma once

#include "settings/inifile.h"

#include <QString>

// The program's preferences, read from "zenkora.ini" when the object is made and
// written back when it dies, if something was set. Code that needs a preference
// makes a short-lived object on the stack: two objects alive at once each write
// their own image of the file, and the last one wins.
class Settings : public IniFile
{
public:
    // The file found by SettingsPath, looked up again at every write.
    Settings();
    // A file at a fixed place, for tools and tests.
    explicit Settings(const QString& fileName);
    ~Settings();
    Q_DISABLE_COPY_MOVE(Settings)

    // Each getter leaves out untouched and returns false when the key is unknown or
    // its value cannot be read as out's type, so the caller's value is the default.
    // A value stored under another type is converted rather than refused: the file
    // gives no types, so a colour of 1 comes back as a boolean and must still read as
    // the integer 1.
    bool get(const QString& key, QString& out);
    bool get(const QString& key, bool& out);
    bool get(const QString& key, qint32& out);
    bool get(const QString& key, double& out);

    // A known key keeps its value's type and its section, whatever section is named;
    // the section is still made if it does not exist. A value of another type than the
    // stored one is not stored, yet the object counts as changed; but a number set on
    // a key that reads as a boolean (a colour stored as 0 or 1) becomes that number.
    void set(const QString& section, const QString& key, const QString& value);
    void set(const QString& section, const QString& key, const char* value);
    void set(const QString& section, const QString& key, bool value);
    void set(const QString& section, const QString& key, qint32 value);
    void set(const QString& section, const QString& key, double value);

    // Writes the file if something was set. A failed write keeps the object dirty, so
    // its destructor tries again; the reason is in lastError().
    bool save();
    using IniFile::save;
    bool isDirty() const { return m_dirty; }

private:
    quint32 sectionFor(const QString& section);
    QVariant readableValue(const QString& key);
    bool writeBack();

    QString m_fileName; // empty when the file is found by SettingsPath
    bool m_dirty = false;
};

#pragma once

#include "settings/inisection.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <utility>

class QTextStream;

// The settings file "zenkora.ini": a tree of sections written with indentation,
// values whose type is inferred from their text, and one flat name space shared by
// section names and key names. Ids of sections start at 1 and ids of keys at 0; both
// only grow, so an id stays valid (as a name) after its section is removed.
class IniFile
{
public:
    // Replaces the whole content with that of the file, read as Latin-1. On failure
    // lastError() says why and the content stays as it was.
    bool load(const QString& fileName);
    // Writes the whole content through a save file, as Latin-1 (characters beyond it
    // become "?"). On failure lastError() says why and the content is unchanged.
    bool save(const QString& fileName);

    // Section names are searched before key names, so a key named like a section is
    // out of reach: the program keeps the two sets of names apart.
    quint32 find(const QString& name);
    bool isFound() const { return m_found; }

    // A parent that does not exist makes the new section a root.
    quint32 addSection(const QString& name, quint32 parentId);
    // A value for a section that does not exist goes to the first section, which is
    // made ("Ensemble 1") when there is none. Every call gives a new key id, even for
    // a name already present.
    quint32 addString(const QString& key, const QString& value, quint32 sectionId);
    quint32 addDouble(const QString& key, double value, quint32 sectionId);
    quint32 addInt(const QString& key, qint32 value, quint32 sectionId);
    quint32 addBool(const QString& key, bool value, quint32 sectionId);

    // Overwrite the first value of that key that has the setter's type, in any section;
    // false when there is none: a value never changes type.
    bool setString(quint32 keyId, const QString& value);
    bool setDouble(quint32 keyId, double value);
    bool setInt(quint32 keyId, qint32 value);
    bool setBool(quint32 keyId, bool value);

    // Turns the first boolean of that key into an integer or a double (value's type)
    // holding value; false when the key has no boolean. A number written as 0 or 1
    // reads back as a boolean, and would otherwise refuse every later number.
    bool retypeBool(quint32 keyId, const QVariant& value);

    // The first value of that key in any section, whatever its type; an invalid
    // variant when no section holds one.
    QVariant getValue(quint32 keyId) const;
    // getValue() as a boolean: a number is true when it is not zero, a string is read
    // as the loader would read it, anything else is false.
    bool getBool(quint32 keyId) const;

    // Removes the section with all its descendants and their values.
    bool removeSection(quint32 id);
    QList<IniSection> sectionsOf(quint32 parentId) const;
    const IniSection* sectionById(quint32 id) const;

    const QList<IniSection>& sections() const { return m_sections; }
    QString sectionName(quint32 id) const { return m_sectionNames.value(qsizetype(id) - 1); }
    QString keyName(quint32 keyId) const { return m_keyNames.value(qsizetype(keyId)); }
    quint32 keyCount() const { return m_keyCount; }
    quint32 sectionCount() const { return m_sectionCount; }
    const QString& lastError() const { return m_lastError; }

    // The loader's reading of a value's text: "0" and "1" are booleans, a text made of
    // digits, "." and "-" is a number (a double if it holds a "."), anything else is a
    // string. An empty text gives an invalid variant: such a key is not kept.
    static QVariant parseValue(const QString& text);
    // A value's text as the file holds it: integers in decimal, doubles with 6
    // significant digits, booleans as 0 or 1.
    static QString formatValue(const QVariant& value);

private:
    struct OpenSection
    {
        quint32 id;
        int indentation;
    };

    void clear();
    bool parseLine(const QString& line, QList<OpenSection>& open);
    void parseSectionLine(const QString& line, int indentation, QList<OpenSection>& open);
    void parseKeyLine(const QString& line, int indentation);
    void addValue(const QString& key, const QVariant& value, quint32 sectionId);
    void writeSections(QTextStream& out, quint32 parentId, int depth) const;
    QVariant valueOf(const IniSection& section, const IniEntry& entry) const;

    qsizetype sectionIndex(quint32 id) const;
    IniSection& targetSection(quint32 sectionId);
    quint32 appendEntry(IniSection& section, const QString& key, quint16 type, qsizetype index);
    // Section and entry index of the first entry of keyId with that type (any type
    // when type is negative); the section index is -1 when there is none.
    std::pair<qsizetype, qsizetype> locate(quint32 keyId, int type) const;

    QList<IniSection> m_sections;
    QList<QString> m_sectionNames;
    QList<QString> m_keyNames;
    quint32 m_keyCount = 0;
    // The last section id given; while a file is read, the section that receives keys.
    quint32 m_sectionCount = 0;
    QString m_lastError;
    bool m_found = false;
};

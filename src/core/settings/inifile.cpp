#include "settings/inifile.h"

#include "formats/safefile.h"

#include <QFile>
#include <QSaveFile>
#include <QTextStream>

namespace {

bool isNumberText(const QString& text)
{
    for (const QChar c : text) {
        if (!(c >= u'0' && c <= u'9') && c != u'.' && c != u'-')
            return false;
    }
    return true;
}

int indentationOf(const QString& line)
{
    int n = 0;
    while (n < line.size() && line.at(n) == u' ')
        ++n;
    return n;
}

} // namespace

bool IniFile::load(const QString& fileName)
{
    // Text mode drops the carriage returns of a file edited on Windows.
    QFile file(fileName);
    if (!SafeFile::openForReading(file, QIODevice::ReadOnly | QIODevice::Text)) {
        m_lastError = QStringLiteral("Impossible d'ouvrir le fichier : ") + fileName;
        return false;
    }
    const QByteArray bytes = file.readAll();
    clear();
    QList<OpenSection> open;
    qsizetype start = 0;
    // A last line without its "\n" is never read: a file cut short during a write
    // by an older version loses at most that line.
    for (qsizetype end = bytes.indexOf('\n'); end >= 0; end = bytes.indexOf('\n', start)) {
        if (!parseLine(QString::fromLatin1(bytes.mid(start, end - start)), open))
            break;
        start = end + 1;
    }
    return true;
}

void IniFile::clear()
{
    m_sections.clear();
    m_sectionNames.clear();
    m_keyNames.clear();
    m_keyCount = 0;
    m_sectionCount = 0;
}

// False when the line is blank: the content ends there, and what follows is ignored.
bool IniFile::parseLine(const QString& line, QList<OpenSection>& open)
{
    const int indentation = indentationOf(line);
    if (indentation == line.size())
        return false;
    if (line.at(indentation) == u'[')
        parseSectionLine(line, indentation, open);
    else
        parseKeyLine(line, indentation);
    return true;
}

// The parent is the newest section one blank less deep, wherever it stands: sections
// are never closed, so a deep section after a root still finds an older parent, and a
// jump of more than one blank gives a root.
void IniFile::parseSectionLine(const QString& line, int indentation, QList<OpenSection>& open)
{
    const qsizetype close = line.indexOf(u']', indentation + 1);
    const QString name = line.mid(indentation + 1, close < 0 ? -1 : close - indentation - 1);
    quint32 parent = 0;
    for (qsizetype i = open.size() - 1; i >= 0; --i) {
        if (open.at(i).indentation == indentation - 1) {
            parent = open.at(i).id;
            break;
        }
    }
    open.append({addSection(name, parent), indentation});
}

// A key goes to the section read last, whatever its indentation. The "=" is searched
// from the key's second character, so a key may begin with one.
void IniFile::parseKeyLine(const QString& line, int indentation)
{
    const qsizetype equals = line.indexOf(u'=', indentation + 1);
    if (equals < 0)
        return; // not a key line: skipped rather than guessed at
    const QVariant value = parseValue(line.mid(equals + 1));
    if (value.isValid())
        addValue(line.mid(indentation, equals - indentation), value, m_sectionCount);
}

QVariant IniFile::parseValue(const QString& text)
{
    if (text.isEmpty())
        return {};
    if (text == QLatin1String("0") || text == QLatin1String("1"))
        return text == QLatin1String("1");
    if (!isNumberText(text))
        return text;
    // Texts such as "-" or "1.2.3" do not read as numbers and count as zero.
    if (text.contains(u'.'))
        return text.toDouble();
    return text.toInt();
}

QString IniFile::formatValue(const QVariant& value)
{
    QString text;
    QTextStream out(&text);
    switch (value.typeId()) {
    case QMetaType::Bool:
        out << (value.toBool() ? 1 : 0);
        break;
    case QMetaType::Int:
        out << value.toInt();
        break;
    case QMetaType::Double:
        out << value.toDouble();
        break;
    default:
        out << value.toString();
    }
    out.flush();
    return text;
}

void IniFile::addValue(const QString& key, const QVariant& value, quint32 sectionId)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        addBool(key, value.toBool(), sectionId);
        break;
    case QMetaType::Int:
        addInt(key, value.toInt(), sectionId);
        break;
    case QMetaType::Double:
        addDouble(key, value.toDouble(), sectionId);
        break;
    default:
        addString(key, value.toString(), sectionId);
    }
}

bool IniFile::save(const QString& fileName)
{
    QString text;
    QTextStream out(&text);
    writeSections(out, 0, 0);
    out.flush();
    // A settings file is never left half written; the direct write is only for a
    // writable file in a folder where no temporary file can be made.
    QSaveFile file(fileName);
    const QByteArray bytes = text.toLatin1();
    if (!SafeFile::openForWriting(file) || file.write(bytes) != bytes.size() ||
        !SafeFile::commit(file)) {
        m_lastError = QStringLiteral("Impossible d'écrire le fichier : ") + fileName;
        return false;
    }
    return true;
}

// Depth first: a section's line, its keys in order of addition, then its children in
// order of creation.
void IniFile::writeSections(QTextStream& out, quint32 parentId, int depth) const
{
    const QString indent(depth, u' ');
    for (const IniSection& section : m_sections) {
        if (section.parent != parentId)
            continue;
        out << indent << u'[' << sectionName(section.id) << QLatin1String("]\n");
        for (const IniEntry& entry : section.entries) {
            out << indent << keyName(entry.keyId) << u'=' << formatValue(valueOf(section, entry))
                << u'\n';
        }
        writeSections(out, section.id, depth + 1);
    }
}

QVariant IniFile::valueOf(const IniSection& section, const IniEntry& entry) const
{
    switch (entry.type) {
    case IniEntry::Double:
        return section.doubles.at(entry.index);
    case IniEntry::String:
        return section.strings.at(entry.index);
    case IniEntry::Bool:
        return section.bools.testBit(entry.index);
    default:
        return section.ints.at(entry.index);
    }
}

quint32 IniFile::find(const QString& name)
{
    m_found = true;
    const qsizetype section = m_sectionNames.indexOf(name);
    if (section >= 0)
        return quint32(section + 1);
    const qsizetype key = m_keyNames.indexOf(name);
    if (key >= 0)
        return quint32(key);
    m_found = false;
    return 0;
}

quint32 IniFile::addSection(const QString& name, quint32 parentId)
{
    IniSection section;
    section.id = ++m_sectionCount;
    section.parent = sectionIndex(parentId) >= 0 ? parentId : 0;
    m_sections.append(section);
    m_sectionNames.append(name);
    return section.id;
}

quint32 IniFile::addString(const QString& key, const QString& value, quint32 sectionId)
{
    IniSection& section = targetSection(sectionId);
    section.strings.append(value);
    return appendEntry(section, key, IniEntry::String, section.strings.size() - 1);
}

quint32 IniFile::addDouble(const QString& key, double value, quint32 sectionId)
{
    IniSection& section = targetSection(sectionId);
    section.doubles.append(value);
    return appendEntry(section, key, IniEntry::Double, section.doubles.size() - 1);
}

quint32 IniFile::addInt(const QString& key, qint32 value, quint32 sectionId)
{
    IniSection& section = targetSection(sectionId);
    section.ints.append(value);
    return appendEntry(section, key, IniEntry::Int, section.ints.size() - 1);
}

quint32 IniFile::addBool(const QString& key, bool value, quint32 sectionId)
{
    IniSection& section = targetSection(sectionId);
    const qsizetype index = section.bools.size();
    section.bools.resize(index + 1);
    section.bools.setBit(index, value);
    return appendEntry(section, key, IniEntry::Bool, index);
}

IniSection& IniFile::targetSection(quint32 sectionId)
{
    const qsizetype index = sectionIndex(sectionId);
    if (index >= 0)
        return m_sections[index];
    if (m_sections.isEmpty())
        addSection(QStringLiteral("Ensemble 1"), 0);
    return m_sections.first();
}

quint32 IniFile::appendEntry(IniSection& section, const QString& key, quint16 type, qsizetype index)
{
    section.entries.append({m_keyCount, type, quint32(index)});
    m_keyNames.append(key);
    return m_keyCount++;
}

bool IniFile::setString(quint32 keyId, const QString& value)
{
    const auto [s, e] = locate(keyId, IniEntry::String);
    if (s < 0)
        return false;
    m_sections[s].strings[m_sections.at(s).entries.at(e).index] = value;
    return true;
}

bool IniFile::setDouble(quint32 keyId, double value)
{
    const auto [s, e] = locate(keyId, IniEntry::Double);
    if (s < 0)
        return false;
    m_sections[s].doubles[m_sections.at(s).entries.at(e).index] = value;
    return true;
}

bool IniFile::setInt(quint32 keyId, qint32 value)
{
    const auto [s, e] = locate(keyId, IniEntry::Int);
    if (s < 0)
        return false;
    m_sections[s].ints[m_sections.at(s).entries.at(e).index] = value;
    return true;
}

bool IniFile::setBool(quint32 keyId, bool value)
{
    const auto [s, e] = locate(keyId, IniEntry::Bool);
    if (s < 0)
        return false;
    m_sections[s].bools.setBit(m_sections.at(s).entries.at(e).index, value);
    return true;
}

bool IniFile::retypeBool(quint32 keyId, const QVariant& value)
{
    const auto [s, e] = locate(keyId, IniEntry::Bool);
    if (s < 0)
        return false;
    IniSection& section = m_sections[s];
    IniEntry& entry = section.entries[e];
    // The entry's old bit stays in the section's bits, unreferenced.
    if (value.typeId() == QMetaType::Double) {
        section.doubles.append(value.toDouble());
        entry.type = IniEntry::Double;
        entry.index = quint32(section.doubles.size() - 1);
    } else {
        section.ints.append(value.toInt());
        entry.type = IniEntry::Int;
        entry.index = quint32(section.ints.size() - 1);
    }
    return true;
}

QVariant IniFile::getValue(quint32 keyId) const
{
    const auto [s, e] = locate(keyId, -1);
    if (s < 0)
        return {};
    return valueOf(m_sections.at(s), m_sections.at(s).entries.at(e));
}

bool IniFile::getBool(quint32 keyId) const
{
    QVariant value = getValue(keyId);
    if (value.typeId() == QMetaType::QString)
        value = parseValue(value.toString());
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
        return value.toInt() != 0;
    case QMetaType::Double:
        return value.toDouble() != 0.0;
    default:
        return false;
    }
}

std::pair<qsizetype, qsizetype> IniFile::locate(quint32 keyId, int type) const
{
    for (qsizetype s = 0; s < m_sections.size(); ++s) {
        const QList<IniEntry>& entries = m_sections.at(s).entries;
        for (qsizetype e = 0; e < entries.size(); ++e) {
            if (entries.at(e).keyId == keyId && (type < 0 || entries.at(e).type == type))
                return {s, e};
        }
    }
    return {-1, -1};
}

qsizetype IniFile::sectionIndex(quint32 id) const
{
    for (qsizetype i = 0; i < m_sections.size(); ++i) {
        if (m_sections.at(i).id == id)
            return i;
    }
    return -1;
}

// Names stay in place: a section's id is the position of its name.
bool IniFile::removeSection(quint32 id)
{
    const qsizetype index = sectionIndex(id);
    if (index < 0)
        return false;
    m_sections.removeAt(index);
    for (const IniSection& child : sectionsOf(id))
        removeSection(child.id);
    return true;
}

QList<IniSection> IniFile::sectionsOf(quint32 parentId) const
{
    QList<IniSection> children;
    for (const IniSection& section : m_sections) {
        if (section.parent == parentId)
            children.append(section);
    }
    return children;
}

const IniSection* IniFile::sectionById(quint32 id) const
{
    const qsizetype index = sectionIndex(id);
    return index < 0 ? nullptr : &m_sections.at(index);
}

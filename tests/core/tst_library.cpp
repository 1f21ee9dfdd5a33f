// The element library on disk: where it is found and when the user gets a copy of it,
// the browsers' folder walk, names and listing order, and how elements are added to a
// character: the placement of a group and the 255 elements a character can hold.
#include "document/character.h"
#include "formats/elementfile.h"
#include "library/elementadder.h"
#include "library/libraryfolder.h"
#include "library/librarypath.h"
#include "testfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

namespace {

// Makes a library of the given kinds under folder, each kind with one element whose
// bytes name its folder.
void makeLibrary(const QString& folder, const QStringList& kinds)
{
    for (const QString& kind : kinds) {
        const QString category = folder + u"/elements/"_qs + kind + u"/Corps"_qs;
        QDir().mkpath(category);
        writeFile(category + u"/Corps mince.png"_qs, (folder + kind).toUtf8());
    }
}

// count elements whose sources are "e0", "e1"... (names are renamed anyway).
Character stack(int count)
{
    Character character;
    for (int e = 0; e < count; ++e)
        character.insertElement(e, "n", "e" + QByteArray::number(e),
                                QList<QImage>(character.cellCount()),
                                QList<QPoint>(character.cellCount()), true);
    return character;
}

Character group(const QList<QByteArray>& sources)
{
    Character character;
    for (const QByteArray& source : sources)
        character.insertElement(character.elementCount(), "Element", source, QList<QImage>(16),
                                QList<QPoint>(16), true);
    return character;
}

QString sources(const Character& character)
{
    return QString::fromLatin1(character.elementSources().join(','));
}

} // namespace

class TestLibrary : public QObject
{
    Q_OBJECT

private:
    TestFolders m_folders{u"bibliothèque"_qs};

    struct Place
    {
        QString root;
        LibraryPath::Folders folders;
        QString data() const { return folders.data + u"/elements"_qs; }
    };

    // Working, application and data folders under a new folder; readOnly names the
    // folders, among "working/elements", "application/elements" and "application",
    // that refuse writing.
    Place place(const QStringList& readOnly = {})
    {
        Place p;
        p.root = m_folders.newFolder();
        p.folders.working = p.root + u"/travail"_qs;
        p.folders.application = p.root + u"/programme"_qs;
        p.folders.data = p.root + u"/données/Zenkora"_qs;
        QDir().mkpath(p.folders.working);
        QDir().mkpath(p.folders.application);
        const QString root = p.root;
        p.folders.writable = [root, readOnly](const QString& folder) {
            return !readOnly.contains(QDir(root).relativeFilePath(folder));
        };
        return p;
    }

private slots:
    void resolution_data()
    {
        QTest::addColumn<QStringList>("working"); // kinds in the working directory
        QTest::addColumn<bool>("installed");      // both kinds beside the program
        QTest::addColumn<QStringList>("readOnly");
        QTest::addColumn<QString>("base");       // "", "application" or "data"
        QTest::addColumn<QString>("seededFrom"); // the tree copied, or ""
        const QStringList both = {u"XP"_qs, u"VX"_qs};
        QTest::newRow("working directory") << both << true << QStringList() << u""_qs << u""_qs;
        QTest::newRow("only XP here")
            << QStringList{u"XP"_qs} << true << QStringList() << u"application"_qs << u""_qs;
        QTest::newRow("elsewhere")
            << QStringList() << true << QStringList() << u"application"_qs << u""_qs;
        QTest::newRow("installed read-only")
            << QStringList() << true << QStringList{u"programme/elements"_qs} << u"data"_qs
            << u"programme"_qs;
        QTest::newRow("working read-only")
            << both << false << QStringList{u"travail/elements"_qs} << u"data"_qs << u"travail"_qs;
        QTest::newRow("none, folder read-only")
            << QStringList() << false << QStringList{u"programme"_qs} << u"application"_qs
            << u""_qs;
    }

    void resolution()
    {
        QFETCH(QStringList, working);
        QFETCH(bool, installed);
        QFETCH(QStringList, readOnly);
        QFETCH(QString, base);
        QFETCH(QString, seededFrom);
        Place p = place(readOnly);
        makeLibrary(p.folders.working, working);
        if (installed)
            makeLibrary(p.folders.application, {u"XP"_qs, u"VX"_qs});
        const QString expected = base.isEmpty()       ? QString()
                                 : base == u"data"_qs ? p.folders.data + u"/"_qs
                                                      : p.folders.application + u"/"_qs;
        QCOMPARE(LibraryPath::resolve(p.folders), expected);
        QCOMPARE(QFileInfo::exists(p.data()), !seededFrom.isEmpty());
        if (!seededFrom.isEmpty()) {
            for (const QString& kind : {u"XP"_qs, u"VX"_qs})
                QCOMPARE(fileContents(p.data() + u"/"_qs + kind + u"/Corps/Corps mince.png"_qs),
                         (p.root + u"/"_qs + seededFrom + kind).toUtf8());
            QVERIFY(!QFileInfo::exists(p.folders.data + u"/"_qs + LibraryPath::partialName()));
        }
    }

    // The user's library is theirs once made: a second start copies nothing over it.
    void userLibraryKept()
    {
        Place p = place({u"programme/elements"_qs});
        makeLibrary(p.folders.application, {u"XP"_qs, u"VX"_qs});
        QCOMPARE(LibraryPath::resolve(p.folders), p.folders.data + u"/"_qs);
        QVERIFY(writeFile(p.data() + u"/XP/Corps/Mien.png"_qs, "user"));
        QVERIFY(QFile::remove(p.data() + u"/VX/Corps/Corps mince.png"_qs));
        QVERIFY(writeFile(p.folders.application + u"/elements/XP/Nouveau.png"_qs, "new"));
        QCOMPARE(LibraryPath::resolve(p.folders), p.folders.data + u"/"_qs);
        QCOMPARE(fileContents(p.data() + u"/XP/Corps/Mien.png"_qs), QByteArray("user"));
        QVERIFY(!QFileInfo::exists(p.data() + u"/VX/Corps/Corps mince.png"_qs));
        QVERIFY(!QFileInfo::exists(p.data() + u"/XP/Nouveau.png"_qs));
    }

    void interruptedCopyRedone()
    {
        Place p = place({u"programme/elements"_qs});
        makeLibrary(p.folders.application, {u"XP"_qs, u"VX"_qs});
        const QString partial = p.folders.data + u"/"_qs + LibraryPath::partialName();
        QVERIFY(QDir().mkpath(partial + u"/XP/Corps"_qs));
        QVERIFY(writeFile(partial + u"/XP/Corps/Corps mince.png"_qs, "cut sh"));
        QVERIFY(writeFile(partial + u"/Reste.png"_qs, "left over"));
        QCOMPARE(LibraryPath::resolve(p.folders), p.folders.data + u"/"_qs);
        QVERIFY(!QFileInfo::exists(partial));
        QVERIFY(!QFileInfo::exists(p.data() + u"/Reste.png"_qs));
        QCOMPARE(fileContents(p.data() + u"/XP/Corps/Corps mince.png"_qs),
                 (p.folders.application + u"XP"_qs).toUtf8());
    }

    // Steps: a name enters that folder, ".." goes up. Then the label, full and short.
    void folderWalk_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("shortLabel");
        QTest::newRow("down") << u"elements/XP/"_qs << QStringList{u"Corps"_qs, u"Fins"_qs}
                              << u"elements/XP/Corps/Fins/"_qs
                              << u"Dossier actuel : XP/Corps/Fins/"_qs
                              << u"Dossier actuel : XP/.../Fins/"_qs;
        QTest::newRow("up and across")
            << u"elements/XP/Corps/"_qs << QStringList{u".."_qs, u".."_qs, u".."_qs, u"VX"_qs}
            << u"elements/VX/"_qs << u"Dossier actuel : VX/"_qs
            << u"Dossier actuel : VX/.../VX/"_qs;
        QTest::newRow("top") << u"elements/VX/"_qs << QStringList{u".."_qs} << u"elements/"_qs
                             << u"Dossier actuel : "_qs << u"Dossier actuel : .../elements/"_qs;
        QTest::newRow("backslashes")
            << u"elements/XP\\Corps\\"_qs << QStringList{u".."_qs} << u"elements/XP\\"_qs
            << u"Dossier actuel : XP\\"_qs << u"Dossier actuel : XP\\.../XP/"_qs;
    }

    void folderWalk()
    {
        QFETCH(QString, start);
        QFETCH(QStringList, steps);
        QFETCH(QString, current);
        QFETCH(QString, label);
        QFETCH(QString, shortLabel);
        LibraryFolder folder(start);
        for (const QString& step : steps) {
            if (step == u".."_qs)
                folder.up();
            else
                folder.enter(step);
        }
        QCOMPARE(folder.currentDir(), current);
        QCOMPARE(folder.isRoot(), current == LibraryFolder::root());
        QCOMPARE(folder.labelText(), label);
        QCOMPARE(folder.shortLabelText(), shortLabel);
    }

    void names_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("valid");
        QTest::newRow("plain") << u"Cheveux longs"_qs << true;
        QTest::newRow("dots and accents") << u"v1.2 é"_qs << true;
        QTest::newRow("empty") << u""_qs << false;
        QTest::newRow("blank") << u"   "_qs << false;
        for (const QChar refused : u"\\/*|<>:?\""_qs)
            QTest::addRow("refused %c", refused.toLatin1())
                << (u"a"_qs + refused + u"b"_qs) << false;
    }

    void names()
    {
        QFETCH(QString, name);
        QFETCH(bool, valid);
        QCOMPARE(LibraryFolder::isValidName(name), valid);
    }

    // Folders first, then files, each without regard to case; other files are not shown.
    void listingOrder()
    {
        const QString folder = m_folders.newFolder();
        for (const QString& name : {u"bas"_qs, u"Corps"_qs})
            QVERIFY(QDir(folder).mkdir(name));
        for (const QString& name :
             {u"Zeta.png"_qs, u"alpha.png"_qs, u"Beta.elzk"_qs, u"notes.txt"_qs})
            QVERIFY(writeFile(folder + u"/"_qs + name, "x"));
        QStringList names;
        for (const QFileInfo& entry : LibraryFolder::entries(folder))
            names.append(entry.fileName());
        QCOMPARE(names, (QStringList{u"bas"_qs, u"Corps"_qs, u"alpha.png"_qs, u"Beta.elzk"_qs,
                                     u"Zeta.png"_qs}));
    }

    // A group x | y around the selected element, or the topmost one.
    void groupPlacement_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QList<int>>("selected");
        QTest::addColumn<QString>("order");
        QTest::addColumn<QList<int>>("selectedAfter");
        QTest::newRow("one selected") << 3 << QList<int>{1} << u"e0,x,e1,y,e2"_qs << QList<int>{2};
        QTest::newRow("two selected")
            << 3 << QList<int>{0, 2} << u"e0,e1,x,e2,y"_qs << QList<int>{0, 3};
        QTest::newRow("none selected") << 3 << QList<int>() << u"e0,e1,x,e2,y"_qs << QList<int>();
        QTest::newRow("bottom selected") << 2 << QList<int>{0} << u"x,e0,y,e1"_qs << QList<int>{1};
        QTest::newRow("empty") << 0 << QList<int>() << u"x,y"_qs << QList<int>();
    }

    void groupPlacement()
    {
        QFETCH(int, count);
        QFETCH(QList<int>, selected);
        QFETCH(QString, order);
        QFETCH(QList<int>, selectedAfter);
        Character character = stack(count);
        character.setSelectedElements(selected);
        QCOMPARE(ElementAdder::addGroup(character, {group({"x"}), group({"y"})}),
                 ElementAdder::Added);
        QCOMPARE(sources(character), order);
        QCOMPARE(character.selectedElements(), selectedAfter);
        // Renamed, as pasted elements are.
        QVERIFY(character.hasElementNamed("El\xe9ment 1"));
        QVERIFY(!character.hasElementNamed("Element"));
    }

    void limit_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("what");
        QTest::addColumn<bool>("added");
        QTest::newRow("group of 2 at 253") << 253 << u"group"_qs << true;
        QTest::newRow("group of 2 at 254") << 254 << u"group"_qs << false;
        QTest::newRow("sheet at 254") << 254 << u"sheet"_qs << true;
        QTest::newRow("sheet at 255") << 255 << u"sheet"_qs << false;
        QTest::newRow("layer at 255") << 255 << u"layer"_qs << false;
    }

    void limit()
    {
        QFETCH(int, count);
        QFETCH(QString, what);
        QFETCH(bool, added);
        const QString sheet = m_folders.newFolder() + u"/s.png"_qs;
        QVERIFY(solidImage(QSize(128, 192), qRgba(1, 2, 3, 255)).save(sheet));
        Character character = stack(count);
        ElementAdder::Result result;
        if (what == u"group"_qs)
            result = ElementAdder::addGroup(character, {group({"x"}), group({"y"})});
        else if (what == u"sheet"_qs)
            result = ElementAdder::addImage(character, sheet, false);
        else
            result = ElementAdder::addDrawingLayer(character);
        QCOMPARE(result, added ? ElementAdder::Added : ElementAdder::Full);
        QCOMPARE(character.elementCount(), added ? count + (what == u"group"_qs ? 2 : 1) : count);
    }
};

QTEST_GUILESS_MAIN(TestLibrary)
#include "tst_library.moc"

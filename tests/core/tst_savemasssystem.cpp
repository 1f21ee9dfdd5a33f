#include "batch/masssaveplan.h"
#include "batch/savemasssystem.h"
#include "document/character.h"
#include "formats/pngwriter.h"
#include "imagecompare.h"
#include "imaging/hslshift.h"
#include "testfiles.h"

#include <QColor>
#include <QDir>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

// Saving a character in many hues: names and counts, each file one shift of the
// untouched picture, the grouped walk's matching, the signals, and the character left
// as it was found.
class TestSaveMassSystem : public QObject
{
    Q_OBJECT

    TestFolders m_folders{u"Teintes \u00e9"_s};

    QString newFolder() { return m_folders.newFolder(); }

    // A VX character whose elements hold saturated squares, and a see-through pixel,
    // in every cell, each element in its own tones.
    static Character character(const QList<QByteArray>& sources)
    {
        Character result(Character::VX, QSize(96, 128));
        for (int e = 0; e < sources.size(); ++e) {
            QImage sheet = solidImage(QSize(96, 128), uint(19));
            for (int c = 0; c < 12; ++c) {
                const QPoint corner(c % 3 * 32 + e % 6 * 3, c / 3 * 32 + e % 6 * 2);
                for (int i = 0; i < 144; ++i) {
                    sheet.setPixel(corner + QPoint(i % 12, i / 12),
                                   QColor::fromHsv((e * 50 + c * 7) % 360, 200, 220).rgb());
                }
                sheet.setPixel(corner + QPoint(12, 0), qRgba(200, 30, 90, 100));
            }
            result.addElement(sheet, "El\xe9ment " + QByteArray::number(e), e);
            result.setElementSource(e, sources.at(e));
        }
        return result;
    }

    static Character plainCharacter(int count)
    {
        return character(QList<QByteArray>(count, "a.png"));
    }

    // One shift of the untouched character on the given elements (none: all), as the
    // model applies it outside any preview.
    static QImage shifted(Character copy, const QList<int>& elements, uint degrees, bool redefine)
    {
        copy.clearCellSelection();
        copy.setSelectedElements(elements);
        HslShift shift;
        shift.hue = float(degrees);
        copy.shiftCharacterHsl(shift, redefine, false);
        return copy.compose();
    }

    static QStringList filesIn(const QString& folder)
    {
        return QDir(folder).entryList(QDir::Files, QDir::Name);
    }

    static QString text(const QList<MassSavePlan::Entry>& entries)
    {
        QStringList parts;
        for (const MassSavePlan::Entry& entry : entries) {
            QStringList elements;
            for (int e : entry.elements)
                elements.append(QString::number(e));
            parts.append(QString::number(entry.number) + u':' +
                         (entry.setsSelection ? elements.join(u',') : u"kept"_s));
        }
        return parts.join(u' ');
    }

private slots:
    void namesAndCounts_data()
    {
        QTest::addColumn<uint>("step");
        QTest::addColumn<QString>("prefix");
        QTest::addColumn<int>("count");
        QTest::addColumn<QStringList>("some");
        QTest::newRow("120") << 120u << u"h\u00e9ros_"_s << 6
                             << QStringList{u"h\u00e9ros_2_0.png"_s, u"h\u00e9ros_2_120.png"_s,
                                            u"h\u00e9ros_2_240.png"_s, u"h\u00e9ros_0_240.png"_s};
        // A step that doesn't divide 360 stops short of the full turn.
        QTest::newRow("7") << 7u << u"p"_s << 102 << QStringList{u"p2_0.png"_s, u"p0_350.png"_s};
        QTest::newRow("5, no prefix")
            << 5u << QString() << 144 << QStringList{u"2_0.png"_s, u"0_355.png"_s};
    }

    void namesAndCounts()
    {
        QFETCH(uint, step);
        QFETCH(QString, prefix);
        QFETCH(int, count);
        QFETCH(QStringList, some);
        Character work = plainCharacter(3);
        const QString folder = newFolder() + u"/deeper"_s; // made with the worker
        SaveMassSystem worker(&work, {2, 0}, folder, prefix, step, false, nullptr);
        QVERIFY(QDir(folder).exists());
        QStringList planned = worker.plannedFiles();
        QCOMPARE(planned.first(), folder + u'/' + some.first()); // in the order of the list
        worker.run();
        const QStringList written = filesIn(folder);
        QCOMPARE(written.size(), count);
        for (const QString& name : some)
            QVERIFY2(written.contains(name), qPrintable(name));
        for (QString& path : planned)
            path.remove(0, folder.size() + 1);
        planned.sort();
        QCOMPARE(planned, written);
    }

    void eachFileIsOneShift_data()
    {
        QTest::addColumn<uint>("step");
        QTest::addColumn<bool>("redefine");
        QTest::newRow("offsets of 40") << 40u << false;
        QTest::newRow("hues of 120") << 120u << true;
    }

    void eachFileIsOneShift()
    {
        QFETCH(uint, step);
        QFETCH(bool, redefine);
        const Character original = plainCharacter(3);
        Character work = original;
        const QString folder = newFolder();
        SaveMassSystem(&work, {1, 2}, folder, u"x"_s, step, redefine, nullptr).run();
        for (int e : {1, 2}) {
            for (uint degrees = 0; degrees < 360; degrees += step) {
                const QString file = folder + u"/x%1_%2.png"_s.arg(e).arg(degrees);
                const QImage expected = shifted(original, {e}, degrees, redefine);
                ZK_COMPARE_IMAGES(QImage(file), expected);
                // The bytes of the program's writer, as any sheet.
                QCOMPARE(fileContents(file), pngBytes(expected));
            }
        }
    }

    void groupedWalk()
    {
        const Character original =
            character({"lib/body.png|4", "hair.elzk?0_7", "plain.png", "hair.elzk?1_7",
                       "lib/other.png|4", "cape.elzk?0_9", "", "odd|x", "odd?2_7_9"});
        // The dialog's derivation: "|" gives a simple element (doubles kept), "?" then
        // "_" a group (once), text that is no number 0, neither mark nothing.
        const MassSavePlan::Grouping grouping =
            MassSavePlan::grouping(original, {1, 3, 0, 2, 4, 5, 6, 7, 8});
        QCOMPARE(grouping.simpleElements, (QList<int>{4, 4, 0}));
        QCOMPARE(grouping.groupElements, (QList<int>{7, 9, 0}));

        // A simple id takes its first match, a group all its matches and the number of
        // the last. An id matching nothing keeps the number before it (0 at first)
        // and, simple, the selection the character holds; a group's is emptied.
        QCOMPARE(text(MassSavePlan::groupedEntries(original, {4, 99}, {7, 9, 5})),
                 u"0:0 0:kept 3:1,3 5:5 5:"_s);
        QCOMPARE(text(MassSavePlan::groupedEntries(original, {99, 4}, {})), u"0:kept 0:0"_s);
        QCOMPARE(text(MassSavePlan::groupedEntries(original, {}, {5, 7})), u"0: 3:1,3"_s);

        // The worker walks those entries. The character has no element selected, so a
        // kept or emptied selection turns all; the last writer of a name wins.
        Character work = original;
        const QString folder = newFolder();
        SaveMassSystem worker(&work, {4, 99}, {7, 9, 5}, folder, u"g"_s, 120, false, nullptr);
        QSignalSpy progress(&worker, &SaveMassSystem::changeProgess);
        worker.run();
        QCOMPARE(progress.size(), 5 * 3 + 1);
        QCOMPARE(filesIn(folder).size(), 9);
        const QList<QPair<int, QList<int>>> finals{{0, {}}, {3, {1, 3}}, {5, {}}};
        for (const auto& [number, elements] : finals) {
            for (uint degrees : {0u, 120u, 240u}) {
                ZK_COMPARE_IMAGES(QImage(folder + u"/g%1_%2.png"_s.arg(number).arg(degrees)),
                                  shifted(original, elements, degrees, false));
            }
        }
        const QString single = newFolder();
        SaveMassSystem(&work, {4}, {}, single, QString(), 120, false, nullptr).run();
        ZK_COMPARE_IMAGES(QImage(single + u"/0_240.png"_s), shifted(original, {0}, 240, false));
    }

    void signalsInOrder()
    {
        Character work = plainCharacter(4);
        QStringList seen;
        const auto listen = [&](SaveMassSystem& worker) {
            connect(&worker, &SaveMassSystem::changeProgess, this,
                    [&](uchar percent, const QString& info) {
                        seen.append(QString::number(percent) + u' ' + info);
                    });
            connect(&worker, &SaveMassSystem::finish, this, [&] { seen.append(u"finish"_s); });
        };
        SaveMassSystem worker(&work, {3, 1}, newFolder(), u"p"_s, 120, false, nullptr);
        listen(worker);
        worker.run();
        // done / total * 100 in floating point, cut: 1 / 6 gives 16.
        QCOMPARE(
            seen,
            (QStringList{u"0 Enregistrement de p3_0.png"_s, u"16 Enregistrement de p3_120.png"_s,
                         u"33 Enregistrement de p3_240.png"_s, u"50 Enregistrement de p1_0.png"_s,
                         u"66 Enregistrement de p1_120.png"_s, u"83 Enregistrement de p1_240.png"_s,
                         u"100 Enregistrements finis"_s, u"finish"_s}));
        // One file in all, for a caller that passes a step beyond the dialog's.
        seen.clear();
        SaveMassSystem one(&work, {0}, newFolder(), u"p"_s, 200, false, nullptr);
        listen(one);
        one.run();
        QCOMPARE(seen, (QStringList{u"0 Enregistrement de p0_0.png"_s, u"100 Enregistrement fini"_s,
                                    u"finish"_s}));
    }

    void leavesTheCharacterAsFound()
    {
        for (bool previewing : {false, true}) {
            Character work = character({"a|1", "b?0_7", "c?1_7", "d"});
            work.setSelectedElements({2, 3});
            work.setSelectedCells({7, 1});
            work.setVisible(3, false);
            work.setCellPosition(1, 3, QPoint(-4, 9));
            if (previewing)
                work.beginPreview();
            const Character before = work;
            SaveMassSystem(&work, {1}, {7}, newFolder(), QString(), 120, true, nullptr).run();
            QCOMPARE(work.elementNames(), before.elementNames());
            QCOMPARE(work.elementSources(), before.elementSources());
            QCOMPARE(work.cellPositions(), before.cellPositions());
            QCOMPARE(work.elementVisibility(), before.elementVisibility());
            QCOMPARE(work.selectedElements(), (QList<int>{2, 3}));
            QCOMPARE(work.selectedCells(), (QList<int>{7, 1}));
            QCOMPARE(work.hasSnapshot(), previewing);
            for (int i = 0; i < work.elementCount() * 12; ++i) {
                ZK_COMPARE_IMAGES(work.cellImage(i / 12, i % 12), before.cellImage(i / 12, i % 12));
                if (previewing)
                    ZK_COMPARE_IMAGES(work.snapshotImage(i / 12, i % 12),
                                      before.cellImage(i / 12, i % 12));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestSaveMassSystem)
#include "tst_savemasssystem.moc"

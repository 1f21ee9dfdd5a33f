// The mass save window on a character with a plain element and two element files: its
// grouped rows, the files written for them, the enabling of "Enregistrer", the copy it
// works on; and the selectable list's scroll bar.
#include "app/mainwindow.h"
#include "batch/qconvertchara.h"
#include "batch/qfusiontileset.h"
#include "batch/qprogresswindow.h"
#include "batch/qsavewindow.h"
#include "batch/savemasssystem.h"
#include "canvas/qlayer.h"
#include "canvas/qlayerlistselectable.h"
#include "imagecompare.h"
#include "imaging/hslshift.h"
#include "scriptedprompts.h"
#include "testfiles.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

using namespace Qt::StringLiterals;

class TestSaveWindow : public QObject
{
    Q_OBJECT

    TestFolders m_folders{u"Teintes"_s};

    // Element 0 from a plain image, 1 to 3 from one element file, 4 and 5 from another.
    static Character sample()
    {
        Character character(Character::VX, QSize(96, 128));
        const QList<QByteArray> sources{"plain.png",  "g.elzk?0_1", "g.elzk?1_1",
                                        "g.elzk?2_1", "h.elzk?0_2", "h.elzk?1_2"};
        for (int e = 0; e < sources.size(); ++e) {
            QImage sheet = solidImage(QSize(96, 128), uint(19));
            for (int p = 0; p < 10 * 12; ++p)
                sheet.setPixel(e * 14 + p % 10, 4 + p / 10, qRgb(200, 40 + e * 30, 60));
            character.addElement(sheet, "e" + QByteArray::number(e), e);
            character.setElementSource(e, sources.at(e));
        }
        return character;
    }

    static void choose(QLayerListSelectable* list, int e)
    {
        const int place = list->placeOf(e);
        QTest::mouseClick(list, Qt::LeftButton, {}, list->geometry().rowRect(place).center());
        QCOMPARE(list->current(), e);
    }

    static void shoot(QWidget* widget, const QString& name)
    {
        const QString folder = qEnvironmentVariable("ZENKORA_SHOTS");
        if (!folder.isEmpty())
            widget->grab().save(folder + u'/' + name + u".png"_s);
    }

private slots:
    void groupedSave()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        const Character document = sample();
        const QString folder = m_folders.newFolder();
        auto* window = new QSaveWindow(document, folder, u"P"_s);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->show();
        QCOMPARE(window->folderEdit()->text(), folder);
        QCOMPARE(window->groupButton()->text(), u"Dégrouper les éléments ELZK"_s);
        QCOMPARE(window->leftList()->rows(), QList<int>({0, 3, 5}));
        QVERIFY(!window->saveButton()->isEnabled());
        choose(window->leftList(), 0);
        window->addButton()->click();
        choose(window->leftList(), 3);
        window->addButton()->click();
        QCOMPARE(window->rightList()->rows(), QList<int>({0, 3}));
        QVERIFY(window->saveButton()->isEnabled());
        window->prefixEdit()->setText(u"a/b"_s);
        QVERIFY(!window->saveButton()->isEnabled());
        window->prefixEdit()->setText(u"P"_s);
        window->stepBox()->setValue(120);
        shoot(window, u"masssave-grouped"_s);

        QPointer<QProgressWindow> progress;
        connect(window, &QSaveWindow::workerStarting, this,
                [&](QThread*) { progress = window->progressWindow(); });
        QPointer<QSaveWindow> guard(window);
        window->saveButton()->click();
        QVERIFY(progress);
        QVERIFY(!window->controls()->isEnabled());
        QVERIFY(window->isEnabled() && progress->isEnabled());
        shoot(progress, u"masssave-progress"_s);
        QTRY_VERIFY_WITH_TIMEOUT(guard.isNull(), 20000);

        QStringList expected;
        for (int e : {0, 3})
            for (int h : {0, 120, 240})
                expected.append(u"P%1_%2.png"_s.arg(e).arg(h));
        expected.sort();
        QCOMPARE(QDir(folder).entryList(QDir::Files, QDir::Name), expected);
        Character turned = document;
        turned.setSelectedElements({1, 2, 3});
        HslShift shift;
        shift.hue = 120;
        turned.shiftCharacterHsl(shift, false, true);
        ZK_COMPARE_IMAGES(QImage(folder + u"/P3_120.png"_s), turned.compose());
        QCOMPARE(document.elementSources(), sample().elementSources());
        QVERIFY(prompts.messages.isEmpty());
    }

    // Each toggle puts every row on the left, one row per element when ungrouped.
    void toggle()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        QSaveWindow window(sample(), m_folders.newFolder(), QString());
        choose(window.leftList(), 3);
        window.addButton()->click();
        window.changeELZK();
        QCOMPARE(window.groupButton()->text(), u"Grouper les éléments ELZK"_s);
        QCOMPARE(window.leftList()->rows(), QList<int>({0, 1, 2, 3, 4, 5}));
        QVERIFY(window.rightList()->rows().isEmpty());
        QVERIFY(!window.addButton()->isEnabled() && !window.saveButton()->isEnabled());
    }

    // Failed writes are named before the window closes.
    void failedWrites()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        const QString taken = m_folders.newFolder() + u"/taken"_s;
        QVERIFY(writeFile(taken, "a file"));
        auto* window = new QSaveWindow(sample(), taken, QString());
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->changeELZK();
        choose(window->leftList(), 1);
        window->addButton()->click();
        window->stepBox()->setValue(120);
        QPointer<QSaveWindow> guard(window);
        window->saveButton()->click();
        QTRY_VERIFY_WITH_TIMEOUT(guard.isNull(), 20000);
        QCOMPARE(prompts.messages.size(), 1);
        QCOMPARE(prompts.messages.first().title, u"Enregistrer sous différentes teintes..."_s);
        QCOMPARE(prompts.messages.first().detailedText, u"- 1_0.png\n- 1_120.png\n- 1_240.png\n"_s);
    }

    // The main window's entries open the three windows; the mass save starts from the
    // document's folder and name.
    void mainWindow()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        auto* window = new MainWindow;
        QLayer* layer = window->addDocument(sample(), u"t"_s);
        layer->setFilePath(sandbox.path(u"perso.zk"_s));
        layer->setAskOnClose(false);
        window->newConversion();
        window->newFusion();
        window->saveMass();
        QVERIFY(window->findChild<QConvertChara*>()->isVisible());
        QVERIFY(window->findChild<QFusionTileset*>()->isVisible());
        QSaveWindow* save = window->findChild<QSaveWindow*>();
        QCOMPARE(save->folderEdit()->text(), sandbox.folder());
        QCOMPARE(save->prefixEdit()->text(), u"perso_"_s);
        delete window;
    }

    void selectableBar()
    {
        Character character(Character::VX, QSize(96, 128));
        for (int e = 0; e < 10; ++e)
            character.addElement(solidImage(QSize(96, 128), qRgb(e, 0, 0)), "e", e);
        QLayerListSelectable list(&character, 0);
        list.setKinds(QList<int>(10, 0));
        QCOMPARE(list.geometry().thumbRect(), QRect(157, 148, 15, 120));
        list.scrollTo(5);
        QCOMPARE(list.geometry().thumbRect().top(), 32);
        list.scrollTo(9);
        QCOMPARE(list.firstRow(), 5);
    }
};

QTEST_MAIN(TestSaveWindow)
#include "tst_savewindow.moc"

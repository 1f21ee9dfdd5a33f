// The conversion wizard driven through its buttons, with a real converter on sheets made
// here and the questions answered by the scripted prompts.
#include "batch/converter.h"
#include "batch/qconvertchara.h"
#include "batch/qprogresswindow.h"
#include "formats/pngwriter.h"
#include "scriptedprompts.h"
#include "testfiles.h"

#include <QLabel>
#include <QPointer>
#include <QTest>

using namespace Qt::StringLiterals;

class TestConvertChara : public QObject
{
    Q_OBJECT

    TestFolders m_folders{u"Conversion"_s};

    // Three XP characters "a.png" to "c.png" in a new folder; towards VX they become
    // "$a.png" to "$c.png".
    QStringList sources()
    {
        const QString folder = m_folders.newFolder();
        QStringList paths;
        for (int i = 0; i < 3; ++i) {
            paths.append(folder + u'/' + QChar(u'a' + i) + u".png"_s);
            PngWriter::save(solidImage(QSize(128, 192), qRgb(40 * i, 90, 200)), paths.last());
        }
        return paths;
    }

    // The wizard on step 2 with files chosen.
    static QConvertChara* atStepTwo(ScriptedPrompts& prompts, const QStringList& files)
    {
        auto* wizard = new QConvertChara;
        wizard->show();
        wizard->firstNextButton()->click();
        prompts.fileAnswers.enqueue({files, {}});
        wizard->searchFileNames();
        return wizard;
    }

    // Runs step 3 to its end, the wizard closing itself.
    static void finish(QConvertChara* wizard)
    {
        QPointer<QConvertChara> guard(wizard);
        wizard->nextButton()->click();
        QTRY_VERIFY_WITH_TIMEOUT(guard.isNull(), 20000);
    }

    static void shoot(QWidget* widget, const QString& name)
    {
        const QString folder = qEnvironmentVariable("ZENKORA_SHOTS");
        if (!folder.isEmpty())
            widget->grab().save(folder + u'/' + name + u".png"_s);
    }

private slots:
    // Back and forth keeps the paths and "Suivant"; a change of mode drops them.
    void backStep()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        const QStringList files = sources();
        QConvertChara* wizard = atStepTwo(prompts, files);
        QVERIFY(!wizard->isVisible());
        QVERIFY(wizard->stepDialog()->isVisible());
        QCOMPARE(wizard->stepDialog()->windowModality(), Qt::ApplicationModal);
        QCOMPARE(wizard->pathEdit()->text(), u"a.png, b.png, c.png"_s);
        QVERIFY(wizard->nextButton()->isEnabled());
        shoot(wizard->stepDialog(), u"wizard-step2"_s);

        QPointer<QDialog> step = wizard->stepDialog();
        step->close();
        QTRY_VERIFY(step.isNull());
        QVERIFY(wizard->isVisible());
        wizard->firstNextButton()->click();
        QCOMPARE(wizard->pathEdit()->text(), u"a.png, b.png, c.png"_s);
        QVERIFY(wizard->nextButton()->isEnabled());

        wizard->stepDialog()->close();
        wizard->folderRadio()->setChecked(true);
        wizard->firstNextButton()->click();
        QVERIFY(wizard->paths().isEmpty());
        QVERIFY(wizard->pathEdit()->text().isEmpty());
        QVERIFY(!wizard->nextButton()->isEnabled());
        wizard->closeAll();
    }

    // Closing the dialog of the VX directions stays on step 2, paths kept.
    void vxCountClosed()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        QConvertChara* wizard = atStepTwo(prompts, sources());
        wizard->directionBox()->setCurrentIndex(5);
        QDialog* step = wizard->stepDialog();
        wizard->nextButton()->click();
        QCOMPARE(prompts.asked.last(), u"vxCharacterCount"_s);
        QCOMPARE(wizard->stepDialog(), step);
        QVERIFY(step->isVisible());
        QCOMPARE(wizard->paths().size(), 3);
        wizard->closeAll();
    }

    // An unreadable file is only in the final list, never in the warning about files
    // replaced; the second run into the same folder warns.
    void unreadableFile()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        const QStringList files = sources();
        const QString junk = QFileInfo(files.first()).path() + u"/junk.png"_s;
        QVERIFY(writeFile(junk, "no image"));
        const QString output = QFileInfo(junk).path() + u"/VX_CONVERSIONS"_s;
        for (int run = 0; run < 2; ++run) {
            prompts.messages.clear();
            prompts.answers.enqueue({QMessageBox::Apply, false});
            QConvertChara* wizard = atStepTwo(prompts, {files.first(), junk});
            wizard->directionBox()->setCurrentIndex(3);
            finish(wizard);
            QCOMPARE(prompts.messages.size(), run + 2);
            if (run == 1) {
                QCOMPARE(prompts.messages.first().title, u"Fichiers remplacés"_s);
                QCOMPARE(prompts.messages.first().detailedText,
                         u"Liste des fichiers qui seront remplacés après l'enregistrement :\n- "_s +
                             output + u"/$a.png"_s);
            }
            const Prompts::Message opened = prompts.messages.at(run);
            QCOMPARE(opened.text, u"Certains fichiers n'ont pas pu être ouverts"_s);
            QCOMPARE(opened.detailedText, u"Fichiers qui n'ont pas pu être ouverts :\n- "_s + junk);
            QCOMPARE(prompts.messages.last().text,
                     u"Conversion effectuée. Les characters convertis sont dans : "_s + output);
        }
    }

    // A folder removed after the choice; an output folder that can't be made.
    void failures()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        const QStringList files = sources();
        const QString folder = QFileInfo(files.first()).path();
        QVERIFY(writeFile(folder + u"/VX_CONVERSIONS"_s, "a file"));
        QConvertChara* wizard = atStepTwo(prompts, files);
        wizard->directionBox()->setCurrentIndex(3);
        finish(wizard);
        QCOMPARE(prompts.messages.first().text,
                 u"Certains fichiers n'ont pas pu être enregistrés"_s);
        QCOMPARE(prompts.messages.first().detailedText,
                 u"Fichiers qui n'ont pas pu être enregistrés :\n- %1/VX_CONVERSIONS/$a.png\n- "
                 u"%1/VX_CONVERSIONS/$b.png\n- %1/VX_CONVERSIONS/$c.png"_s.arg(folder));

        prompts.messages.clear();
        wizard = new QConvertChara;
        wizard->folderRadio()->setChecked(true);
        wizard->show();
        wizard->firstNextButton()->click();
        const QString gone = m_folders.newFolder();
        prompts.fileAnswers.enqueue({{gone}, {}});
        wizard->searchFileNames();
        QVERIFY(QDir(gone).removeRecursively());
        finish(wizard);
        QCOMPARE(prompts.messages.size(), 1);
        QCOMPARE(prompts.messages.first().icon, QMessageBox::Critical);
        QCOMPARE(prompts.messages.first().text, u"Impossible d'ouvrir le dossier : "_s + gone);
    }

    // "Annuler" on step 3: the button says it is stopping, the run ends after the file
    // under way, and the last box says where the files converted so far are.
    void stop()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        const QStringList files = sources();
        QConvertChara* wizard = atStepTwo(prompts, files);
        wizard->directionBox()->setCurrentIndex(3);
        QPointer<QProgressWindow> window;
        QString stopping;
        // At the first file the worker waits while "Annuler" is clicked.
        connect(wizard, &QConvertChara::workerStarting, this, [&](QThread* worker) {
            window = qobject_cast<QProgressWindow*>(wizard->stepDialog());
            connect(
                static_cast<Converter*>(worker), &Converter::changeProgress, worker,
                [&](uint, const QString&) {
                    QMetaObject::invokeMethod(
                        window,
                        [&] {
                            window->stopButton()->click();
                            stopping = window->stopButton()->text() +
                                       (window->stopButton()->isEnabled() ? u"+"_s : u"-"_s);
                            shoot(window, u"wizard-progress"_s);
                        },
                        Qt::BlockingQueuedConnection);
                },
                Qt::DirectConnection);
        });
        QPointer<QConvertChara> guard(wizard);
        wizard->nextButton()->click();
        QVERIFY(window);
        QCOMPARE(window->windowModality(), Qt::ApplicationModal);
        QVERIFY(!wizard->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(guard.isNull(), 20000);
        QCOMPARE(stopping, u"Arrêt en cours...-"_s);
        const QString output = QFileInfo(files.first()).path() + u"/VX_CONVERSIONS"_s;
        QCOMPARE(prompts.messages.last().text,
                 u"Conversion interrompue. Les characters déjà convertis sont dans : "_s + output);
        QCOMPARE(QDir(output).entryList(QDir::Files), QStringList{u"$a.png"_s});
    }
};

QTEST_MAIN(TestConvertChara)
#include "tst_convertchara.moc"

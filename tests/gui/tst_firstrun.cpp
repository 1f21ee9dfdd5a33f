// The start as main() runs it once the window shows: the documents first, then on the
// first run only the welcome, the donation box and the offer of help.
#include "app/helpcommands.h"
#include "app/mainwindow.h"
#include "app/qhelpdialog.h"
#include "app/qquickguide.h"
#include "app/startup.h"
#include "canvas/qlayer.h"
#include "document/character.h"
#include "scriptedprompts.h"
#include "settings/recentfiles.h"
#include "settings/settings.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// Notes how many documents were open at each question, to show the order of events.
class CountingPrompts : public ScriptedPrompts
{
public:
    MainWindow* window = nullptr;
    QList<int> openAtQuestion;

    Answer message(QWidget* parent, const Message& message) override
    {
        openAtQuestion.append(int(window->layers().size()));
        return ScriptedPrompts::message(parent, message);
    }
    int doYouNeedHelp(QWidget* parent) override
    {
        openAtQuestion.append(int(window->layers().size()));
        return ScriptedPrompts::doYouNeedHelp(parent);
    }
};

QStringList titles(const QStringList& asked)
{
    QStringList result;
    for (const QString& question : asked)
        result.append(question.section(u':', 0, 1));
    return result;
}

} // namespace

class TestFirstRun : public QObject
{
    Q_OBJECT

private slots:
    void firstRunThenNoMore()
    {
        SettingsSandbox sandbox;
        const QString file = sandbox.path(u"a.zk"_s);
        Character character(0, QSize(128, 192));
        QVERIFY(character.saveCharacter(file, 1));
        {
            CountingPrompts prompts;
            MainWindow window;
            prompts.window = &window;
            Settings settings;
            Startup::run(window, settings, {u"zenkora"_s, file});
            QCOMPARE(
                titles(prompts.asked),
                QStringList({u"message:Bienvenue !"_s, u"message:Donation"_s, u"doYouNeedHelp"_s}));
            QCOMPARE(prompts.openAtQuestion, QList<int>({1, 1, 1}));
            QCOMPARE(window.layers().first()->filePath(), file);
            // The boxes are built as the toolkit's about boxes: the window's icon, Ok.
            for (const Prompts::Message& box : std::as_const(prompts.messages)) {
                QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
                QVERIFY(!box.iconPixmap.isNull());
            }
        }
        QVERIFY(sandbox.ini().contains("[showAgain]\nshowWelcome=0\n"));
        // The opening's recent entry was written meanwhile by a settings object of its
        // own; the first run's save wrote over it from the older image.
        QCOMPARE(RecentFiles::newestFirst(), QStringList());

        ScriptedPrompts prompts;
        MainWindow window;
        Settings settings;
        Startup::run(window, settings, {u"zenkora"_s});
        QCOMPARE(prompts.asked, QStringList());
    }

    // The rows of the offer of help open the guide, the manual, or nothing.
    void offerOfHelp_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("guide");
        QTest::addColumn<bool>("manual");
        QTest::newRow("guide") << 0 << true << false;
        QTest::newRow("manual") << 1 << false << true;
        QTest::newRow("nothing") << 2 << false << false;
        QTest::newRow("closed") << -1 << false << false;
    }

    void offerOfHelp()
    {
        QFETCH(int, row);
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        prompts.helpRows << row;
        window.doYouNeedHelp();
        const auto visible = [](const QWidget* widget) { return widget && widget->isVisible(); };
        QTEST(visible(window.helpCommands()->quickGuide()), "guide");
        QTEST(visible(window.helpCommands()->helpDialog()), "manual");
    }
};

QTEST_MAIN(TestFirstRun)
#include "tst_firstrun.moc"

// The manual and the quick guide on the pages of help/, the about boxes and the two
// web addresses.
#include "app/helpcommands.h"
#include "app/helppages.h"
#include "app/mainwindow.h"
#include "app/qhelpdialog.h"
#include "app/qquickguide.h"
#include "app/webaddresses.h"
#include "scriptedprompts.h"
#include "testfiles.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTextBrowser>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

const QString Source = QStringLiteral(ZENKORA_SOURCE_DIR "/");

QString pageText(const QString& file)
{
    QFile page(file);
    page.open(QIODevice::ReadOnly);
    return QString::fromUtf8(page.readAll());
}

QStringList matches(const QString& text, const QString& pattern)
{
    QStringList found;
    QRegularExpressionMatchIterator it = QRegularExpression(pattern).globalMatch(text);
    while (it.hasNext())
        found.append(it.next().captured(1));
    return found;
}

// A settings sandbox whose working directory holds the manual, as the program's does.
struct HelpSandbox : SettingsSandbox
{
    HelpSandbox() { QFile::link(Source + u"help"_s, path(u"help"_s)); }
};

} // namespace

// Catches what the program hands to the desktop's browser.
class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> opened;

public slots:
    void open(const QUrl& url) { opened.append(url); }
};

class TestHelp : public QObject
{
    Q_OBJECT

private slots:
    void everyChapterHasItsPage()
    {
        int pages = 0;
        for (const HelpPages::Chapter& chapter : HelpPages::tree()) {
            const QStringList titles =
                chapter.children.isEmpty() ? QStringList({chapter.title}) : chapter.children;
            for (const QString& title : titles) {
                QVERIFY2(QFileInfo(Source + HelpPages::pageOf(title)).isFile(), qPrintable(title));
                ++pages;
            }
        }
        QCOMPARE(pages, 26);
        QCOMPARE(HelpPages::pageOf(u"Rectangle / Cercle"_s), u"help/rectangle___cercle.html"_s);
        QCOMPARE(HelpPages::pageOf(u"Zone d'effet des retouches"_s),
                 u"help/zone_deffet_des_retouches.html"_s);
        QCOMPARE(HelpPages::pageOf(u"Editeur de dégradé"_s), u"help/editeur_de_dégradé.html"_s);
    }

    // From the first page and the guide, every relative link and picture leads to a
    // file, and every fragment to an id of its page; every menu entry quoted exists.
    void linksPicturesAndMenus()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        QSet<QString> actions;
        for (const QAction* action : window.findChildren<QAction*>())
            actions.insert(action->text().remove(u'&'));

        const QDir help(Source + u"help"_s);
        QStringList queue = {u"introduction.html"_s, u"guide_express.html"_s};
        QSet<QString> seen(queue.cbegin(), queue.cend());
        while (!queue.isEmpty()) {
            const QString name = queue.takeFirst();
            const QString text = pageText(help.filePath(name));
            QVERIFY2(text.contains(u"<meta http-equiv=\"Content-Type\" content=\"text/html; "
                                   u"charset=utf-8\">"_s),
                     qPrintable(name));
            for (const QString& menu : matches(text, u"<span class=\"menu\">([^<]*)</span>"_s))
                QVERIFY2(actions.contains(menu), qPrintable(name + u": "_s + menu));
            for (const QString& picture : matches(text, u"<img src=\"([^\"]+)\""_s))
                QVERIFY2(QFileInfo(help.filePath(picture)).isFile(),
                         qPrintable(name + u": "_s + picture));
            for (const QString& link : matches(text, u"<a href=\"([^\"]+)\""_s)) {
                QVERIFY2(!link.contains(u':'), qPrintable(name + u": "_s + link));
                const QString file = link.section(u'#', 0, 0);
                const QString fragment = link.section(u'#', 1);
                QVERIFY2(QFileInfo(help.filePath(file)).isFile(),
                         qPrintable(name + u": "_s + link));
                if (!fragment.isEmpty())
                    QVERIFY2(pageText(help.filePath(file)).contains(u"id=\""_s + fragment + u'"'),
                             qPrintable(link));
                if (!seen.contains(file)) {
                    seen.insert(file);
                    queue.append(file);
                }
            }
        }
        QCOMPARE(seen.size(), 27);
    }

    void manualWindow()
    {
        HelpSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        window.showHelp_Create_Character();
        QHelpDialog* dialog = window.helpCommands()->helpDialog();
        QVERIFY(dialog && dialog->isVisible());
        QCOMPARE(dialog->currentUrl().fragment(), u"id_1"_s);
        QCOMPARE(dialog->browser()->source().fileName(), u"créer_un_character.html"_s);
        QCOMPARE(dialog->browser()->source().fragment(), u"id_1"_s);
        QCOMPARE(dialog->treeView()->currentIndex().data().toString(), u"Créer un character"_s);

        window.showHelp(u"help/rectangle___cercle.html"_s);
        QCOMPARE(window.helpCommands()->helpDialog(), dialog);
        QCOMPARE(dialog->browser()->source().fileName(), u"rectangle___cercle.html"_s);
        QCOMPARE(dialog->treeView()->currentIndex().data().toString(), u"Rectangle / Cercle"_s);

        // A folder of the tree only opens and closes.
        const QModelIndex folder = dialog->treeView()->model()->index(1, 0);
        const bool expanded = dialog->treeView()->isExpanded(folder);
        dialog->loadFromItem(folder);
        QCOMPARE(dialog->treeView()->isExpanded(folder), !expanded);
        QCOMPARE(dialog->browser()->source().fileName(), u"rectangle___cercle.html"_s);

        // A relative link opens here.
        emit dialog->browser()->anchorClicked(QUrl(u"pinceau.html"_s));
        QCOMPARE(dialog->browser()->source().fileName(), u"pinceau.html"_s);

        window.showHelp(u"help/absente.html"_s);
        QVERIFY(dialog->browser()->toPlainText().startsWith(u"Page introuvable\nabsente.html"_s));
    }

    void fragmentIsNoPartOfTheFileName()
    {
        const QUrl url = HelpPages::urlOf(u"/data/"_s, u"help/créer_un_character.html#id_1"_s);
        QCOMPARE(url.toLocalFile(), u"/data/help/créer_un_character.html"_s);
        QCOMPARE(url.fragment(), u"id_1"_s);
    }

    // The working directory wins when it holds the manual, as it does for the library.
    void helpFolderIsFound()
    {
        QTemporaryDir working;
        QCOMPARE(HelpPages::base(working.path(), u"/opt/zenkora"_s), u"/opt/zenkora/"_s);
        QDir(working.path()).mkpath(u"help"_s);
        writeFile(working.filePath(u"help/introduction.html"_s), "<html></html>");
        QCOMPARE(HelpPages::base(working.path(), u"/opt/zenkora"_s), working.path() + u'/');
    }

    void quickGuideOpensTheManualOnChapters()
    {
        HelpSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        window.showQuickHelp();
        QQuickGuide* guide = window.helpCommands()->quickGuide();
        QVERIFY(guide && guide->isVisible());
        QCOMPARE(guide->windowTitle(), u"Introduction à Zenkora"_s);
        QCOMPARE(guide->browser()->source().fileName(), u"guide_express.html"_s);
        emit guide->browser()->anchorClicked(QUrl(u"ajouter_des_éléments.html"_s));
        QHelpDialog* dialog = window.helpCommands()->helpDialog();
        QVERIFY(dialog && dialog->isVisible());
        QCOMPARE(dialog->browser()->source().fileName(), u"ajouter_des_éléments.html"_s);
        QCOMPARE(guide->browser()->source().fileName(), u"guide_express.html"_s);
        guide->manualButton()->click();
        QCOMPARE(dialog->browser()->source().fileName(), u"introduction.html"_s);
        window.showQuickHelp();
        QCOMPARE(window.helpCommands()->quickGuide(), guide);
    }

    void webAddresses_data()
    {
        QTest::addColumn<QString>("forum");
        QTest::addColumn<QString>("donation");
        QTest::newRow("none") << QString() << QString();
        QTest::newRow("both") << u"https://forum.test/zk"_s << u"https://don.test/"_s;
    }

    void webAddresses()
    {
        QFETCH(QString, forum);
        QFETCH(QString, donation);
        UrlCatcher catcher;
        QDesktopServices::setUrlHandler(u"https"_s, &catcher, "open");
        WebAddresses::set(forum, donation);
        {
            HelpSandbox sandbox;
            ScriptedPrompts prompts;
            MainWindow window;
            QAction* action = window.action(u"forum"_s);
            QCOMPARE(action->isEnabled(), !forum.isEmpty());
            action->trigger();
            window.aboutZK();
            window.aboutThanks();
            window.welcome();
            window.donation();
            QString texts;
            for (const Prompts::Message& box : std::as_const(prompts.messages))
                texts += box.text;
            QCOMPARE(texts.contains(u"<a "_s), !forum.isEmpty());
            QCOMPARE(matches(texts, u"<a href=\"([^\"]+)\""_s).contains(donation),
                     !donation.isEmpty());
            QCOMPARE(texts.contains(u"paiement"_s), !donation.isEmpty());
            QVERIFY(texts.contains(u"Marlowick"_s));

            // A web link of the manual goes to the browser.
            window.showHelp();
            emit window.helpCommands()->helpDialog()->browser()->anchorClicked(
                QUrl(u"https://page.test/"_s));
        }
        WebAddresses::reset();
        QDesktopServices::unsetUrlHandler(u"https"_s);
        QList<QUrl> expected;
        if (!forum.isEmpty())
            expected.append(QUrl(forum));
        expected.append(QUrl(u"https://page.test/"_s));
        QCOMPARE(catcher.opened, expected);
    }
};

QTEST_MAIN(TestHelp)
#include "tst_help.moc"

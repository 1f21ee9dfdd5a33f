#include "app/helpcommands.h"

#include "app/mainwindow.h"
#include "app/prompts.h"
#include "app/qhelpdialog.h"
#include "app/qquickguide.h"
#include "app/webaddresses.h"

#include <QAction>
#include <QDesktopServices>
#include <QUrl>

namespace {

// The forum's name, as a link when its address is known.
QString forumName()
{
    const QString forum = WebAddresses::forum();
    if (forum.isEmpty())
        return QStringLiteral("Marlowick");
    return QStringLiteral("<a href=\"") + forum.toHtmlEscaped() +
           QStringLiteral("\">Marlowick</a>");
}

QString aboutBody()
{
    return QStringLiteral("<p>Zenkora permet de créer et de modifier rapidement les characters "
                          "et les tilesets de RPG Maker XP et de RPG Maker VX.</p>"
                          "<p>Son développement a été soutenu par le forum ") +
           forumName() +
           QStringLiteral(".</p><p>Zenkora est réalisé par l'équipe de Zenkora. Il est "
                          "entièrement gratuit.</p>");
}

QString thanksBody()
{
    return QStringLiteral("<p>Merci à toutes les personnes qui ont testé Zenkora, et aux "
                          "membres du forum Marlowick, qui ont soutenu le projet par leurs "
                          "idées, leurs remarques et leurs encouragements.</p>");
}

} // namespace

HelpCommands::HelpCommands(MainWindow& window) : m_window(window)
{
    m_window.action(QStringLiteral("forum"))->setEnabled(!WebAddresses::forum().isEmpty());
}

// Both windows are children of the main window, which would delete them after the
// members they reach through this object.
HelpCommands::~HelpCommands()
{
    delete m_guide;
    delete m_help;
}

QHelpDialog* HelpCommands::helpDialog() const
{
    return m_help;
}

QQuickGuide* HelpCommands::quickGuide() const
{
    return m_guide;
}

void HelpCommands::showHelp(const QString& page)
{
    if (!m_help)
        m_help = new QHelpDialog(page, QString(), &m_window);
    else
        m_help->load(page);
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}

void HelpCommands::showQuickHelp()
{
    if (!m_guide) {
        m_guide = new QQuickGuide(QString(), &m_window);
        QObject::connect(
            m_guide, &QQuickGuide::manualRequested, &m_window, [this](const QString& page) {
                showHelp(page.isEmpty() ? QStringLiteral("help/introduction.html") : page);
            });
    }
    m_guide->show();
    m_guide->raise();
    m_guide->activateWindow();
}

// As QMessageBox::about builds its box: rich text, the window's icon, one Ok button.
void HelpCommands::showBox(const QString& title, const QString& text)
{
    const QIcon icon = m_window.windowIcon();
    Prompts::Message box;
    box.title = title;
    box.text = text;
    box.iconPixmap = icon.pixmap(icon.actualSize(QSize(64, 64)));
    box.buttons = QMessageBox::Ok;
    Prompts::instance()->message(&m_window, box);
}

void HelpCommands::aboutZK()
{
    showBox(QStringLiteral("A propos de Zenkora"),
            QStringLiteral("<h3>Zenkora 1.0.0</h3>") + aboutBody());
}

void HelpCommands::aboutThanks()
{
    showBox(QStringLiteral("Remerciement"), QStringLiteral("<h3>Merci qui ?</h3>") + thanksBody());
}

void HelpCommands::welcome()
{
    showBox(QStringLiteral("Bienvenue !"),
            QStringLiteral("<h3>Bienvenue !</h3><p>Bienvenue dans Zenkora 1.0.0 !</p>"
                           "<p>Merci d'avoir téléchargé Zenkora.</p>") +
                aboutBody() + thanksBody());
}

void HelpCommands::donation()
{
    const QString address = WebAddresses::donation();
    const QString picture = QStringLiteral("<img src=\":/icon/donation.png\" />");
    QString text = QStringLiteral("<h1>Faire un don</h1><p>Zenkora est gratuit et le restera. "
                                  "Si vous l'appréciez, vous pouvez aider l'équipe de Zenkora "
                                  "à le faire vivre par un don, du montant que vous "
                                  "voulez.</p><p align=\"center\">");
    if (address.isEmpty()) {
        text += picture + QStringLiteral("</p>");
    } else {
        text += QStringLiteral("<a href=\"") + address.toHtmlEscaped() + QStringLiteral("\">") +
                picture +
                QStringLiteral("</a></p><p>Un clic sur l'image ouvre la page de paiement dans "
                               "votre navigateur : le don s'y fait en toute sécurité, sans "
                               "passer par Zenkora.</p>");
    }
    showBox(QStringLiteral("Donation"), text);
}

void HelpCommands::doYouNeedHelp()
{
    switch (Prompts::instance()->doYouNeedHelp(&m_window)) {
    case 0:
        showQuickHelp();
        break;
    case 1:
        showHelp(QStringLiteral("help/introduction.html"));
        break;
    default:
        break;
    }
}

void HelpCommands::openForum()
{
    const QString forum = WebAddresses::forum();
    if (!forum.isEmpty())
        QDesktopServices::openUrl(QUrl(forum));
}

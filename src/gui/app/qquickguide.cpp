#include "app/qquickguide.h"

#include "app/helppages.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

QQuickGuide::QQuickGuide(const QString& base, QWidget* parent)
    : QWidget(parent, Qt::Window), m_browser(new QTextBrowser),
      m_manualButton(new QPushButton(QIcon(QStringLiteral(":/icon/helpicon.png")),
                                     QStringLiteral("Ouvrir le manuel d'aide")))
{
    setWindowTitle(QStringLiteral("Introduction à Zenkora"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/helpicon.png")));
    m_browser->setOpenLinks(false);
    connect(m_browser, &QTextBrowser::anchorClicked, this, &QQuickGuide::followLink);
    connect(m_manualButton, &QPushButton::clicked, this,
            [this] { emit manualRequested(QString()); });

    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->addWidget(m_browser, 1);
    layout->addWidget(m_manualButton, 0, Qt::AlignRight);
    resize(720, 640);

    m_page = HelpPages::urlOf(base.isEmpty() ? HelpPages::locateBase() : base,
                              QStringLiteral("help/guide_express.html"));
    if (QFileInfo(m_page.toLocalFile()).isFile())
        m_browser->setSource(m_page);
    else
        m_browser->setHtml(QStringLiteral("<h2>Page introuvable</h2><p>guide_express.html</p>"));
}

// Chapters open in the manual, which has the tree; the guide stays as it is.
void QQuickGuide::followLink(const QUrl& link)
{
    const QUrl target = m_page.resolved(link);
    if (!target.isLocalFile()) {
        QDesktopServices::openUrl(target);
        return;
    }
    if (target.adjusted(QUrl::RemoveFragment) == m_page) {
        m_browser->setSource(target);
        return;
    }
    QString page = QStringLiteral("help/") + QFileInfo(target.toLocalFile()).fileName();
    if (target.hasFragment())
        page += QLatin1Char('#') + target.fragment();
    emit manualRequested(page);
}

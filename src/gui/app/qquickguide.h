#pragma once

#include <QUrl>
#include <QWidget>

class QPushButton;
class QTextBrowser;

// The short guide, "Introduction à Zenkora": one page of its own above a button that
// opens the manual. Its pictures link to the manual's chapters, and a click on one
// asks for the manual on that chapter.
class QQuickGuide : public QWidget
{
    Q_OBJECT

public:
    // base is the folder that holds "help/".
    explicit QQuickGuide(const QString& base = QString(), QWidget* parent = nullptr);

    QTextBrowser* browser() const { return m_browser; }
    QPushButton* manualButton() const { return m_manualButton; }

signals:
    // A page of the manual, named as the program names them ("help/pinceau.html"),
    // or empty for the manual's first page.
    void manualRequested(const QString& page);

private:
    void followLink(const QUrl& link);

    QTextBrowser* m_browser = nullptr;
    QPushButton* m_manualButton = nullptr;
    QUrl m_page;
};

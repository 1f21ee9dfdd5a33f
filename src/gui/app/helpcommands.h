#pragma once

#include <QPointer>
#include <QString>

class MainWindow;
class QHelpDialog;
class QQuickGuide;

// The "?" menu and the first run: the manual and the quick guide, each one window
// brought forward at every request, the fixed boxes, the offer of help, the forum.
class HelpCommands
{
public:
    // Made once the menus exist: without a forum address "Marlowick" is disabled.
    explicit HelpCommands(MainWindow& window);
    ~HelpCommands();

    // A page named as the program names them: "help/créer_un_character.html#id_1".
    void showHelp(const QString& page);
    void showQuickHelp();
    void aboutZK();
    void aboutThanks();
    void welcome();
    void donation();
    void doYouNeedHelp();
    void openForum();

    // The two windows, null until first shown.
    QHelpDialog* helpDialog() const;
    QQuickGuide* quickGuide() const;

private:
    void showBox(const QString& title, const QString& text);

    MainWindow& m_window;
    QPointer<QHelpDialog> m_help;
    QPointer<QQuickGuide> m_guide;
};

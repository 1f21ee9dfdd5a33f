// The zenkora executable: start-up and shutdown in their fixed order.
#include "app/mainwindow.h"
#include "app/startup.h"
#include "settings/settings.h"

#include <QApplication>
#include <QLocale>
#include <QTranslator>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setStartDragDistance(15);
    // The only catalogue compiled in is the toolkit's French one: it translates the
    // standard buttons and dialogs; the program's own texts are French already.
    QTranslator translator;
    (void)translator.load(QStringLiteral(":/translations/") + QLocale::system().name());
    QApplication::installTranslator(&translator);
    QApplication::setApplicationName(QStringLiteral("Zenkora"));
    QApplication::setApplicationVersion(QStringLiteral("1.0.0"));

    // This object is an image of the file as it stands now; it lives until shutdown
    // and writes only if it changes itself, so it never overwrites later settings.
    Settings settings;
    MainWindow window;
    window.show();

    QString opened;
    settings.get(QStringLiteral("opened"), opened);
    Startup::open(window, Startup::openings(app.arguments(), opened));

    bool showWelcome = true;
    settings.get(QStringLiteral("showWelcome"), showWelcome);
    if (showWelcome) {
        window.welcome();
        window.donation();
        window.doYouNeedHelp();
        settings.set(QStringLiteral("showAgain"), QStringLiteral("showWelcome"), false);
        settings.save();
    }
    return app.exec();
}

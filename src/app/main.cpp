// The zenkora executable: start-up and shutdown in their fixed order.
#include "app/mainwindow.h"
#include "app/startup.h"
#include "settings/settings.h"

#include <QApplication>
#include <QTranslator>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setStartDragDistance(15);
    // The program speaks French, so the toolkit's buttons and dialogs do too, whatever
    // the system's language: no box mixes English buttons with French texts.
    QTranslator translator;
    Startup::installCatalogue(translator);
    QApplication::setApplicationName(QStringLiteral("Zenkora"));
    QApplication::setApplicationVersion(QStringLiteral("1.0.0"));

    // This object is an image of the file as it stands now; it lives until shutdown
    // and writes only if it changes itself, so it never overwrites later settings.
    Settings settings;
    MainWindow window;
    window.show();

    Startup::run(window, settings, app.arguments());
    return app.exec();
}

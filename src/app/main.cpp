#include "app/mainwindow.h"

#include <QApplication>
#include <QLocale>
#include <QTranslator>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setStartDragDistance(15);
    QTranslator translator;
    (void)translator.load(QStringLiteral(":/translations/") + QLocale::system().name());
    QApplication::installTranslator(&translator);
    QApplication::setApplicationName(QStringLiteral("Zenkora"));
    QApplication::setApplicationVersion(QStringLiteral("1.0.0"));
    MainWindow window;
    window.show();
    return app.exec();
}

// Takes the pictures of the manual, and optionally the pictures of a first run, from
// the program itself. Run it under a display server (scripts/helpshots does, with
// Xvfb) from the build's bin folder, where the library and the manual lie.
//
//   zenkora-helpshots <manual pictures folder> [<first run pictures folder>]
#include "app/helpcommands.h"
#include "app/mainwindow.h"
#include "app/qcombowidget.h"
#include "app/qdropwidget.h"
#include "app/qhelpdialog.h"
#include "app/qquickguide.h"
#include "app/startup.h"
#include "app/toolstate.h"
#include "canvas/elementcommands.h"
#include "canvas/qlayer.h"
#include "colour/qcolorbox.h"
#include "colour/qgradienteditor.h"
#include "library/elementadder.h"
#include "library/qaddcharacterelementbox.h"
#include "settings/settings.h"

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

namespace {

void settle(int ms = 300)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

bool save(QWidget* widget, const QString& file)
{
    settle();
    const bool saved = widget->grab().save(file, "PNG");
    qInfo("%s %s", saved ? "wrote" : "could not write", qPrintable(file));
    return saved;
}

// The villager of the manual's examples, built from the starter library.
QLayer* villager(MainWindow& window)
{
    window.addCharacter(QStringLiteral("Villageois"), 128, 192, 0);
    QLayer* layer = window.activeLayer();
    const QString library =
        QCoreApplication::applicationDirPath() + QStringLiteral("/elements/XP/");
    for (const char* file : {"Corps/Corps mince", "Bas/Pantalon", "Chaussures/Bottes",
                             "Hauts/Chemise", "Cheveux/Courts", "Accessoires/Chapeau"}) {
        ElementAdder::addImage(*layer->character(),
                               library + QString::fromUtf8(file) + QStringLiteral(".png"), false);
    }
    ElementCommands::finishChange(layer, window.layerList(), "Ajout de Chapeau");
    window.updateZoomP();
    return layer;
}

void manualPictures(const QString& folder)
{
    MainWindow window;
    window.resize(1024, 720);
    window.show();
    villager(window);
    save(&window, folder + QStringLiteral("/fenetre_principale.png"));

    window.addCharacterElement();
    if (auto* box = window.findChild<QAddCharacterElementBox*>())
        save(box, folder + QStringLiteral("/ajouter_des_elements.png"));

    save(window.colorBox(), folder + QStringLiteral("/fenetre_de_couleur.png"));

    QGradientEditor editor(window.toolState()->gradient, Qt::red, &window);
    editor.show();
    save(&editor, folder + QStringLiteral("/editeur_de_degrade.png"));
}

// Answers each modal window of the first run once its picture is taken.
class ModalWatcher : public QObject
{
public:
    ModalWatcher(const QString& folder) : m_folder(folder)
    {
        connect(&m_timer, &QTimer::timeout, this, &ModalWatcher::check);
        m_timer.start(200);
    }

private:
    void check()
    {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || modal == m_last)
            return;
        m_last = modal;
        m_timer.stop();
        settle(500);
        const QString name =
            modal->windowTitle().isEmpty() ? QStringLiteral("sans titre") : modal->windowTitle();
        save(modal,
             m_folder +
                 QStringLiteral("/%1 %2.png").arg(++m_count, 2, 10, QLatin1Char('0')).arg(name));
        if (auto* drop = qobject_cast<QDropWidget*>(modal))
            drop->cancelAction();
        else if (auto* combo = qobject_cast<QComboWidget*>(modal))
            emit combo->row(0)->clicked();
        else if (auto* dialog = qobject_cast<QDialog*>(modal))
            dialog->accept();
        m_timer.start(200);
    }

    QString m_folder;
    QTimer m_timer;
    QWidget* m_last = nullptr;
    int m_count = 0;

public:
    // Pictures taken by others in between keep the numbering in order.
    void skip(int count) { m_count += count; }
};

// A first run from no settings file: the three boxes, the guide the offer of help
// opens, the manual on a chapter, and the question about a dropped image.
void firstRunPictures(const QString& folder)
{
    ModalWatcher watcher(folder);
    MainWindow window;
    window.resize(1024, 720);
    window.show();
    settle();
    Settings settings;
    Startup::run(window, settings, {QStringLiteral("zenkora")});
    if (QQuickGuide* guide = window.helpCommands()->quickGuide())
        save(guide, folder + QStringLiteral("/04 guide express.png"));
    window.showHelp(QStringLiteral("help/rectangle___cercle.html"));
    save(window.helpCommands()->helpDialog(),
         folder + QStringLiteral("/05 manuel rectangle cercle.png"));
    window.helpCommands()->helpDialog()->close();
    window.helpCommands()->quickGuide()->close();
    watcher.skip(2);

    villager(window);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QCoreApplication::applicationDirPath() +
                                      QStringLiteral("/elements/XP/Hauts/Veste.png"))});
    QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QDropEvent drop(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &drop);
    settle(1500);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 2) {
        qWarning("usage: zenkora-helpshots <manual pictures folder> [<first run folder>]");
        return 1;
    }
    // Settings go to a folder of their own, never to those of the program.
    QTemporaryDir working;
    QDir::setCurrent(working.path());
    {
        QFile ini(working.filePath(QStringLiteral("zenkora.ini")));
        ini.open(QIODevice::WriteOnly);
    }
    manualPictures(QDir(arguments.at(1)).absolutePath());
    if (arguments.size() > 2) {
        QFile::remove(working.filePath(QStringLiteral("zenkora.ini")));
        firstRunPictures(QDir(arguments.at(2)).absolutePath());
    }
    return 0;
}

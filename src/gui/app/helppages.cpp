#include "app/helppages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QList<HelpPages::Chapter> HelpPages::tree()
{
    return {
        {QStringLiteral("Introduction"), {}},
        {QStringLiteral("Débuter"),
         {QStringLiteral("Créer un character"), QStringLiteral("Ajouter des éléments"),
          QStringLiteral("Fenêtres des éléments et de rendu"),
          QStringLiteral("Enregistrer un character"), QStringLiteral("Exemple de création")}},
        {QStringLiteral("Fonctions de retouche"),
         {QStringLiteral("Zone d'effet des retouches"), QStringLiteral("Déplacement"),
          QStringLiteral("Coloration"), QStringLiteral("Redimension"), QStringLiteral("Rotation"),
          QStringLiteral("Restauration"), QStringLiteral("Exemple de retouche")}},
        {QStringLiteral("Fonctions de dessin"),
         {QStringLiteral("Calques de dessin"), QStringLiteral("Zone d'effet du dessin"),
          QStringLiteral("Fenêtre de couleur"), QStringLiteral("Pipette"),
          QStringLiteral("Pinceau"), QStringLiteral("Ligne"), QStringLiteral("Rectangle / Cercle"),
          QStringLiteral("Editeur de dégradé"), QStringLiteral("Gomme"),
          QStringLiteral("Exemple de dessin")}},
        {QStringLiteral("Annexes"),
         {QStringLiteral("Conversion de characters"), QStringLiteral("Fusion de tilesets"),
          QStringLiteral("Ajouter des éléments à la bibliothèque")}},
    };
}

QString HelpPages::pageOf(const QString& chapter)
{
    QString name = chapter;
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    name.remove(QLatin1Char('\''));
    name.replace(QLatin1Char(' '), QLatin1Char('_'));
    return QStringLiteral("help/") + name.trimmed().toLower() + QStringLiteral(".html");
}

QString HelpPages::base(const QString& working, const QString& application)
{
    const bool inWorking =
        QFileInfo(QDir(working).filePath(QStringLiteral("help/introduction.html"))).isFile();
    const QString folder = inWorking ? working : application;
    return folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
}

QString HelpPages::locateBase()
{
    return base(QDir::currentPath(), QCoreApplication::applicationDirPath());
}

QUrl HelpPages::urlOf(const QString& base, const QString& page)
{
    const qsizetype hash = page.indexOf(QLatin1Char('#'));
    QUrl url = QUrl::fromLocalFile(QDir(base).absoluteFilePath(page.left(hash)));
    if (hash >= 0)
        url.setFragment(page.mid(hash + 1));
    return url;
}

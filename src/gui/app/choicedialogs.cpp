#include "app/choicedialogs.h"

#include "app/qcombowidget.h"
#include "formats/filenames.h"

#include <QAbstractButton>
#include <QMessageBox>

namespace {
QPixmap icon(const QString& name)
{
    return QPixmap(QStringLiteral(":/icon/") + name + QStringLiteral(".png"));
}

// File names go into rich text: a "<" or "&" in one must not start markup.
QString shownName(const QString& name)
{
    return fileNameOf(name).toHtmlEscaped();
}
} // namespace

QComboWidget* ChoiceDialogs::elementType(QWidget* parent)
{
    auto* dialog =
        new QComboWidget(QStringLiteral("<h2>Quel est le type de l'élément ?</h2>"),
                         QStringLiteral("<i>Cliquez sur le type correspondant.</i>"), parent);
    dialog->setWindowTitle(QStringLiteral("Type de l'élément"));
    dialog->addOption(icon(QStringLiteral("icon_xp")), QStringLiteral("<h3>RPG Maker XP</h3>"),
                      QStringLiteral("L'élément est pour RPG Maker XP."));
    dialog->addOption(icon(QStringLiteral("icon_vx")), QStringLiteral("<h3>RPG Maker VX</h3>"),
                      QStringLiteral("L'élément est pour RPG Maker VX."));
    return dialog;
}

QComboWidget* ChoiceDialogs::vxCharacterCount(QWidget* parent)
{
    auto* dialog = new QComboWidget(
        QStringLiteral("<b>Vous souhaitez convertir des characters de RPG Maker VX</b><br />"),
        QStringLiteral("<i>Combien de character y a-t-il dans chaque image ?</i>"), parent);
    dialog->setWindowTitle(QStringLiteral("Convertir un character de RPG Maker VX"));
    dialog->addOption(icon(QStringLiteral("search")),
                      QStringLiteral("<h3>Rechercher le nombre</h3>"),
                      QStringLiteral("Si le nom du fichier contient le symbole <i>$</i> dans "
                                     "les<br />deux premières lettres du nom, alors le fichier "
                                     "ne<br />contient qu'un character. Sinon, il en contient "
                                     "huit."));
    dialog->addOption(icon(QStringLiteral("alone")), QStringLiteral("<h3>Un seul character</h3>"),
                      QStringLiteral("Chaque fichier ne contient qu'un seul character."));
    dialog->addOption(icon(QStringLiteral("all")), QStringLiteral("<h3>Huit characters</h3>"),
                      QStringLiteral("Chaque fichier contient à lui seul huit characters."));
    return dialog;
}

QComboWidget* ChoiceDialogs::defaultCharacter(const std::function<void()>& showHelp,
                                              const std::function<void()>& assignAsDefault,
                                              QWidget* parent)
{
    // The subtitle is plain text: its line breaks are real ones.
    auto* dialog = new QComboWidget(
        icon(QStringLiteral("newCustom")),
        QStringLiteral("<h3>Ouvrir le character par défaut</h3>"),
        QStringLiteral("Cette option permet de créer un nouveau character qui possède\n"
                       "les mêmes caractéristiques et éléments que le character désigné\n"
                       "comme par défaut. Consultez le manuel d'aide pour plus d'informations."),
        parent);
    dialog->setWindowTitle(QStringLiteral("Character par défaut"));
    dialog->addOption(icon(QStringLiteral("helpicon")), QStringLiteral("<h3>Manuel d'aide</h3>"),
                      QStringLiteral("Ouvrir le manuel d'aide pour plus d'informations."), false);
    dialog->addOption(icon(QStringLiteral("setCustom")),
                      QStringLiteral("<h3>Assigner comme character par défaut</h3>"),
                      QStringLiteral("Assigner le character ouvert comme character par défaut."),
                      false);
    dialog->addOption(icon(QStringLiteral("myOk")), QStringLiteral("<h3>Ok</h3>"),
                      QStringLiteral("Fermer la boîte de dialogue."));
    if (showHelp)
        dialog->connect(0, &QOptionWidget::clicked, dialog, showHelp);
    if (assignAsDefault)
        dialog->connect(1, &QOptionWidget::clicked, dialog, assignAsDefault);
    return dialog;
}

QComboWidget* ChoiceDialogs::closeWithChanges(const QString& name, const QPixmap& thumbnail,
                                              bool withSaveAll, QWidget* parent)
{
    auto* dialog = new QComboWidget(
        thumbnail,
        QStringLiteral("<b>Le fichier suivant a des modifications non enregistrées :</b><br />") +
            shownName(name),
        QStringLiteral("<i>Que souhaitez-vous faire ?</i>"), parent);
    dialog->setWindowTitle(QStringLiteral("Fermer un fichier"));
    dialog->addOption(icon(QStringLiteral("saveDialog")), QStringLiteral("<h3>Enregistrer</h3>"),
                      QStringLiteral("Enregistrer les modifications et fermer le fichier."));
    if (withSaveAll)
        dialog->addOption(
            icon(QStringLiteral("saveAllDialog")), QStringLiteral("<h3>Enregistrer tout</h3>"),
            QStringLiteral("Enregistrer les modifications et fermer tous les fichiers."));
    dialog->addOption(icon(QStringLiteral("dontSaveDialog")),
                      QStringLiteral("<h3>Ne pas enregistrer</h3>"),
                      QStringLiteral("Ignorer les modifications et fermer le fichier."));
    dialog->addOption(icon(QStringLiteral("undoDialog")), QStringLiteral("<h3>Annuler</h3>"),
                      QStringLiteral("Ne pas fermer le fichier."));
    return dialog;
}

int ChoiceDialogs::closeRowOf(int index, bool withSaveAll)
{
    if (index < 0 || withSaveAll || index == CloseSave)
        return index;
    return index + 1;
}

QComboWidget* ChoiceDialogs::doYouNeedHelp(QWidget* parent)
{
    auto* dialog = new QComboWidget(
        QStringLiteral("<h3>Besoin d'aide ?</h3>"),
        QStringLiteral("<em>Souhaitez-vous obtenir de l'aide sur l'utilisation de Zenkora ?</em>"),
        parent);
    dialog->setWindowTitle(QStringLiteral("Aide à propos de Zenkora"));
    dialog->addOption(icon(QStringLiteral("ZK")),
                      QStringLiteral("<h3>Lire <em>Introduction à Zenkora</em></h3>"),
                      QStringLiteral("Lire un court manuel d'aide présentant rapidement les "
                                     "<br />fonctions de Zenkora."));
    dialog->addOption(icon(QStringLiteral("helpicon")),
                      QStringLiteral("<h3>Lire le Manuel d'aide</h3>"),
                      QStringLiteral("Lire le manuel d'aide décrivant l'intégralité de "
                                     "<br />Zenkora."));
    dialog->addOption(icon(QStringLiteral("remove")), QStringLiteral("<h3>Ne rien lire</h3>"),
                      QStringLiteral("Ne lire aucune aide. Les manuels ci-dessus sont "
                                     "<br />néanmoins accessibles dans le menu <em>?</em>."));
    return dialog;
}

QMessageBox* ChoiceDialogs::closeMessage(const QString& name, const QPixmap& thumbnail,
                                         bool withSaveAll, QWidget* parent)
{
    auto* box = new QMessageBox(parent);
    box->setWindowTitle(QStringLiteral("Fermeture"));
    const QString head = withSaveAll ? QStringLiteral("<h3>Fermer un character</h3>")
                                     : QStringLiteral("<h2>Fermer un character</h2>");
    box->setText(head +
                 QStringLiteral("<br /><b>Le fichier suivant a des modifications non "
                                "enregistrées :</b><br />") +
                 shownName(name));
    box->setInformativeText(QStringLiteral("<i>Que souhaitez-vous faire ?</i>"));
    box->setIconPixmap(thumbnail);
    QMessageBox::StandardButtons buttons =
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    if (withSaveAll)
        buttons |= QMessageBox::SaveAll;
    box->setStandardButtons(buttons);
    const auto setIcon = [box](QMessageBox::StandardButton which, const QString& name) {
        box->button(which)->setIcon(QIcon(icon(name)));
    };
    setIcon(QMessageBox::Save, QStringLiteral("Save"));
    if (withSaveAll)
        setIcon(QMessageBox::SaveAll, QStringLiteral("SaveAll"));
    setIcon(QMessageBox::Discard, QStringLiteral("dontSaveDialog"));
    setIcon(QMessageBox::Cancel, QStringLiteral("remove"));
    return box;
}

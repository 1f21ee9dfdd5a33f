#include "app/closequestion.h"

#include "document/character.h"

Prompts::Message CloseQuestion::clean(const QString& name)
{
    Prompts::Message question;
    question.icon = QMessageBox::Question;
    question.title = QStringLiteral("Fermeture");
    question.text = QStringLiteral("<h3>Fermer un character</h3>");
    question.informativeText =
        QStringLiteral("Etes-vous sûr(e) de vouloir fermer ") + name + QStringLiteral(" ?");
    question.buttons = QMessageBox::Yes | QMessageBox::No;
    question.checkBoxText = QStringLiteral("Ne plus afficher ce message");
    return question;
}

QPixmap CloseQuestion::thumbnail(const Character& character)
{
    const QImage sheet = character.compose();
    return QPixmap::fromImage(
        sheet.scaled(96, 96, Qt::KeepAspectRatio, Qt::FastTransformation));
}

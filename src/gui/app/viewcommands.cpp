#include "app/viewcommands.h"

#include "app/mainwindow.h"
#include "app/prompts.h"
#include "canvas/qlayer.h"
#include "settings/settings.h"

#include <QLineEdit>

#include <cmath>

ViewCommands::ViewCommands(MainWindow& window) : m_window(window) {}

void ViewCommands::writeZoom(const Character* character)
{
    m_window.zoomBox()->setText(QString::number(std::lround(100 * character->zoom())) +
                                QStringLiteral(" %"));
}

void ViewCommands::changeBg()
{
    QLayer* layer = m_window.activeLayer();
    if (!layer)
        return;
    const QString title = QStringLiteral("Couleur d'arrière plan");
    Character* character = layer->character();
    std::optional<QColor> colour = Prompts::instance()->colour(
        &m_window, title, QColor::fromRgba(QRgb(character->fillPixel())));
    if (!colour)
        return;
    Settings settings;
    bool showAlpha = true;
    settings.get(QStringLiteral("showAlpha"), showAlpha);
    bool asked = false;
    bool ticked = false;
    while (showAlpha && colour->alpha() == 0) {
        asked = true;
        Prompts::Message question;
        question.icon = QMessageBox::Question;
        question.title = QStringLiteral("Couleur d'arrière-plan");
        question.text = QStringLiteral("<h3>Changer la couleur d'arrière-plan</h3>");
        question.informativeText = QStringLiteral(
            "Vous avez sélectionné une couleur d'arrière-plan entièrement transparente.\n"
            "Le character n'aura donc pas d'arrière-plan visible. Pour résoudre ce problème,\n"
            "vous pouvez resélectionner une couleur en augmentant son opacité (canal alpha).\n"
            "Voulez-vous choisir une autre couleur ?");
        question.buttons = QMessageBox::Yes | QMessageBox::No;
        question.checkBoxText = QStringLiteral("Ne plus afficher ce message");
        const Prompts::Answer answer = Prompts::instance()->message(&m_window, question);
        ticked = answer.checked;
        if (answer.button != QMessageBox::Yes || ticked)
            break;
        colour = Prompts::instance()->colour(&m_window, title, *colour);
        if (!colour)
            break;
    }
    // Only an answer given in the box is remembered.
    if (asked)
        settings.set(QStringLiteral("showAgain"), QStringLiteral("showAlpha"), !ticked);
    if (!colour)
        return;
    character->setFillPixel(qint32(colour->rgba()));
    layer->refresh();
}

void ViewCommands::updateGrid()
{
    QLayer* layer = m_window.activeLayer();
    if (!layer)
        return;
    layer->character()->setShowGrid(!layer->character()->showGrid());
    layer->refresh();
}

void ViewCommands::zoomStep(int direction)
{
    QLayer* layer = m_window.activeLayer();
    if (!layer)
        return;
    const double before = layer->character()->zoom();
    layer->zoomStep(direction);
    if (layer->character()->zoom() != before)
        writeZoom(layer->character());
}

void ViewCommands::setZoomText(const QString& str)
{
    QLayer* layer = m_window.activeLayer();
    if (!layer)
        return;
    QString text = str;
    text.remove(QLatin1Char(' '));
    text.remove(QLatin1Char('%'));
    layer->setZoom(text.toDouble() / 100);
}

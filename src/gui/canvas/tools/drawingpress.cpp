#include "canvas/tools/drawingpress.h"

#include "app/prompts.h"
#include "app/toolstate.h"
#include "canvas/elementcommands.h"
#include "canvas/qlayer.h"
#include "document/drawinggesture.h"
#include "settings/settings.h"

#include <algorithm>

namespace {

const QByteArray NewLayerLabel = "Ajouter un calque de dessin";

void tell(QLayer& canvas, const QString& text)
{
    Prompts::instance()->information(&canvas, QStringLiteral("Dessin"), text);
}

} // namespace

int DrawingPress::drawElementSetting()
{
    Settings settings;
    qint32 value = Ask;
    settings.get(QStringLiteral("showDrawElement"), value);
    return value;
}

void DrawingPress::storeDrawElementSetting(int value)
{
    Settings settings;
    settings.set(QStringLiteral("showAgain"), QStringLiteral("showDrawElement"), qint32(value));
}

bool DrawingPress::insertDrawingLayer(QLayer& canvas, int index)
{
    Character* character = canvas.character();
    if (character->elementCount() >= Character::MaxElements) {
        Prompts::instance()->critical(&canvas, QStringLiteral("Erreur"),
                                      QStringLiteral("Impossible de créer plus de 255 éléments !"));
        return false;
    }
    character->addDrawingLayer(index);
    character->setSelectedElements({index});
    ElementCommands::finishChange(&canvas, canvas.layerList(), NewLayerLabel);
    return true;
}

// With no element selected, the user's standing answer decides: a new drawing layer
// on top (never for the rubber, which would have nothing to erase), or the top
// element. Without either, or without any element at all, nothing is drawn.
bool DrawingPress::ensureElement(QLayer& canvas, bool rubber)
{
    Character* character = canvas.character();
    if (character->selectedElementCount() > 0)
        return true;
    const int setting = drawElementSetting();
    const int count = character->elementCount();
    if (count < Character::MaxElements && !rubber && setting == AlwaysCreateLayer) {
        return insertDrawingLayer(canvas, count);
    }
    if (setting == NeverCreateLayer && count > 0) {
        character->setSelectedElements({count - 1});
        return true;
    }
    tell(canvas, QStringLiteral("Aucun élément n'est sélectionné."));
    return false;
}

// Drawing on an element read from a file changes that file's picture for good: the
// user is asked once per document whether a drawing layer should take the strokes.
bool DrawingPress::ensureDrawingLayer(QLayer& canvas)
{
    Character* character = canvas.character();
    const int last = character->selectedElements().last();
    if (character->elementSource(last).isEmpty())
        return true;
    int setting = drawElementSetting();
    if (!canvas.drawElementAsked() && setting == Ask) {
        Prompts::Message question;
        question.icon = QMessageBox::Question;
        question.title = QStringLiteral("Dessin");
        question.text = QStringLiteral("<h3>Dessiner sur un élément</h3>");
        question.informativeText = QStringLiteral(
            "Vous êtes sur le point de dessiner sur un élément. Il est recommandé de dessiner "
            "sur un calque de dessin.<br />Créer un calque de dessin ?");
        question.buttons = QMessageBox::Yes | QMessageBox::No;
        question.defaultButton = QMessageBox::Yes;
        question.checkBoxText = QStringLiteral("Ne plus afficher ce message");
        const Prompts::Answer answer = Prompts::instance()->message(&canvas, question);
        if (answer.button == QMessageBox::Yes) {
            if (answer.checked)
                storeDrawElementSetting(AlwaysCreateLayer);
            insertDrawingLayer(canvas, last + 1);
        } else if (answer.checked) {
            storeDrawElementSetting(NeverCreateLayer);
        }
        canvas.setDrawElementAsked(true);
        return false;
    }
    if (setting == AlwaysCreateLayer)
        return insertDrawingLayer(canvas, last + 1);
    return true;
}

bool DrawingPress::prepare(QLayer& canvas, bool rubber, QPoint pixel, DrawTarget* target)
{
    Character* character = canvas.character();
    if (!ensureElement(canvas, rubber))
        return false;
    const ToolState* tools = canvas.toolState();
    if (tools && tools->zoneOfEffect == DrawingSettings::SelectedCells &&
        character->selectedCellCount() == 0) {
        tell(canvas, QStringLiteral("Aucune cellule n'est sélectionnée."));
        return false;
    }
    QList<int> elements = character->selectedElements();
    std::sort(elements.begin(), elements.end());
    character->setSelectedElements(elements);
    if (!rubber && !ensureDrawingLayer(canvas))
        return false;
    const int cell = canvas.cellAt(pixel);
    if (cell < 0)
        return false;
    target->cell = cell;
    target->elements = character->selectedElements();
    return true;
}

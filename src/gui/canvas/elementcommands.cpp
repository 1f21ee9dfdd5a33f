#include "canvas/elementcommands.h"

#include "app/prompts.h"
#include "canvas/qlayer.h"
#include "canvas/qlayerlist.h"
#include "document/clipboard.h"
#include "settings/settings.h"

namespace {

bool oneElementAndCell(const Character& character)
{
    return character.selectedElementCount() == 1 && character.selectedCellCount() == 1;
}

} // namespace

ElementCommands::ElementCommands(ClipBoard& clipBoard, QWidget* dialogParent)
    : m_clipBoard(clipBoard), m_parent(dialogParent)
{}

// A character holds at most 255 elements. Paste warns, the commands that make one
// element report an error.
bool ElementCommands::refuseIfFull(int adding, int count, bool warning)
{
    if (count + adding <= Character::MaxElements)
        return false;
    Prompts::Message box;
    box.icon = warning ? QMessageBox::Warning : QMessageBox::Critical;
    box.title = warning ? QStringLiteral("Avertissement") : QStringLiteral("Erreur");
    box.text = QStringLiteral("Impossible de créer plus de 255 éléments !");
    Prompts::instance()->message(m_parent, box);
    return true;
}

void ElementCommands::finishChange(QLayer* layer, QLayerList* list, const QByteArray& label)
{
    layer->recordStep(label);
    layer->refresh();
    if (list) {
        list->updateThumbnails();
        list->update();
    }
}

void ElementCommands::finish(QLayer* layer, const QByteArray& label)
{
    finishChange(layer, m_list, label);
}

void ElementCommands::copyElements(QLayer* layer)
{
    if (layer && layer->character()->selectedElementCount() > 0)
        m_clipBoard.copyElements(*layer->character());
}

void ElementCommands::cutElements(QLayer* layer)
{
    if (!layer || layer->character()->selectedElementCount() == 0)
        return;
    copyElements(layer);
    layer->character()->deleteSelectedElements();
    finish(layer, "Couper");
}

void ElementCommands::copy(QLayer* layer)
{
    if (!layer || layer->character()->selectedElementCount() == 0)
        return;
    const Character& character = *layer->character();
    if (!oneElementAndCell(character)) {
        m_clipBoard.copyElements(character);
        return;
    }
    const int e = character.selectedElement(0);
    const int c = character.selectedCell(0);
    m_clipBoard.copyCell(character.cellImage(e, c), character.cellPosition(e, c));
}

void ElementCommands::cut(QLayer* layer)
{
    if (!layer || layer->character()->selectedElementCount() == 0)
        return;
    copy(layer);
    Character* character = layer->character();
    if (m_clipBoard.contentKind() == ClipBoard::OneCell) {
        // The cell keeps its size and place and shows nothing, as a deleted cell does.
        const int e = character->selectedElement(0);
        const int c = character->selectedCell(0);
        QImage emptied = character->cellImage(e, c);
        emptied.fill(uint(19));
        character->setCellImage(e, c, emptied);
    } else {
        character->deleteSelectedElements();
    }
    finish(layer, "Couper");
}

void ElementCommands::paste(QLayer* layer)
{
    if (!layer)
        return;
    switch (m_clipBoard.contentKind()) {
    case ClipBoard::Elements:
        pasteElements(layer);
        break;
    case ClipBoard::OneCell:
        pasteCell(layer);
        break;
    default:
        Prompts::instance()->information(m_parent, QStringLiteral("Coller"),
                                         QStringLiteral("Le presse-papier est vide."));
    }
}

// The copied elements go above the one selected element, or at the top; elements of
// the other kind are converted on the way, and all are named anew.
void ElementCommands::pasteElements(QLayer* layer)
{
    Character* character = layer->character();
    const Character copied = m_clipBoard.elements();
    if (refuseIfFull(copied.elementCount(), character->elementCount(), true))
        return;
    if (character->selectedElementCount() == 1)
        character->insertCharacter(copied, character->selectedElement(0) + 1, true);
    else
        character->addCharacter(copied, true);
    finish(layer, "Coller");
}

void ElementCommands::pasteCell(QLayer* layer)
{
    Character* character = layer->character();
    if (!oneElementAndCell(*character)) {
        Prompts::instance()->information(
            m_parent, QStringLiteral("Information"),
            QStringLiteral("Veuillez sélectionner un élément et une cellule."));
        return;
    }
    const ClipBoard::Cell cell = m_clipBoard.cellContent();
    const int e = character->selectedElement(0);
    const int c = character->selectedCell(0);
    character->setCellImage(e, c, cell.image);
    character->setCellPosition(e, c, cell.position);
    finish(layer, "Coller");
}

void ElementCommands::duplicate(QLayer* layer)
{
    if (!layer || layer->character()->selectedElementCount() != 1)
        return;
    Character* character = layer->character();
    if (refuseIfFull(1, character->elementCount(), false))
        return;
    const int e = character->selectedElement(0);
    const QByteArray name = character->elementName(e);
    character->duplicateElement(e, e + 1);
    finish(layer, "Duplication de l'\xe9l\xe9ment : " + name);
}

void ElementCommands::remove(QLayer* layer)
{
    if (!layer || layer->character()->selectedElementCount() == 0)
        return;
    Settings settings;
    bool ask = true;
    settings.get(QStringLiteral("showDeleteElement"), ask);
    if (ask) {
        Prompts::Message question;
        question.icon = QMessageBox::Question;
        question.title = QStringLiteral("Suppression");
        question.text = QStringLiteral("<h3>Suppression d'élément(s)</h3>");
        question.informativeText =
            QStringLiteral("Etes-vous sûr(e) de vouloir supprimer les éléments sélectionnés ?");
        question.buttons = QMessageBox::Yes | QMessageBox::No;
        question.checkBoxText = QStringLiteral("Ne plus afficher ce message");
        const Prompts::Answer answer = Prompts::instance()->message(m_parent, question);
        if (answer.button != QMessageBox::Yes)
            return;
        if (answer.checked)
            settings.set(QStringLiteral("showAgain"), QStringLiteral("showDeleteElement"), false);
    }
    layer->character()->deleteSelectedElements();
    finish(layer, "Suppression d'un ou plusieurs \xe9l\xe9ments");
    if (m_list)
        m_list->scrollTo(m_list->firstRow());
}

// Each element is switched on its own: one hidden and one shown swap.
void ElementCommands::toggleVisibility(QLayer* layer)
{
    if (!layer || layer->character()->selectedElementCount() == 0)
        return;
    Character* character = layer->character();
    const QList<int> selected = character->selectedElements();
    for (int e : selected)
        character->setVisible(e, !character->isVisible(e));
    finish(layer, "Changement de la visibilit\xe9 d'un ou plusieurs \xe9l\xe9ments");
}

// The name is taken as typed, without trimming and without a check that it is unique.
void ElementCommands::setProperties(QLayer* layer, const QString& name, bool hidden)
{
    if (!layer || layer->character()->selectedElementCount() == 0)
        return;
    Character* character = layer->character();
    const int e = character->selectedElement(0);
    character->setElementName(e, name.toLatin1());
    character->setVisible(e, !hidden);
    finish(layer, "Changement de propri\xe9t\xe9");
}

void ElementCommands::mergeWithLower(QLayer* layer)
{
    if (!layer || layer->character()->selectedElementCount() != 1)
        return;
    Character* character = layer->character();
    const int e = character->selectedElement(0);
    if (e == 0)
        return;
    character->mergeWithLower(e);
    character->setSelectedElements({e - 1});
    finish(layer, "Fusion avec l'\xe9l\xe9ment inf\xe9rieur");
}

void ElementCommands::mergeSelection(QLayer* layer)
{
    if (!layer || layer->character()->selectedElementCount() < 2)
        return;
    layer->character()->mergeSelection();
    finish(layer, "Fusion de la s\xe9lection");
}

void ElementCommands::addDrawingLayer(QLayer* layer)
{
    if (!layer)
        return;
    Character* character = layer->character();
    if (refuseIfFull(1, character->elementCount(), false))
        return;
    const int index = character->selectedElementCount() == 1 ? character->selectedElement(0) + 1
                                                             : character->elementCount();
    character->addDrawingLayer(index);
    character->setSelectedElements({index});
    finish(layer, "Ajouter un calque de dessin");
}

void ElementCommands::moveToGap(QLayer* layer, int gap)
{
    if (!layer || layer->character()->selectedElementCount() != 1)
        return;
    Character* character = layer->character();
    const int s = character->selectedElement(0);
    if (gap == s || gap == s + 1)
        return;
    character->moveElement(gap < s ? gap : gap - 1);
    finish(layer, "D\xe9placement d'un \xe9l\xe9ment");
}

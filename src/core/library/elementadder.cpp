#include "library/elementadder.h"

#include "document/character.h"
#include "document/kindconversion.h"
#include "formats/safefile.h"

namespace {

bool isFull(const Character& character, int adding)
{
    return character.elementCount() + adding > Character::MaxElements;
}

} // namespace

ElementAdder::Result ElementAdder::addImage(Character& character, const QString& path, bool convert)
{
    if (isFull(character, 1))
        return Full;
    if (!convert)
        return character.addElement(path) ? Added : Unreadable;
    QImage image = SafeFile::readImage(path);
    if (image.isNull())
        return Unreadable;
    if (image.format() != QImage::Format_ARGB32)
        image = image.convertToFormat(QImage::Format_ARGB32);
    // The composed sheet goes in like an image in memory, which leaves the source
    // empty; the file's path is put back, so that restoration finds the element's file
    // rather than take it for a drawing layer.
    const int index = character.elementCount();
    character.addElement(KindConversion::convertedSheet(image, character),
                         character.nextElementName(), index);
    character.setElementSource(index, path.toLatin1());
    return Added;
}

ElementAdder::Result ElementAdder::addGroup(Character& character, const QString& path,
                                            QString* errorText)
{
    const std::optional<ElementFile::Pair> group = ElementFile::load(path, errorText);
    if (!group)
        return Unreadable;
    return addGroup(character, *group);
}

ElementAdder::Result ElementAdder::addGroup(Character& character, const ElementFile::Pair& group)
{
    const int firstCount = group.first.elementCount();
    if (isFull(character, firstCount + group.second.elementCount()))
        return Full;
    if (character.elementCount() == 0) {
        character.addCharacter(group.first, true);
        character.addCharacter(group.second, true);
        return Added;
    }
    const int position = character.selectedElementCount() == 1 ? character.selectedElement(0)
                                                               : character.elementCount() - 1;
    // The selected elements keep designating the same elements.
    const int above = position + firstCount + 1;
    QList<int> selected;
    for (int e : character.selectedElements()) {
        e += e >= position ? firstCount : 0;
        selected.append(e + (e >= above ? group.second.elementCount() : 0));
    }
    character.insertCharacter(group.first, position, true);
    character.insertCharacter(group.second, above, true);
    character.setSelectedElements(selected);
    return Added;
}

ElementAdder::Result ElementAdder::addDrawingLayer(Character& character)
{
    if (isFull(character, 1))
        return Full;
    character.addDrawingLayer(character.elementCount());
    return Added;
}

#pragma once

#include "formats/elementfile.h"

#include <QString>

class Character;

// Adding library elements to a character, as the box of the editor and zenkora-tool do
// it alike: a PNG sheet cut into cells on top of the stack, with or without a
// conversion from the other engine; a group element wrapped around one element; a
// drawing layer. Each checks the 255 elements a character file can hold, and leaves
// the character as it was when it refuses or fails.
class ElementAdder
{
public:
    enum Result
    {
        Added,
        Full,       // "Impossible de créer plus de 255 éléments !"
        Unreadable, // the file could not be read; the group's message is in errorText
    };

    // A sheet from path, on top. With convert, the sheet is taken as made for the
    // other engine and converted first; the element's source is path either way.
    static Result addImage(Character& character, const QString& path, bool convert);

    // The group in path. On a character without elements, its first stack and then its
    // second are appended. Otherwise they wrap one element, the first stack beneath it
    // and the second above it: the one selected element, or else the topmost. The
    // selection follows its elements to their new places. The elements get new names.
    static Result addGroup(Character& character, const QString& path, QString* errorText);
    static Result addGroup(Character& character, const ElementFile::Pair& group);

    // A drawing layer on top.
    static Result addDrawingLayer(Character& character);
};

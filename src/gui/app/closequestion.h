#pragma once

#include "app/prompts.h"

class Character;

// What a document shows when it closes: the confirmation asked for a clean document,
// and the thumbnail that goes with the question about unsaved changes.
class CloseQuestion
{
public:
    static Prompts::Message clean(const QString& name);
    // The composed sheet fitted into 96 by 96 pixels, for the question's icon.
    static QPixmap thumbnail(const Character& character);
};

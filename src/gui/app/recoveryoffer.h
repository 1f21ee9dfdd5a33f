#pragma once

#include "recovery/recoveryentry.h"

#include <QPixmap>
#include <QString>

// One recovery copy as the start-up question shows it.
struct RecoveryOffer
{
    enum Choice
    {
        Recover,
        Ignore,
        Delete
    };

    RecoveryEntry entry;
    QPixmap thumbnail;
    // The reader's message when the copy cannot be read; such a copy can only go.
    QString errorText;
    // The file was written again after the copy was made.
    bool originalNewer = false;
};

#pragma once

#include <QtGlobal>

// One value of a section: which key it belongs to, and where the value sits in the
// section's array of its type. The type codes are those of the settings file's
// original design and are kept as they are.
struct IniEntry
{
    enum Type : quint16
    {
        Double = 0,
        String = 1,
        Bool = 2,
        Int = 3,
    };

    quint32 keyId = 0;
    quint16 type = Double;
    quint32 index = 0;
};

#pragma once

#include <QString>

// Plain functions on path strings, with "/" and "\" both taken as separators: a path
// typed or stored on any platform splits the same way.

// The part before the last separator, or "" when there is none.
QString directoryOf(const QString& path);
// The part behind the last separator.
QString fileNameOf(const QString& path);
// fileNameOf cut at its last ".".
QString baseNameOf(const QString& path);
// The part behind the last ".", or the whole string when there is no ".".
QString extensionOf(const QString& path);
// extensionOf(path) equals extension, ignoring case.
bool hasExtension(const QString& path, const QString& extension);
// path itself when it has the extension, else path + "." + extension.
QString withExtension(const QString& path, const QString& extension);
// False when name holds one of the characters \ / * | < > : ? and the double quote,
// which no file system of the users takes in a file name; everything else, dots
// included, passes. Emptiness is the caller's own check.
bool isValidFileName(const QString& name);

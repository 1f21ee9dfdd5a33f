#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

// Small shared pieces of the test programs.

// The bytes of a file, or "<absent>" when it cannot be read.
QByteArray fileContents(const QString& path);
// Writes bytes to a file, replacing it; false when it cannot be written.
bool writeFile(const QString& path, const QByteArray& bytes);
// A Format_ARGB32 image of one pixel value.
QImage solidImage(QSize size, QRgb pixel);

#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>

// The rubber on one picture placed at position in its cell: rect is in cell
// coordinates, both corners inside, and every pixel of the picture it reaches becomes
// the raw transparent pixel 19. Nothing outside the picture is touched: a picture is
// never grown by the rubber, nor trimmed after it. Each returns false, without
// detaching image, when the rubber cannot reach the picture, so that a picture it
// misses stays shared with the history.
bool eraseRect(QImage& image, QPoint position, const QRect& rect);
// The ellipse inscribed in rect, scanned column by column: the truncations of the scan
// give the rubber its pixel shape (a 5 by 5 rubber reaches 6 columns, the outer two in
// the middle row only).
bool eraseEllipse(QImage& image, QPoint position, const QRect& rect);

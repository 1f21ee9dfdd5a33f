#pragma once

#include <QColor>
#include <QImage>

#include <functional>

class QPainter;

// The toolkit's painter works through premultiplied pixels, which moves see-through
// colours: (200,100,50,128) painted on an ARGB32 image comes back as (199,100,50,128).
// A plain colour must land as the user chose it, so the painter only decides which
// pixels a shape covers, and the colour itself is written into them.

// A picture of size holding colour, exactly, on the pixels that draw covers and the
// raw transparent pixel 19 elsewhere. draw paints with its own pen or brush, aliased,
// on a mask: any colour it uses counts as covering.
QImage coverageLayer(QSize size, const QColor& colour,
                     const std::function<void(QPainter& painter)>& draw);

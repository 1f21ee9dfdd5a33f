#include "imaging/transforms.h"

#include "imaging/trimimage.h"

#include <QTransform>

namespace {

Qt::TransformationMode modeOf(bool smooth)
{
    return smooth ? Qt::SmoothTransformation : Qt::FastTransformation;
}

// Scaling may hand back another format (a smooth scale goes through premultiplied
// pixels); model images are always plain ARGB32.
QImage asArgb32(const QImage& image)
{
    if (image.isNull() || image.format() == QImage::Format_ARGB32)
        return image;
    return image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

// A side cut to 0 gives a null image, quietly; scaling a null image would warn, so a
// null source is left alone.
PlacedImage resizedImage(const PlacedImage& source, double widthFactor, double heightFactor,
                         bool recenter, bool smooth)
{
    if (source.image.isNull())
        return source;
    const int width = source.image.width();
    const int height = source.image.height();
    PlacedImage result;
    result.image =
        asArgb32(source.image.scaled(QSize(int(width * widthFactor), int(height * heightFactor)),
                                     Qt::IgnoreAspectRatio, modeOf(smooth)));
    result.position = source.position;
    if (recenter) {
        result.position = QPoint(int(source.position.x() + (1.0 - widthFactor) * width * 0.5),
                                 int(source.position.y() + (1.0 - heightFactor) * height * 0.5));
    }
    return result;
}

// The vertical correction takes the widths too, not the heights: a quarter turn of a
// wide picture lands lower than its middle. Sheets made with the program rely on this
// placement, so it is kept.
PlacedImage rotatedImage(const PlacedImage& source, double degrees, bool smooth)
{
    if (source.image.isNull())
        return source;
    QTransform matrix;
    matrix.rotate(degrees);
    PlacedImage result;
    result.image = asArgb32(source.image.transformed(matrix, modeOf(smooth)));
    const double shift = (source.image.width() - result.image.width()) * 0.5;
    result.position = QPoint(int(source.position.x() + shift), int(source.position.y() + shift));
    QPoint offset(0, 0);
    trimImage(result.image, offset);
    result.position += offset;
    return result;
}

QImage flippedImage(const QImage& image, bool horizontal, bool vertical)
{
    if (image.isNull())
        return image;
    return image.mirrored(horizontal, vertical);
}

#include "library/qelementview.h"

#include "app/prompts.h"
#include "formats/safefile.h"

#include <QMouseEvent>

#include <cmath>

QElementView::QElementView(QWidget* parent) : QLabel(parent)
{
    // The pixmap lies at the label's corner, where the clicks are counted from.
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

bool QElementView::loadImage(const QString& path)
{
    const QImage image = SafeFile::readImage(path);
    if (image.isNull()) {
        Prompts::instance()->critical(this, QStringLiteral("Erreur"),
                                      QStringLiteral("Impossible d'ouvrir ") + path);
        return false;
    }
    m_image = image;
    m_sourceSize = image.size();
    showImage();
    return true;
}

void QElementView::setZoom(double zoom)
{
    m_zoom = zoom;
    showImage();
}

void QElementView::showImage()
{
    if (m_image.isNull())
        return;
    const QSize size(int(std::lround(m_sourceSize.width() * m_zoom)),
                     int(std::lround(m_sourceSize.height() * m_zoom)));
    setPixmap(
        QPixmap::fromImage(m_image.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation)));
    resize(size);
}

// The colour is the pixel as the image holds it, alpha included: an already
// transparent pixel picks a colour that counts as nothing picked.
void QElementView::mousePressEvent(QMouseEvent* event)
{
    const QPointF position = event->position();
    const int x = int(position.x() / m_zoom);
    const int y = int(position.y() / m_zoom);
    const int type = event->button() == Qt::LeftButton    ? 0
                     : event->button() == Qt::RightButton ? 1
                                                          : -1;
    if (type < 0 || !m_image.valid(x, y))
        return;
    emit changeColor(QColor::fromRgba(m_image.pixel(x, y)), type);
}

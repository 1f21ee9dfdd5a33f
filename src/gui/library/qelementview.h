#pragma once

#include <QImage>
#include <QLabel>

// The picture of an image on its way into the library, shown at a zoom, on which a
// click picks a key colour: the left button the ground colour, the right one the
// half-seen colour.
class QElementView : public QLabel
{
    Q_OBJECT

public:
    explicit QElementView(QWidget* parent = nullptr);

    // Reads the image; one that cannot be read gets its error box and leaves false.
    bool loadImage(const QString& path);
    const QImage& image() const { return m_image; }
    QSize sourceSize() const { return m_sourceSize; }
    double zoom() const { return m_zoom; }

signals:
    // type 0: the ground colour, type 1: the half-seen colour.
    void changeColor(const QColor& rgb, int type);

public slots:
    void setZoom(double zoom);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void showImage();

    QSize m_sourceSize;
    double m_zoom = 1;
    QImage m_image;
};

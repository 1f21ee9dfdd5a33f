#include "library/qkeycolourpanel.h"

#include "imaging/imagechecks.h"
#include "imaging/keycolours.h"
#include "library/qelementview.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

QKeyColourPanel::QKeyColourPanel(const QStringList& files, QWidget* parent)
    : QWidget(parent), m_files(files), m_view(new QElementView),
      m_scrollArea(new QScrollArea(this)), m_zoomBox(new QComboBox(this)),
      m_transparentSwatch(new QLabel(this)), m_translucentSwatch(new QLabel(this))
{
    m_scrollArea->setWidget(m_view);
    m_scrollArea->setMinimumSize(256, 256);
    m_zoomBox->addItems(
        {QStringLiteral("Zoom x1.0"), QStringLiteral("Zoom x2.0"), QStringLiteral("Zoom x4.0")});
    fillChecker(m_checker, QSize(50, 20), 5, false, Qt::white, Qt::gray);

    QGridLayout* swatches = new QGridLayout;
    swatches->addWidget(m_transparentSwatch, 0, 0);
    swatches->addWidget(new QLabel(QStringLiteral("Couleur de transparence (clic gauche)"), this),
                        0, 1);
    swatches->addWidget(m_translucentSwatch, 1, 0);
    swatches->addWidget(new QLabel(QStringLiteral("Couleur de translucide (clic droit)"), this), 1,
                        1);
    swatches->setColumnStretch(1, 1);
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_scrollArea, 1);
    layout->addWidget(m_zoomBox);
    layout->addLayout(swatches);

    connect(m_zoomBox, &QComboBox::currentIndexChanged, this, &QKeyColourPanel::updateZoom);
    connect(m_view, &QElementView::changeColor, this, &QKeyColourPanel::updateColor);
    updateColor(Qt::transparent, 0);
    updateColor(Qt::transparent, 1);
}

bool QKeyColourPanel::showFrom(int index)
{
    for (m_fileIndex = index; m_fileIndex < count(); ++m_fileIndex) {
        if (m_view->loadImage(m_files.at(m_fileIndex)))
            break;
    }
    if (m_fileIndex >= count())
        return false;
    // The box tells no change when it already stood on its first entry.
    m_zoomBox->setCurrentIndex(0);
    updateZoom(0);
    updateColor(Qt::transparent, 0);
    updateColor(Qt::transparent, 1);
    return true;
}

QString QKeyColourPanel::counter() const
{
    return QLatin1Char('(') + QString::number(m_fileIndex + 1) + QLatin1Char('/') +
           QString::number(count()) + QLatin1Char(')');
}

QImage QKeyColourPanel::converted() const
{
    return applyKeyColours(m_view->image(), m_transparentColor, m_translucentColor);
}

void QKeyColourPanel::updateZoom(int index)
{
    m_view->setZoom(double(1 << qBound(0, index, 2)));
    m_view->resize(m_view->pixmap().size());
}

void QKeyColourPanel::updateColor(const QColor& rgb, int type)
{
    (type == 0 ? m_transparentColor : m_translucentColor) = rgb;
    QPixmap pixmap = QPixmap::fromImage(m_checker);
    QPainter painter(&pixmap);
    painter.fillRect(pixmap.rect(), rgb);
    painter.setPen(Qt::black);
    // A stroked rectangle reaches one pixel past its size.
    painter.drawRect(QRect(0, 0, pixmap.width() - 1, pixmap.height() - 1));
    painter.end();
    swatch(type)->setPixmap(pixmap);
}

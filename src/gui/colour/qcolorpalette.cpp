#include "colour/qcolorpalette.h"

#include "app/prompts.h"
#include "formats/filenames.h"
#include "formats/palettefile.h"
#include "imaging/defaultpalette.h"
#include "imaging/imagechecks.h"
#include "settings/datafolder.h"
#include "settings/settings.h"

#include <QMouseEvent>
#include <QPainter>

QColorPalette::QColorPalette(int cellWidth, int cellHeight, int columns, int rows, QWidget* parent)
    : QWidget(parent), m_cellWidth(cellWidth), m_cellHeight(cellHeight), m_columns(columns),
      m_rows(rows), m_colors(columns * rows, QColor())
{
    setFixedSize(cellWidth * columns, cellHeight * rows);
    fillChecker(m_background, size(), std::max(cellWidth / 3, 1), false, Qt::white, Qt::gray);
    // The remembered palette stays remembered: only the user's "Restaurer la palette
    // par défaut" forgets it.
    QString remembered;
    Settings().get(QStringLiteral("palette"), remembered);
    restoreDefault();
    if (!remembered.isEmpty())
        loadFile(remembered);
}

void QColorPalette::restoreDefault()
{
    m_colors = DefaultPalette::colours(m_columns, m_rows);
    update();
}

bool QColorPalette::load(const QString& fileName)
{
    if (!fileName.isEmpty())
        return loadFile(fileName);
    restoreDefault();
    Settings settings;
    settings.set(QStringLiteral("Color"), QStringLiteral("palette"), "");
    return true;
}

// The colours read before a fault stay in the grid; a file with fewer colours than the
// grid leaves the other swatches as they were.
bool QColorPalette::loadFile(const QString& path)
{
    PaletteFile::Contents contents;
    const bool read = PaletteFile::load(path, int(m_colors.size()), contents, &m_errorMessage);
    for (int i = 0; i < contents.colours.size(); ++i)
        m_colors[i] = contents.colours.at(i);
    update();
    return read;
}

bool QColorPalette::save()
{
    Settings settings;
    QString folder = DataFolder::locate(QStringLiteral("palette"));
    settings.get(QStringLiteral("pathSavePalette"), folder);
    const QString answer = Prompts::instance()->saveFileName(
        this, QStringLiteral("Sauvegarder une palette"), folder, fileFilter(), nullptr);
    if (answer.isEmpty())
        return false;
    const QString path = withExtension(answer, QStringLiteral("zkp"));
    const QString directory = directoryOf(path);
    if (!directory.contains(QLatin1Char('?')))
        settings.set(QStringLiteral("Path"), QStringLiteral("pathSavePalette"), directory);
    settings.set(QStringLiteral("Color"), QStringLiteral("palette"), path);
    if (!PaletteFile::save(m_colors, path)) {
        Prompts::Message warning;
        warning.icon = QMessageBox::Warning;
        warning.title = QStringLiteral("Erreur");
        warning.text = QStringLiteral("Impossible de sauvegarder la palette.");
        Prompts::instance()->message(this, warning);
        return false;
    }
    return true;
}

void QColorPalette::setAdd(bool b, const QColor& color)
{
    m_addMode = b;
    m_pendingColor = color;
}

void QColorPalette::setAdd(bool b)
{
    m_addMode = b;
}

int QColorPalette::indexAt(QPoint point) const
{
    // Checked before dividing: division truncates towards zero, so a point just left
    // of or below the grid would land on a swatch.
    if (point.x() < 0 || point.y() < 0 || point.x() >= m_columns * m_cellWidth ||
        point.y() >= m_rows * m_cellHeight)
        return -1;
    return m_rows * (point.x() / m_cellWidth) + point.y() / m_cellHeight;
}

void QColorPalette::mousePressEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    m_selectedIndex = m_rows * (point.x() / m_cellWidth) + point.y() / m_cellHeight;
    update();
}

void QColorPalette::mouseReleaseEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (index < 0 || index >= m_colors.size())
        return;
    if (m_addMode) {
        m_colors[index] = m_pendingColor;
        update();
        emit added();
        return;
    }
    emit changeColor(m_colors.at(index));
}

void QColorPalette::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(0, 0, m_background);
    for (int i = 0; i < m_colors.size(); ++i) {
        painter.fillRect(i / m_rows * m_cellWidth, i % m_rows * m_cellHeight, m_cellWidth,
                         m_cellHeight, m_colors.at(i));
    }
    if (m_selectedIndex < 0 || m_selectedIndex >= m_colors.size())
        return;
    const QPoint corner(m_selectedIndex / m_rows * m_cellWidth,
                        m_selectedIndex % m_rows * m_cellHeight);
    painter.drawRect(QRect(corner, QSize(m_cellWidth - 1, m_cellHeight - 1)));
    painter.setPen(Qt::white);
    painter.drawRect(QRect(corner + QPoint(1, 1), QSize(m_cellHeight - 3, m_cellHeight - 3)));
}

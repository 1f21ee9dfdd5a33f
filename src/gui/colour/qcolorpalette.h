#pragma once

#include <QColor>
#include <QImage>
#include <QList>
#include <QWidget>

// A fixed grid of colour swatches, running down each column: a click picks a colour,
// or, in add mode, stores the pending colour in the swatch. The grid is kept in a
// ".zkp" file, and the one in use is remembered in the settings.
class QColorPalette : public QWidget
{
    Q_OBJECT

public:
    QColorPalette(int cellWidth, int cellHeight, int columns, int rows, QWidget* parent = nullptr);

    static QString fileFilter() { return QStringLiteral("Palette Zenkora (*.zkp)"); }

    const QList<QColor>& colors() const { return m_colors; }
    int selectedIndex() const { return m_selectedIndex; }
    bool addMode() const { return m_addMode; }
    QColor pendingColor() const { return m_pendingColor; }
    // The swatch under a point of the widget, -1 outside the grid.
    int indexAt(QPoint point) const;

public slots:
    // An empty name restores the default palette and forgets the remembered file;
    // a path reads that file over the grid.
    bool load(const QString& fileName = QString());
    // Asks for a file and writes the grid there.
    bool save();
    void setAdd(bool b, const QColor& color);
    void setAdd(bool b);
    QString getErrorMessage() const { return m_errorMessage; }

signals:
    void changeColor(const QColor& colour);
    void added();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void restoreDefault();
    bool loadFile(const QString& path);

    QImage m_background;
    int m_selectedIndex = -1;
    int m_cellWidth;
    int m_cellHeight;
    int m_columns;
    int m_rows;
    QString m_errorMessage;
    QColor m_pendingColor = QColor(Qt::transparent);
    bool m_addMode = false;
    QList<QColor> m_colors;
};

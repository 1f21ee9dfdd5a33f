#pragma once

#include <QList>
#include <QPixmap>
#include <QPoint>
#include <QStringList>
#include <QWidget>

// The list of tilesets to merge, in the order of the merge: a grid of three columns,
// three rows on show, with its own scroll bar. A press on a tile chooses it; held and
// dragged, it moves the tile between two others; a right click offers to double, move
// or remove it.
class QTilesetView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Columns = 3;
    static constexpr int RowsShown = 3;
    // Mouse moves, a press held, before the tile under it starts a move.
    static constexpr int MovesBeforeMove = 19;

    explicit QTilesetView(QWidget* parent = nullptr);

    const QStringList& paths() const { return m_paths; }
    const QList<QPixmap>& thumbnails() const { return m_thumbnails; }
    // Loads and appends each file; one that can't be read is named in a warning and
    // left out.
    void addPaths(const QStringList& paths);

    int selected() const { return m_selected; }
    int insertionIndex() const { return m_insertionIndex; }
    bool atRowEnd() const { return m_atRowEnd; }
    bool isMoving() const { return m_moving; }
    int offset() const { return m_offset; }
    void setOffset(int offset);
    int rowCount() const { return int((m_paths.size() + Columns - 1) / Columns); }
    bool hasBar() const { return m_paths.size() > Columns * RowsShown; }
    // The tile of index i, while it is on show.
    QRect tileRect(int i) const;
    QRect barRect() const { return QRect(430, 0, 30, 475); }
    int thumbLength() const;
    QRect thumbRect() const;
    // The mouse moves counted towards a move, shared by every view.
    static int moveCounter() { return s_moveCounter; }

signals:
    void changeFileName(QString path);
    void changeFileList(bool enough);

public slots:
    void aDoubler();
    void aMove();
    void aSupprimer();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int tileAt(QPoint point) const;
    // Points insertionIndex at the half of a tile under point; false when there is none.
    bool aimAt(QPoint point);
    void applyMove();
    void updateHover(QPoint point);
    void showMenu(QPoint point);
    void paintBar(QPainter& painter);

    QStringList m_paths;
    QList<QPixmap> m_thumbnails;
    int m_selected = -1;
    int m_insertionIndex = -1;
    bool m_atRowEnd = false;
    int m_offset = 0;
    bool m_armed = false;
    bool m_moving = false;
    bool m_overBar = false;
    bool m_overThumb = false;
    bool m_draggingThumb = false;
    int m_wheelDelta = 0;
    QPoint m_pressPoint;
    QPoint m_menuPoint;

    static int s_moveCounter;
};

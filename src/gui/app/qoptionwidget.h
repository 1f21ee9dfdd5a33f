#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>
#include <QWidget>

#include <memory>

class QLabel;

// One clickable row of a choice dialog: an icon, a bold caption and a line of
// explanation, lit up under the mouse. Its three looks are rendered once per change
// and only swapped on mouse events, so hovering a long list costs nothing.
class QOptionWidget : public QWidget
{
    Q_OBJECT

public:
    enum State
    {
        Rest,
        Hovered,
        Pressed
    };

    explicit QOptionWidget(QWidget* parent = nullptr);
    explicit QOptionWidget(const QPixmap& icon, QWidget* parent = nullptr);
    QOptionWidget(const QPixmap& icon, const QString& caption, QWidget* parent = nullptr);
    QOptionWidget(const QPixmap& icon, const QString& caption, const QString& text,
                  QWidget* parent = nullptr);
    ~QOptionWidget() override;

    QPixmap icon() const { return m_icon; }
    QString caption() const { return m_caption; }
    QString text() const { return m_text; }
    QSize pixmapSize() const { return m_pixmapSize; }
    bool isScaled() const { return m_scaled; }
    bool hasPixmapMargin() const { return m_pixmapMargin; }
    int leftMargin() const { return m_leftMargin; }
    bool drawsGradientBeforeText() const { return m_drawGradientBeforeText; }

    State state() const { return m_state; }
    QPixmap statePixmap(State state) const { return m_pixmaps[state]; }

    // The icon as it is drawn, and the width of the part of the row left of the texts.
    QPixmap shownIcon() const;
    int leftPartWidth() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

public slots:
    void setIcon(const QPixmap& icon);
    void setCaption(const QString& caption);
    void setText(const QString& text);
    void setPixmapSize(QSize pixmapSize);
    void setScaled(bool scaled);
    void setPixmapMargin(bool pixmapMargin);
    void setLeftMargin(int leftMargin);
    void setDrawGradientBeforeText(bool drawGradientBeforeText);

signals:
    void hovered();
    void left();
    void clicked();
    void release();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void setUp();
    void setState(State state);
    void rebuild();
    QPixmap renderState(State state, QSize size) const;
    void paintHighlight(QPainter* painter, QSize size, bool reversed) const;
    void paintContents(QPainter* painter, QSize size) const;
    QSize textPartSize() const;

    QPixmap m_icon;
    QString m_caption;
    QString m_text;
    QSize m_pixmapSize = QSize(48, 48);
    bool m_scaled = false;
    bool m_pixmapMargin = true;
    int m_leftMargin = 0;
    bool m_drawGradientBeforeText = true;
    std::unique_ptr<QLabel> m_captionLabel;
    std::unique_ptr<QLabel> m_textLabel;
    QPixmap m_pixmaps[3];
    State m_state = Rest;
};

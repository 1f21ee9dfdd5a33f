#pragma once

#include <QColor>
#include <QLabel>
#include <QPixmap>
#include <QPointer>

class Character;
class QCheckBox;
class QDialog;
class QMenu;
class QSpinBox;
class QTimer;

// The animated preview: the four rows of the active sheet side by side, one frame of
// the walk each, moving on at a fixed period, with a play and pause button at the
// right. It plays from the start; its period and background are kept in the settings.
class QLayerRender : public QLabel
{
    Q_OBJECT

public:
    static constexpr int ButtonSize = 45;

    explicit QLayerRender(QWidget* parent = nullptr);

    // The sheet shown, not owned. owner, when given, holds the sheet (the canvas): once
    // it is gone the preview draws nothing rather than read a closed document.
    void setCharacter(Character* character, QObject* owner = nullptr);
    QSize sizeHint() const override;

    bool isPlaying() const;
    int period() const { return m_period; }
    QColor backgroundColor() const { return m_backgroundColor; }
    const QPixmap& picture() const { return m_picture; }
    // The next step of the walk, 0 to 3.
    int step() const { return m_step; }
    QMenu* actionMenu() const { return m_menu; }
    QDialog* propertyDialog() const { return m_propertyDialog; }
    QSpinBox* periodBox() const { return m_periodBox; }
    QCheckBox* stopBox() const { return m_stopBox; }

public slots:
    // One step of the animation.
    void refresh();
    void showProperty();
    void changeProperty();
    void changeColor();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    const Character* shown() const;
    QRect buttonRect() const;
    void drawButton();

    QTimer* m_timer;
    Character* m_character = nullptr;
    QPointer<QObject> m_owner;
    bool m_hasOwner = false;
    QPixmap m_picture;
    QColor m_backgroundColor = QColor(Qt::white);
    QSize m_lastCellSize;
    bool m_hovered = false;
    bool m_wasHovered = false;
    int m_period = 1000;
    int m_step = 0;
    QMenu* m_menu = nullptr;
    QDialog* m_propertyDialog = nullptr;
    QColor m_chosenColor;
    QSpinBox* m_periodBox = nullptr;
    QCheckBox* m_stopBox = nullptr;
};

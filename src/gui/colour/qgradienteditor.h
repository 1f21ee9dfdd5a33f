#pragma once

#include "imaging/gradientrecord.h"

#include <QDialog>

#include <optional>

class QAction;
class QComboBox;
class QGradientCreator;
class QGradientRender;
class QLabel;
class QLabelClickable;
class QPushButton;
class QSpinBox;

// The modal gradient editor: the strip of stops above the preview with its handles,
// the type and spread, the selected stop's colour and position, and the .zkd file.
class QGradientEditor : public QDialog
{
    Q_OBJECT

public:
    static const QString Filter;

    QGradientEditor(const GradientRecord& gradient, const QColor& newColor,
                    QWidget* parent = nullptr);

    // Shows the editor modally on gradient; the edited gradient when "Valider" closes
    // it, nothing otherwise. Stops made by a click take newColor.
    static std::optional<GradientRecord> getGradient(QWidget* parent, const QString& title,
                                                     const GradientRecord& gradient,
                                                     const QColor& newColor);

    // What the editor shows now: the preview's points, type and spread with the
    // strip's stops.
    GradientRecord gradient() const;
    QGradientCreator* creator() const { return m_creator; }
    QGradientRender* render() const { return m_render; }
    // Reads a file into the editor, keeping what a damaged file gave before the
    // damage; false with errorMessage set on failure.
    bool loadFile(const QString& path);
    QString errorMessage() const { return m_errorMessage; }

public slots:
    void updateLabel();
    void updateColor();
    void updateOption(const GradientData& gd);
    void updateJoiner(int ii);
    void updateModeLinear();
    void updateModeRadial();
    void updateModeConical();
    void save();
    void load();
    void finishCG();

private:
    QWidget* createControls();
    QWidget* createLegend();
    QWidget* createButtons();
    void connectParts();
    void warn(const QString& text);

    QGradientCreator* m_creator;
    QGradientRender* m_render;
    QComboBox* m_typeBox = nullptr;
    QComboBox* m_spreadBox = nullptr;
    QLabel* m_legends[3] = {};
    QLabel* m_pictures[3] = {};
    QLabelClickable* m_swatch = nullptr;
    QSpinBox* m_position = nullptr;
    QPushButton* m_delete = nullptr;
    QAction* m_restore = nullptr;
    QAction* m_deleteAll = nullptr;
    QAction* m_join = nullptr;
    QAction* m_save = nullptr;
    QAction* m_load = nullptr;
    QColor m_color = Qt::transparent; // the selected stop's, shown on the swatch
    QString m_errorMessage;
    GradientRecord m_result;
};

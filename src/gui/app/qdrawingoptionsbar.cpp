#include "app/qdrawingoptionsbar.h"

#include "app/mainwindow.h"
#include "app/qlabelclickable.h"
#include "app/toolstate.h"
#include "imaging/gradientbrushes.h"
#include "imaging/imagechecks.h"

#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QSpinBox>

QDrawingOptionsBar::QDrawingOptionsBar(ToolState* tools, MainWindow* window)
    : QToolBar(QStringLiteral("Dessins"), window), m_tools(tools), m_window(window)
{
    setObjectName(QStringLiteral("Dessins"));
}

void QDrawingOptionsBar::fill(quint8 tool)
{
    clear();
    m_penControls.clear();
    m_drawModeActions.clear();
    m_drawModeAction = nullptr;
    m_gradientPreview = nullptr;
    setEnabled(true);
    switch (tool) {
    case ToolState::Pen:
        addWidthControls();
        addSeparator();
        addShapeControls();
        break;
    case ToolState::Rubber:
        addRubberMode();
        addWidthControls();
        addShapeControls();
        setPenControlsEnabled(m_tools->rubberMode == 0);
        break;
    case ToolState::Line:
        addWidthControls();
        break;
    default:
        addDrawModeControls();
        addPaintControls();
    }
    show();
}

QLabel* QDrawingOptionsBar::label(const QString& text)
{
    QLabel* label = new QLabel(text, this);
    label->setMargin(5);
    return label;
}

void QDrawingOptionsBar::addRubberMode()
{
    addWidget(label(QStringLiteral("Mode d'effacement")));
    QComboBox* mode = new QComboBox(this);
    mode->addItems({QStringLiteral("Pinceau"), QStringLiteral("Sélection")});
    mode->setCurrentIndex(m_tools->rubberMode);
    connect(mode, &QComboBox::currentIndexChanged, m_window, &MainWindow::modeRubber);
    addWidget(mode);
}

void QDrawingOptionsBar::addWidthControls()
{
    QLabel* caption = label(QStringLiteral("Epaisseur"));
    QSpinBox* width = new QSpinBox(this);
    width->setRange(1, 50);
    width->setValue(m_tools->penWidth);
    connect(width, &QSpinBox::valueChanged, m_window, &MainWindow::widthChanged);
    addWidget(caption);
    addWidget(width);
    m_penControls << caption << width;
}

void QDrawingOptionsBar::addShapeControls()
{
    QLabel* caption = label(QStringLiteral("Forme"));
    QComboBox* shape = new QComboBox(this);
    shape->addItems({QStringLiteral("Carré"), QStringLiteral("Circulaire")});
    shape->setCurrentIndex(m_tools->penShape);
    connect(shape, &QComboBox::currentIndexChanged, m_window, &MainWindow::shapeChanged);
    addWidget(caption);
    addWidget(shape);
    m_penControls << caption << shape;
}

void QDrawingOptionsBar::addDrawModeControls()
{
    QMenu* modes = new QMenu(this);
    const auto mode = [&](const char* icon, const QString& text, void (MainWindow::*slot)()) {
        QAction* action = modes->addAction(QIcon(QString::fromLatin1(icon)), text);
        action->setCheckable(true);
        connect(action, &QAction::triggered, m_window, slot);
        m_drawModeActions.append(action);
    };
    mode(":/icon/modeContour.png", QStringLiteral("Dessine seulement le contour d'une forme"),
         &MainWindow::setContourMode);
    mode(":/icon/modePlein.png", QStringLiteral("Dessine pleinement la forme"),
         &MainWindow::setPleinMode);
    mode(":/icon/modePleinContour.png", QStringLiteral("Dessine la forme avec un contour"),
         &MainWindow::setPleinContourMode);
    m_drawModeAction = new QAction(QStringLiteral("Mode de dessin"), this);
    m_drawModeAction->setMenu(modes);
    connect(m_drawModeAction, &QAction::triggered, m_window, &MainWindow::changeDrawMode);
    addAction(m_drawModeAction);
    showDrawMode(m_tools->drawMode);
}

// The gradient as a fill of a 30 by 30 patch paints it, over the checker.
static QPixmap gradientPreview(const GradientRecord& gradient)
{
    QImage image;
    fillChecker(image, QSize(30, 30), 5, false, Qt::white, Qt::gray);
    if (!gradient.paintsNothing()) {
        QPainter painter(&image);
        painter.fillRect(image.rect(), makeGradientBrush(gradient, image.size()));
    }
    return QPixmap::fromImage(image);
}

void QDrawingOptionsBar::addPaintControls()
{
    addWidget(label(QStringLiteral("Remplissage")));
    QComboBox* paint = new QComboBox(this);
    paint->addItems({QStringLiteral("Couleur unie"), QStringLiteral("Dégradé")});
    paint->setCurrentIndex(m_tools->paintMode);
    connect(paint, &QComboBox::currentIndexChanged, m_window, &MainWindow::setPaintMode);
    addWidget(paint);
    QLabelClickable* preview = new QLabelClickable(this);
    preview->setObjectName(QStringLiteral("gradientPreview"));
    preview->setFixedSize(30, 30);
    preview->setToolTip(QStringLiteral("Editer le dégradé"));
    connect(preview, &QLabelClickable::clicked, m_window, &MainWindow::showGradientEditor);
    addWidget(preview);
    m_gradientPreview = preview;
    updateGradientPreview();
    setGradientPreviewEnabled(m_tools->paintMode != 0);
}

void QDrawingOptionsBar::setPenControlsEnabled(bool enabled)
{
    for (QWidget* control : std::as_const(m_penControls))
        control->setEnabled(enabled);
}

void QDrawingOptionsBar::setGradientPreviewEnabled(bool enabled)
{
    if (m_gradientPreview)
        m_gradientPreview->setEnabled(enabled);
}

void QDrawingOptionsBar::updateGradientPreview()
{
    if (m_gradientPreview)
        m_gradientPreview->setPixmap(gradientPreview(m_tools->gradient));
}

void QDrawingOptionsBar::showDrawMode(int mode)
{
    if (mode < 0 || mode >= m_drawModeActions.size())
        return;
    for (int i = 0; i < m_drawModeActions.size(); ++i)
        m_drawModeActions.at(i)->setChecked(i == mode);
    m_drawModeAction->setIcon(m_drawModeActions.at(mode)->icon());
}

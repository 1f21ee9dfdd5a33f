#include "canvas/qlayer.h"

#include "app/closequestion.h"
#include "app/prompts.h"
#include "app/toolstate.h"
#include "canvas/qlayerlist.h"
#include "canvas/tools/canvastools.h"
#include "document/historystep.h"
#include "formats/filenames.h"
#include "formats/pngwriter.h"
#include "settings/settings.h"

#include <QCloseEvent>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPainter>

#include <array>

namespace {

constexpr std::array<double, 9> ZoomSteps = {0.5, 1, 1.5, 2, 3, 4, 6, 8, 16};

} // namespace

// The area is not kept: the canvas finds its own sub-window by its parents.
QLayer::QLayer(const QString& name, QSize size, int kind, QMdiArea*, QWidget* parent)
    : QLabel(parent), m_canvasTools(std::make_unique<CanvasTools>(*this)), m_character(kind, size),
      m_title(name)
{
    setAlignment(Qt::AlignCenter);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    showTransparencyChecker();
    refresh();
}

QLayer::~QLayer() = default;

// Where the sheet has no alpha the canvas shows a light checker, so that the sheet's
// extent and its transparent pixels read at a glance.
void QLayer::showTransparencyChecker()
{
    QPixmap tile(16, 16);
    tile.fill(Qt::white);
    QPainter painter(&tile);
    painter.fillRect(0, 0, 8, 8, QColor(0xd8, 0xd8, 0xd8));
    painter.fillRect(8, 8, 8, 8, QColor(0xd8, 0xd8, 0xd8));
    painter.end();
    QPalette checker = palette();
    checker.setBrush(QPalette::Window, QBrush(tile));
    setPalette(checker);
    setAutoFillBackground(true);
}

void QLayer::setLayerList(QLayerList* list)
{
    m_layerList = list;
}

QLayerList* QLayer::layerList() const
{
    return m_layerList;
}

void QLayer::elementsChanged()
{
    m_character.setListDirty(true);
    if (m_layerList)
        m_layerList->update();
}

quint8 QLayer::tool() const
{
    return m_tools ? m_tools->tool : quint8(ToolState::Select);
}

// The sub-window that holds this canvas, found by walking up: a background document
// closed from its tab is marked while another one is active.
QMdiSubWindow* QLayer::subWindow() const
{
    for (QWidget* widget = parentWidget(); widget; widget = widget->parentWidget()) {
        if (QMdiSubWindow* window = qobject_cast<QMdiSubWindow*>(widget))
            return window;
    }
    return nullptr;
}

void QLayer::setModified(bool modified)
{
    m_modified = modified;
    emit documentMarked(modified);
    QMdiSubWindow* window = subWindow();
    if (!window)
        return;
    if (modified) {
        window->setWindowIcon(QIcon(QStringLiteral(":/icon/unsaved.png")));
        window->setWindowTitle(m_title + QLatin1Char('*'));
    } else {
        window->setWindowIcon(QIcon(QStringLiteral(":/icon/Save.png")));
        window->setWindowTitle(m_title);
    }
}

void QLayer::refresh()
{
    setPixmap(QPixmap::fromImage(m_character.render()));
}

void QLayer::resizeToSheet()
{
    const QSize sheet = m_character.sheetSize();
    const double zoom = m_character.zoom();
    resize(int(sheet.width() * zoom), int(sheet.height() * zoom));
    refresh();
}

void QLayer::zoomStep(int direction)
{
    const double zoom = m_character.zoom();
    for (size_t i = 0; i + 1 < ZoomSteps.size(); ++i) {
        if (direction == 0 && ZoomSteps[i] <= zoom && zoom < ZoomSteps[i + 1]) {
            m_character.setZoom(ZoomSteps[i + 1]);
            break;
        }
        if (direction == 1 && ZoomSteps[i] < zoom && zoom <= ZoomSteps[i + 1]) {
            m_character.setZoom(ZoomSteps[i]);
            break;
        }
    }
    resizeToSheet();
}

void QLayer::setZoom(double zoom)
{
    if (zoom <= 0.5)
        zoom = 0.5;
    else if (zoom >= 16)
        zoom = 16;
    m_character.setZoom(zoom);
    resizeToSheet();
}

QPoint QLayer::pixmapOffset() const
{
    const QSize shown = pixmap().size();
    return QPoint(int(width() * 0.5 - shown.width() * 0.5),
                  int(height() * 0.5 - shown.height() * 0.5));
}

QPoint QLayer::pixelPoint(QPoint widgetPoint) const
{
    return widgetPoint - pixmapOffset();
}

QPoint QLayer::sheetPoint(QPoint pixelPoint) const
{
    const double zoom = m_character.zoom();
    return QPoint(int(pixelPoint.x() / zoom), int(pixelPoint.y() / zoom));
}

int QLayer::cellAt(QPoint point) const
{
    const int columns = m_character.columnCount();
    if (columns == 0)
        return -1;
    const QSize shown = pixmap().size();
    const int cw = shown.width() / columns;
    const int ch = shown.height() / 4;
    for (int c = 0; c < m_character.cellCount(); ++c) {
        const QRect cell(c % columns * cw, c / columns * ch, cw, ch);
        if (cell.contains(point))
            return c;
    }
    return -1;
}

QPoint QLayer::cellPoint(int cell) const
{
    const int columns = m_character.columnCount();
    return columns == 0 ? QPoint() : QPoint(cell % columns, cell / columns);
}

QPoint QLayer::cellLocal(int cell, QPoint sheetPoint) const
{
    return sheetPoint - m_character.cellCorner(cell);
}

// Ctrl and Shift come with the event that selects: key events of the modifiers may
// never reach the canvas (a dialog took the release), and a state kept from them
// would stick.
void QLayer::selectCell(int cell, Qt::KeyboardModifiers modifiers)
{
    if (cell < 0)
        return;
    const bool ctrl = modifiers.testFlag(Qt::ControlModifier);
    const bool shift = modifiers.testFlag(Qt::ShiftModifier);
    const int count = m_character.selectedCellCount();
    if (!ctrl && !shift) {
        m_character.setSelectedCells({cell});
    } else if (ctrl && !shift) {
        m_character.toggleCell(cell);
    } else if (count == 0) {
        // Shift alone starts a selection like a plain click; with Ctrl it toggles.
        if (ctrl)
            m_character.toggleCell(cell);
        else
            m_character.setSelectedCells({cell});
    } else if (cell != m_character.selectedCell(count - 1)) {
        selectRange(cell, ctrl);
    }
    refresh();
}

// The rectangle between the anchor (the last selected cell) and cell, walked column by
// column. With Shift alone it replaces the selection; with Ctrl and Shift every cell of
// it is toggled, so a cell already selected leaves the selection, deliberately.
void QLayer::selectRange(int cell, bool toggleAll)
{
    const int anchor = m_character.selectedCell(m_character.selectedCellCount() - 1);
    const QPoint a = cellPoint(anchor);
    const QPoint b = cellPoint(cell);
    const int columns = m_character.columnCount();
    if (!toggleAll)
        m_character.clearCellSelection();
    for (int column = qMin(a.x(), b.x()); column <= qMax(a.x(), b.x()); ++column) {
        for (int row = qMin(a.y(), b.y()); row <= qMax(a.y(), b.y()); ++row) {
            const int c = row * columns + column;
            if (c == cell || (toggleAll && c == anchor))
                continue;
            m_character.toggleCell(c);
        }
    }
    m_character.toggleCell(cell);
}

void QLayer::recordStep(const QByteArray& label)
{
    setModified(true);
    m_history.push(HistoryStep::capture(m_character), label);
}

const HistoryStep& QLayer::goToStep(int index)
{
    const HistoryStep& step = m_history.goTo(index);
    setModified(!m_history.isAtSavedState());
    return step;
}

void QLayer::mousePressEvent(QMouseEvent* event)
{
    m_canvasTools->press(tool(), pixelPoint(event->position().toPoint()), event->modifiers());
}

void QLayer::mouseMoveEvent(QMouseEvent* event)
{
    m_canvasTools->move(pixelPoint(event->position().toPoint()));
}

void QLayer::mouseReleaseEvent(QMouseEvent* event)
{
    m_canvasTools->release(pixelPoint(event->position().toPoint()));
}

void QLayer::moveSelection(QPoint delta)
{
    m_character.moveCells(delta);
    refresh();
    recordStep("D\xe9placement");
    elementsChanged();
}

void QLayer::selectWithArrow(int key, Qt::KeyboardModifiers modifiers)
{
    const int count = m_character.selectedCellCount();
    if (count == 0)
        return;
    const int anchor = m_character.selectedCell(count - 1);
    const bool xp = m_character.kind() == Character::XP;
    const bool vx = m_character.kind() == Character::VX;
    switch (key) {
    case Qt::Key_Up:
        if (xp && anchor > 3)
            selectCell(anchor - 4, modifiers);
        else if (vx && anchor >= 3)
            selectCell(anchor - 3, modifiers);
        break;
    case Qt::Key_Down:
        if (xp && anchor < 12)
            selectCell(anchor + 4, modifiers);
        else if (vx && anchor <= 8)
            selectCell(anchor + 3, modifiers);
        break;
    case Qt::Key_Left:
        if (anchor >= 1)
            selectCell(anchor - 1, modifiers);
        break;
    case Qt::Key_Right:
        if ((xp && anchor < 15) || (vx && anchor < 11))
            selectCell(anchor + 1, modifiers);
        break;
    }
}

void QLayer::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    switch (key) {
    case Qt::Key_Delete:
        m_character.deleteCells();
        recordStep("Suppression de cellules");
        refresh();
        elementsChanged();
        return;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (tool() == ToolState::Select) {
            selectWithArrow(key, event->modifiers());
        } else if (tool() == ToolState::Move) {
            const QPoint delta = key == Qt::Key_Up     ? QPoint(0, -1)
                                 : key == Qt::Key_Down ? QPoint(0, 1)
                                 : key == Qt::Key_Left ? QPoint(-1, 0)
                                                       : QPoint(1, 0);
            moveSelection(delta);
        }
        return;
    default:
        QLabel::keyPressEvent(event);
    }
}

void QLayer::enterEvent(QEnterEvent*)
{
    switch (tool()) {
    case ToolState::Move:
        setCursor(Qt::OpenHandCursor);
        break;
    case ToolState::Select:
        setCursor(Qt::ArrowCursor);
        break;
    default:
        setCursor(Qt::CrossCursor);
    }
}

const QString QLayer::FileFilters =
    QStringLiteral("Fichier Zenkora (*.zk);;Fichier Zenkora Bêta (*.zk);;Image (*.png)");
const QString QLayer::BetaFilter = QStringLiteral("Fichier Zenkora Bêta (*.zk)");
const QString QLayer::ImageFilter = QStringLiteral("Image (*.png)");

QString QLayer::askSaveName(const QString& title, QString* filter)
{
    Settings settings;
    QString folder = QDir::homePath();
    settings.get(QStringLiteral("pathSaveZKFile"), folder);
    const QString answer =
        Prompts::instance()->saveFileName(this, title, folder, FileFilters, filter);
    const QString directory = directoryOf(answer);
    if (!answer.isEmpty() && !directory.contains(QLatin1Char('?')))
        settings.set(QStringLiteral("Path"), QStringLiteral("pathSaveZKFile"), directory);
    return answer;
}

// An export writes the exact composed sheet, the raw transparent pixel included; it
// is no save of the document.
bool QLayer::exportPng(const QString& path)
{
    return PngWriter::save(m_character.compose(), withExtension(path, QStringLiteral("png")));
}

bool QLayer::writeCharacter(const QString& path, quint8 version)
{
    return m_character.saveCharacter(path, version);
}

void QLayer::markSaved()
{
    m_title = baseNameOf(m_filePath);
    setModified(false);
    m_history.markSaved();
}

int QLayer::saveDocument()
{
    QString filter;
    QString name = m_filePath;
    if (name.isEmpty()) {
        name = askSaveName(QStringLiteral("Enregistrer"), &filter);
        if (name.isEmpty())
            return 2;
    }
    if (filter == ImageFilter)
        return exportPng(name) ? 1 : 0;
    // A plain save keeps the document's file version; the beta choice turns it off.
    const quint8 version = filter == BetaFilter || m_fileVersion == 0 ? 0 : 1;
    // The written name, extension included, becomes the document's, so that the
    // recent list and the next start find the file that was written. A name that
    // could not be written is not kept: the next save asks again.
    const QString path = withExtension(name, QStringLiteral("zk"));
    if (!writeCharacter(path, version))
        return 0;
    m_filePath = path;
    m_fileVersion = version;
    markSaved();
    return 1;
}

int QLayer::saveDocumentAs()
{
    QString filter;
    const QString answer = askSaveName(QStringLiteral("Enregistrer sous..."), &filter);
    if (answer.isEmpty())
        return 2;
    if (filter == ImageFilter)
        return exportPng(answer) ? 1 : 0;
    const quint8 version = filter == BetaFilter ? 0 : 1;
    const QString path = withExtension(answer, QStringLiteral("zk"));
    if (!writeCharacter(path, version))
        return 0;
    m_fileVersion = version;
    m_filePath = path;
    markSaved();
    return 1;
}

bool QLayer::confirmCloseWithChanges()
{
    const QString name = m_filePath.isEmpty() ? m_title : m_filePath;
    const QMessageBox::StandardButton answer = Prompts::instance()->closeWithChanges(
        this, name, CloseQuestion::thumbnail(m_character), false);
    if (answer == QMessageBox::Discard)
        return true;
    if (answer != QMessageBox::Save)
        return false;
    const int saved = saveDocument();
    if (saved == 0) {
        Prompts::instance()->critical(this, QStringLiteral("Fermeture"),
                                      QStringLiteral("Impossible de sauvegarder le fichier."));
    }
    return saved == 1;
}

bool QLayer::confirmCloseClean()
{
    Settings settings;
    bool showCloseFile = true;
    settings.get(QStringLiteral("showCloseFile"), showCloseFile);
    if (!showCloseFile)
        return true;
    const QString name = m_filePath.isEmpty() ? m_title : fileNameOf(m_filePath);
    const Prompts::Answer answer = Prompts::instance()->message(this, CloseQuestion::clean(name));
    if (answer.button != QMessageBox::Yes)
        return false;
    settings.set(QStringLiteral("showAgain"), QStringLiteral("showCloseFile"), !answer.checked);
    return true;
}

void QLayer::closeEvent(QCloseEvent* event)
{
    if (!m_askOnClose || (m_modified ? confirmCloseWithChanges() : confirmCloseClean()))
        event->accept();
    else
        event->ignore();
}

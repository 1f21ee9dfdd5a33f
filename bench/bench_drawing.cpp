// A pen stroke on a large character in the main window: the time of each mouse move,
// the label's repaint included, and of the release (stamp, history step, refresh).
// 200 round dabs of width 8 from corner to corner of a 512x512 XP sheet of 30 elements,
// on a drawing layer, pressed in cell 0, at zoom 4 in a 1280x800 window.
// Run it in an empty folder (it reads and writes zenkora.ini there), on a display:
//   bench_drawing
#include "app/mainwindow.h"
#include "canvas/qlayer.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QRandomGenerator>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

// A cell picture of opaque and see-through pixels, so that the blend has work.
QImage cellPicture(QSize size, quint32 seed)
{
    QRandomGenerator random(seed);
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const quint32 roll = random.bounded(100u);
            const int alpha = roll < 50 ? 0 : roll < 93 ? 255 : 128;
            line[x] = qRgba(int(random.bounded(256u)), x & 255, y & 255, alpha);
        }
    }
    return image;
}

void send(QLayer* layer, QEvent::Type type, QPoint point)
{
    QMouseEvent event(type, point, layer->mapToGlobal(point), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(layer, &event);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Character character(Character::XP, QSize(512, 512));
    const QSize cell = character.cellSize();
    for (int e = 0; e < 30; ++e) {
        QList<QImage> images;
        for (int c = 0; c < character.cellCount(); ++c)
            images.append(cellPicture(cell, quint32(e * 16 + c)));
        character.insertElement(e, "e" + QByteArray::number(e), "e.png", images,
                                QList<QPoint>(character.cellCount(), QPoint(0, 0)), true);
    }
    character.addDrawingLayer(30);
    character.setSelectedElements({30});
    character.setZoom(4);

    MainWindow window;
    window.resize(1280, 800);
    window.show();
    QLayer* layer = window.addDocument(character, QStringLiteral("bench"));
    window.toolState()->tool = ToolState::Pen;
    window.toolState()->penWidth = 8;
    window.toolState()->penShape = 1;
    layer->resizeToSheet();
    for (int i = 0; i < 20; ++i)
        QApplication::processEvents();

    const QPoint offset = layer->pixmapOffset();
    const int dabs = 200;
    const double span = 511.0 * 4;
    std::vector<double> moves;
    std::vector<double> releases;
    QElapsedTimer timer;
    // Twice: the first release also marks the document modified.
    for (int stroke = 0; stroke < 2; ++stroke) {
        send(layer, QEvent::MouseButtonPress, offset + QPoint(2, 2));
        for (int i = 1; i < dabs; ++i) {
            const int d = int(span * i / (dabs - 1));
            timer.start();
            send(layer, QEvent::MouseMove, offset + QPoint(d, d));
            layer->repaint();
            moves.push_back(timer.nsecsElapsed() / 1e6);
        }
        timer.start();
        send(layer, QEvent::MouseButtonRelease, offset + QPoint(int(span), int(span)));
        layer->repaint();
        releases.push_back(timer.nsecsElapsed() / 1e6);
    }

    // For comparison: the refresh alone, which the release ends with.
    timer.start();
    layer->refresh();
    layer->repaint();
    const double refresh = timer.nsecsElapsed() / 1e6;

    timer.start();
    layer->recordStep("x");
    layer->repaint();
    const double step = timer.nsecsElapsed() / 1e6;

    std::sort(moves.begin(), moves.end());
    std::printf("moves: %zu, median %.2f ms, 90th %.2f ms, maximum %.2f ms\n", moves.size(),
                moves[moves.size() / 2], moves[moves.size() * 9 / 10], moves.back());
    std::printf("releases (stamp, history, refresh): %.2f ms, then %.2f ms; a refresh alone: "
                "%.2f ms, a history step alone: %.2f ms\n",
                releases[0], releases[1], refresh, step);
    for (QLayer* open : window.layers())
        open->setAskOnClose(false);
    return 0;
}

// Renders the SVG sources of the program's icons to PNG at build time, at the size
// each SVG declares (its width and height attributes), times an optional scale.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

// The build log keeps only real problems: the platform's notes about runtime folders
// and the like are dropped.
static void quietMessages(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(quietMessages);
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 3) {
        std::fprintf(stderr, "usage: zenkora-iconrender IN.svg OUT.png [scale]\n");
        return 2;
    }
    QSvgRenderer renderer(args.at(1));
    if (!renderer.isValid()) {
        std::fprintf(stderr, "zenkora-iconrender: cannot read %s\n", qPrintable(args.at(1)));
        return 1;
    }
    const double scale = args.size() > 3 ? args.at(3).toDouble() : 1.0;
    const QSize size = renderer.defaultSize() * scale;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    if (!image.convertToFormat(QImage::Format_ARGB32).save(args.at(2), "PNG")) {
        std::fprintf(stderr, "zenkora-iconrender: cannot write %s\n", qPrintable(args.at(2)));
        return 1;
    }
    return 0;
}

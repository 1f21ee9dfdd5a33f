#include "testfiles.h"

#include "formats/pngwriter.h"

#include <QBuffer>
#include <QDir>
#include <QFile>

#include <csignal>

QByteArray fileContents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<absent>");
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QImage solidImage(QSize size, QRgb pixel)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(pixel);
    return image;
}

QByteArray pngBytes(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return PngWriter::write(image, &buffer) ? buffer.data() : QByteArray("<not written>");
}

QByteArray hex(const char* text)
{
    return QByteArray::fromHex(QByteArray(text).replace(' ', ""));
}

QString TestFolders::newFolder()
{
    const QString path = m_root.filePath(m_stem + QStringLiteral(" %1").arg(++m_count));
    QDir().mkpath(path);
    return path;
}

FileSizeLimit::FileSizeLimit(qint64 bytes)
{
    getrlimit(RLIMIT_FSIZE, &m_previous);
    m_handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = m_previous;
    limit.rlim_cur = rlim_t(bytes);
    setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit()
{
    setrlimit(RLIMIT_FSIZE, &m_previous);
    std::signal(SIGXFSZ, m_handler);
}

#include "imagecompare.h"

#include <QDir>

QString compareImages(const QImage& actual, const QImage& expected, const QString& name)
{
    if (actual.isNull() != expected.isNull())
        return QStringLiteral("one image is null and the other is not");
    if (actual.size() != expected.size()) {
        return QStringLiteral("sizes differ: %1x%2 against %3x%4")
            .arg(actual.width()).arg(actual.height())
            .arg(expected.width()).arg(expected.height());
    }
    const QImage a = actual.convertToFormat(QImage::Format_ARGB32);
    const QImage e = expected.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < a.height(); ++y) {
        const QRgb* la = reinterpret_cast<const QRgb*>(a.constScanLine(y));
        const QRgb* le = reinterpret_cast<const QRgb*>(e.constScanLine(y));
        for (int x = 0; x < a.width(); ++x) {
            if (la[x] == le[x])
                continue;
            QString dir = qEnvironmentVariable("ZENKORA_FAILED_IMAGES", QDir::tempPath());
            a.save(dir + QLatin1Char('/') + name + QStringLiteral("_actual.png"));
            e.save(dir + QLatin1Char('/') + name + QStringLiteral("_expected.png"));
            return QStringLiteral("first difference at (%1, %2): %3 against %4 (images in %5)")
                .arg(x).arg(y)
                .arg(la[x], 8, 16, QLatin1Char('0'))
                .arg(le[x], 8, 16, QLatin1Char('0'))
                .arg(dir);
        }
    }
    return QString();
}

#pragma once

#include <QImage>
#include <QString>

// Compares two images pixel by pixel, raw values included. On a difference it writes
// both images as PNG beside the test (or in ZENKORA_FAILED_IMAGES) and returns a text
// naming the first differing pixel; an empty text means equal.
QString compareImages(const QImage& actual, const QImage& expected, const QString& name);

// QVERIFY2-friendly form.
#define ZK_COMPARE_IMAGES(actual, expected)                                                 \
    do {                                                                                    \
        const QString zkDifference = compareImages((actual), (expected), QString::fromLatin1( \
                                                       QTest::currentTestFunction()));      \
        QVERIFY2(zkDifference.isEmpty(), qPrintable(zkDifference));                         \
    } while (false)

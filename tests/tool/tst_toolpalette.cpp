// zenkora-tool info on a palette: the JSON of a whole file, and of a damaged one the
// colours read before the damage with the reader's message.
#include "formats/palettefile.h"
#include "imaging/defaultpalette.h"
#include "testfiles.h"
#include "toolrunner.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

class TestToolPalette : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void info_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("code");
        QTest::addColumn<QJsonValue>("version");
        QTest::addColumn<QJsonValue>("count");
        QTest::addColumn<int>("colours");
        QTest::addColumn<QString>("error");
        QByteArray whole;
        QBuffer buffer(&whole);
        buffer.open(QIODevice::WriteOnly);
        QVERIFY(PaletteFile::write(DefaultPalette::colours(20, 6), &buffer));
        QByteArray newer = whole;
        newer[0] = 2;
        QTest::newRow("default") << whole << 0 << QJsonValue(0) << QJsonValue(120) << 120
                                 << QString();
        QTest::newRow("cut inside colour 7")
            << whole.left(3 + 4 * 7 + 3) << 1 << QJsonValue(0) << QJsonValue(120) << 7
            << QStringLiteral(" est endommagé.\nIl est impossible de l'ouvrir.\n");
        QTest::newRow("newer") << newer << 1 << QJsonValue(2) << QJsonValue(QJsonValue::Null) << 0
                               << QStringLiteral(" a été enregistré avec une version de Zenkora "
                                                 "plus récente.\n");
        QTest::newRow("empty") << QByteArray() << 1 << QJsonValue(QJsonValue::Null)
                               << QJsonValue(QJsonValue::Null) << 0
                               << QStringLiteral(
                                      " est endommagé.\nIl est impossible de l'ouvrir.\n");
    }

    void info()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, code);
        QFETCH(QJsonValue, version);
        QFETCH(QJsonValue, count);
        QFETCH(int, colours);
        QFETCH(QString, error);
        const QString path = m_dir.filePath(QStringLiteral("palette é.zkp"));
        QVERIFY(writeFile(path, bytes));
        const ToolResult result = runTool({QStringLiteral("info"), path});
        QCOMPARE(result.code, code);
        QCOMPARE(result.err, error.isEmpty() ? QString() : path + error);
        const QJsonObject json = QJsonDocument::fromJson(result.out.toUtf8()).object();
        QCOMPARE(json.keys(), QStringList({QStringLiteral("colours"), QStringLiteral("count"),
                                           QStringLiteral("version")}));
        QCOMPARE(json.value(QStringLiteral("version")), version);
        QCOMPARE(json.value(QStringLiteral("count")), count);
        const QJsonArray list = json.value(QStringLiteral("colours")).toArray();
        QCOMPARE(list.size(), colours);
        if (colours > 10) {
            QCOMPARE(list.at(10).toString(), QStringLiteral("#80404040"));
            QCOMPARE(list.at(18).toString(), QStringLiteral("#FFFF4C00"));
        }
        if (colours > 0)
            QCOMPARE(list.at(0).toString(), QStringLiteral("#FF000000"));
    }
};

QTEST_GUILESS_MAIN(TestToolPalette)
#include "tst_toolpalette.moc"

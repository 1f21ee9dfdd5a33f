// zenkora-tool info on .zkd gradient files, whole and damaged, run as a script runs it.
#include "formats/gradientfile.h"
#include "testfiles.h"
#include "toolrunner.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

class TestToolGradient : public QObject
{
    Q_OBJECT

private slots:
    void info_data();
    void info();

private:
    QTemporaryDir m_dir;
};

void TestToolGradient::info_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("json");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("error");

    GradientRecord radial;
    radial.type = GradientRecord::Radial;
    radial.spread = 1;
    radial.radialFocal = QPointF(255, 7);
    radial.stops.append({-0.0125, QColor(200, 100, 50, 128)});
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QVERIFY(GradientFile::write(radial, &buffer));
    const QByteArray whole = buffer.data();
    const QString handles = QStringLiteral(
        R"("handles": [{"x": 100, "y": 100}, {"x": 100, "y": 0}, {"x": 255, "y": 7}])");
    const QString damaged = QStringLiteral(" est endommagé.\nIl est impossible de l'ouvrir.\n");

    QTest::newRow("whole") << whole
                           << QStringLiteral(R"({"version": 0, "type": 1, "spread": 1, )") +
                                  handles +
                                  QStringLiteral(
                                      R"(, "stops": [{"position": 0, "color": "#FF000000"},)"
                                      R"( {"position": 1, "color": "#FFFFFFFF"},)"
                                      R"( {"position": -0.0125, "color": "#80C86432"}]})")
                           << 0 << QString();
    // Stops too few for the count are refused before any is read; a bad position is
    // found where it stands.
    QTest::newRow("cut in the second stop")
        << whole.left(11 + 12 + 5)
        << QStringLiteral(R"({"version": 0, "type": 1, "spread": 1, )") + handles +
               QStringLiteral(R"(, "stops": []})")
        << 1 << damaged;
    QByteArray infinite = whole;
    infinite.replace(11 + 12, 8, QByteArray::fromHex("000000000000f07f"));
    QTest::newRow("infinite second stop")
        << infinite
        << QStringLiteral(R"({"version": 0, "type": 1, "spread": 1, )") + handles +
               QStringLiteral(R"(, "stops": [{"position": 0, "color": "#FF000000"}]})")
        << 1 << damaged;
    QTest::newRow("cut after the type")
        << whole.left(4) << QStringLiteral(R"({"version": 0, "type": 1})") << 1 << damaged;
    QTest::newRow("newer version")
        << QByteArray("\x01\x02\x00", 3) << QStringLiteral(R"({"version": 1})") << 1
        << QStringLiteral(" a été enregistré avec une version de Zenkora plus récente.\n");
    QTest::newRow("empty") << QByteArray() << QString() << 1 << damaged;
}

void TestToolGradient::info()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, json);
    QFETCH(int, code);
    QFETCH(QString, error);
    const QString path = m_dir.filePath(
        QStringLiteral("dégradé %1.ZKD").arg(QString::fromLatin1(QTest::currentDataTag())));
    QVERIFY(writeFile(path, bytes));
    const ToolResult result = runTool({QStringLiteral("info"), path});
    QCOMPARE(result.code, code);
    QCOMPARE(result.err, error.isEmpty() ? QString() : path + error);
    if (json.isEmpty()) {
        QVERIFY(result.out.isEmpty());
        return;
    }
    QJsonParseError parsed;
    const QJsonDocument document = QJsonDocument::fromJson(result.out.toUtf8(), &parsed);
    QCOMPARE(parsed.error, QJsonParseError::NoError);
    QCOMPARE(document, QJsonDocument::fromJson(json.toUtf8()));
}

QTEST_GUILESS_MAIN(TestToolGradient)
#include "tst_toolgradient.moc"

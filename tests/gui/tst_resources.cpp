#include "app/startup.h"

#include <QDirIterator>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>

// What the program loads from its compiled-in resources: every icon its sources name,
// and the toolkit's French catalogue.
class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void everyNamedIconIsDrawn()
    {
        const QRegularExpression name(QStringLiteral(":/icon/([^\"]+\\.png)"));
        QStringList missing;
        int found = 0;
        QDirIterator files(QStringLiteral(ZENKORA_SOURCE_DIR "/src"), {QStringLiteral("*.cpp")},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QString text = QString::fromUtf8(file.readAll());
            for (const QRegularExpressionMatch& match : name.globalMatch(text)) {
                ++found;
                const QString resource = QStringLiteral(":/icon/") + match.captured(1);
                if (QImage(resource).isNull() && !missing.contains(resource))
                    missing.append(resource);
            }
        }
        QVERIFY(found > 40);
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char(' '))));
        QCOMPARE(QImage(QStringLiteral(":/icon/sélectionCase.png")).size(), QSize(32, 32));
        QCOMPARE(QImage(QStringLiteral(":/icon/ZK.png")).size(), QSize(64, 64));
    }

    void frenchCatalogueWhateverTheLocale()
    {
        // A German system still gets French buttons beside the program's French texts.
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QTranslator translator;
        QVERIFY(Startup::installCatalogue(translator));
        QMessageBox box(QMessageBox::Question, QStringLiteral("t"), QStringLiteral("q"),
                        QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box.button(QMessageBox::Yes)->text(), QStringLiteral("&Oui"));
        QCOMPARE(box.button(QMessageBox::No)->text(), QStringLiteral("&Non"));
        QCoreApplication::removeTranslator(&translator);
        QLocale::setDefault(QLocale::c());
    }
};

QTEST_MAIN(TestResources)
#include "tst_resources.moc"

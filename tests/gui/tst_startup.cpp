#include "app/startup.h"

#include <QTest>

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void openings_data()
    {
        using O = Startup::Opening;
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QList<Startup::Opening>>("expected");
        const QString opened = QStringLiteral("/a/last.zk|/b/other.png||");
        QTest::newRow("no argument reopens the last documents quietly")
            << QStringList({QStringLiteral("zenkora")})
            << QList<O>({{Startup::CharacterFile, QStringLiteral("/a/last.zk"), false},
                         {Startup::CharacterFile, QStringLiteral("/b/other.png"), false}});
        QTest::newRow("files in argument order, by extension, any case")
            << QStringList({QStringLiteral("zenkora"), QStringLiteral("b.ZK"), QStringLiteral("a.zk"),
                            QStringLiteral("s.Png"), QStringLiteral("g.elzk")})
            << QList<O>({{Startup::CharacterFile, QStringLiteral("b.ZK"), true},
                         {Startup::CharacterFile, QStringLiteral("a.zk"), true},
                         {Startup::ImageFile, QStringLiteral("s.Png"), true},
                         {Startup::ElementFile, QStringLiteral("g.elzk"), true}});
        // Reopening depends on the argument count only: a skipped argument stops it too.
        QTest::newRow("unknown argument opens nothing")
            << QStringList({QStringLiteral("zenkora"), QStringLiteral("notes.txt")}) << QList<O>();
    }

    void openings()
    {
        QFETCH(QStringList, arguments);
        const QList<Startup::Opening> result =
            Startup::openings(arguments, QStringLiteral("/a/last.zk|/b/other.png||"));
        QTEST(result, "expected");
    }
};

QTEST_GUILESS_MAIN(TestStartup)
#include "tst_startup.moc"
